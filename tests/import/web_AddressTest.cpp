#include "import/error/RecipeImportError.h"
#include "import/web/AddressGuard.h"
#include "import/web/JsonLD.h"

#include <gtest/gtest.h>

namespace ovrin {
namespace {

std::string resolved(const char* address)
{
    const QUrl page(QStringLiteral("https://www.site.example/dir/page.html?x=1"));
    const auto url = resolvedAddress(QString::fromUtf8(address), page);
    return url ? url->toEncoded().toStdString() : "none";
}

TEST(WebAddress, ResolvesAgainstThePage)
{
    const std::pair<const char*, const char*> cases[] = {
        {"a.jpg", "https://www.site.example/dir/a.jpg"},
        {"/a.jpg", "https://www.site.example/a.jpg"},
        {"//cdn.example/a.jpg", "https://cdn.example/a.jpg"},
        {"../a.jpg", "https://www.site.example/a.jpg"},
        {"http://x.example/a.jpg?w=1&h=2", "http://x.example/a.jpg?w=1&h=2"},
        {" \n http://x.example/a\n.jpg ", "http://x.example/a.jpg"},
        {"/a b|é.jpg", "https://www.site.example/a%20b%7C%C3%A9.jpg"},
        {"/a%20b%zz.jpg", "https://www.site.example/a%20b%25zz.jpg"},
        {"data:image/png;base64,AAA=", "data:image/png;base64,AAA="},
        {"", "none"},
        {"  ", "none"},
        {"http://", "none"},
        {"http://x.example:99999/", "none"},
        {"http://x .example/a", "none"},
        {"1:2", "none"},
    };
    for (const auto& [address, expected] : cases) {
        EXPECT_EQ(resolved(address), expected) << address;
    }
}

TEST(AddressGuard, KnowsWhatIsNotThePublicInternet)
{
    for (const char* address : {"127.0.0.1",
                                "127.255.0.1",
                                "10.1.2.3",
                                "172.16.0.1",
                                "172.31.255.255",
                                "192.168.0.1",
                                "169.254.169.254",
                                "100.64.0.1",
                                "0.0.0.0",
                                "255.255.255.255",
                                "224.0.0.1",
                                "::1",
                                "::",
                                "fe80::1",
                                "fc00::1",
                                "fd12::1",
                                "ff02::1",
                                "::ffff:127.0.0.1",
                                "::ffff:10.0.0.1",
                                "::127.0.0.1",
                                "64:ff9b::10.0.0.1",
                                "2002:7f00:1::",
                                "2001:db8::1",
                                "2001::1",
                                "fec0::1"}) {
        EXPECT_TRUE(isPrivateAddress(QHostAddress(QString::fromLatin1(address)))) << address;
    }
    for (const char* address :
         {"8.8.8.8", "172.15.0.1", "172.32.0.1", "192.167.255.255", "100.128.0.1", "11.0.0.1",
          "223.255.255.255", "2606:4700::1111", "2a00:1450::1", "::ffff:8.8.8.8", "2001:4860:4860::8888"}) {
        EXPECT_FALSE(isPrivateAddress(QHostAddress(QString::fromLatin1(address)))) << address;
    }
    EXPECT_TRUE(isPrivateAddress(QHostAddress()));
}

TEST(AddressGuard, FollowsOnlySafeRedirects)
{
    const auto target = [](const char* from, const char* location) -> std::string {
        try {
            return redirectTarget(QUrl(QString::fromLatin1(from)), QUrl(QString::fromLatin1(location)))
                .toEncoded()
                .toStdString();
        } catch (const TransportError& error) {
            return error.reason() == TransportError::Case::RedirectRefused ? "refused" : "other";
        }
    };
    const std::array<const char*, 3> cases[] = {
        {"http://a.example/x", "/y", "http://a.example/y"},
        {"http://a.example/x", "http://b.example/y", "http://b.example/y"},
        {"http://a.example/x", "https://a.example/x", "https://a.example/x"},
        {"https://a.example/x", "https://b.example/x", "https://b.example/x"},
        {"https://a.example/x", "http://a.example/x", "refused"},
        {"http://a.example/x", "file:///etc/passwd", "refused"},
        {"http://a.example/x", "javascript:alert(1)", "refused"},
        {"http://a.example/x", "http://", "refused"},
        {"http://me:pw@a.example/x", "/y", "http://me:pw@a.example/y"},
        {"http://me:pw@a.example/x", "http://b.example/y", "http://b.example/y"},
        {"http://me:pw@a.example/x", "http://a.example:8080/y", "http://a.example:8080/y"},
        {"http://a.example/x", "http://me:pw@b.example/y", "http://b.example/y"},
    };
    for (const auto& [from, location, expected] : cases) {
        EXPECT_EQ(target(from, location), expected) << from << " -> " << location;
    }
}

TEST(ImportErrors, SayWhatTheUserReads)
{
    const auto sentence = [](auto error) { return error.errorDescription().toStdString(); };
    EXPECT_EQ(sentence(RecipeImportError::badResponse(404)), "The site responded with an error (HTTP 404).");
    EXPECT_EQ(sentence(RecipeImportError::noRecipeFound()), "No recipe was found on this page.");
    EXPECT_EQ(sentence(RecipeImportError::noTextFound()), "No text could be read from this file.");
    EXPECT_EQ(sentence(RecipeImportError::unsupportedFile()),
              "Ovrin can import recipes from web pages, PDFs and images.");
    EXPECT_EQ(sentence(RecipeImportError::tooLarge()), "This is too large to import.");
    EXPECT_EQ(sentence(TransportError(TransportError::Case::TimedOut)), "The site took too long to answer.");
    EXPECT_FALSE(importErrorDescription(std::make_exception_ptr(ImportCancelled())));
    EXPECT_EQ(importErrorDescription(std::make_exception_ptr(RecipeImportError::tooLarge())),
              RecipeImportError::tooLarge().errorDescription());
}

} // namespace
} // namespace ovrin
