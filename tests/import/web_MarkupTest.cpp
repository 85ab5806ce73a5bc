#include "import/web/PageMarkup.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QRegularExpression>

#include <gtest/gtest.h>

#include <random>

namespace ovrin {
namespace {

std::vector<std::string> scripts(std::string_view page)
{
    std::vector<std::string> bodies;
    JsonLDScripts walk(page);
    while (const auto body = walk.next()) {
        bodies.emplace_back(*body);
    }
    return bodies;
}

std::string meta(std::string_view page, std::string_view key)
{
    const auto content = MetaTags::in(page)[key];
    return content ? content->toStdString() : "none";
}

std::string title(std::string_view page)
{
    const auto text = pageTitle(page);
    return text ? text->toStdString() : "none";
}

TEST(JsonLDScripts, FindsWhatThePatternFinds)
{
    using Bodies = std::vector<std::string>;
    const std::pair<const char*, Bodies> cases[] = {
        {R"(<script type="application/ld+json">1</script>)", {"1"}},
        {R"(<SCRIPT id=x TYPE='Application/LD+JSON' data-y> 1 </Script> <script type=application/ld+json>2</script>)",
         {"1", "2"}},
        {"<\u017Fcript application/ld+j\u017Fon>long s</\u017Fcript>", {"long s"}},
        {"<script application/ld+json>\u00A0\u2028\n1\u3000</script>", {"1"}},
        {"<script src=a></script><script type=application/ld+json>1</script>", {"1"}},
        {"<script><script application/ld+json>inner</script>", {"inner"}},
        {"<script x <script application/ld+json>outer</script>", {"outer"}},
        {"application/ld+json <script application/ld+json>1</script>", {"1"}},
        {"<script application/ld+json application/ld+json>1</script>", {"1"}},
        {"<script application/ld+json>a<script application/ld+json>b</script>c</script>",
         {"a<script application/ld+json>b"}},
        {"<scripts application/ld+json>1</script>", {"1"}},
        {"<script application/ld+json>1</script >", {}},
        {"<script application/ld+json", {}},
        {"<script> application/ld+json</script>", {}},
        {"<div application/ld+json>1</script>", {}},
        {"<script application/ld json>1</script>", {}},
        {"", {}},
    };
    for (const auto& [page, bodies] : cases) {
        EXPECT_EQ(scripts(page), bodies) << page;
    }
}

// The scanner stands for the pattern: both must find the same in whatever the pieces can make.
TEST(JsonLDScripts, AgreesWithThePatternOnRandomPages)
{
    const QRegularExpression pattern(
        QStringLiteral("(?is)<script[^>]*application\\/ld\\+json[^>]*>(.*?)<\\/script>"));
    const char* pieces[] = {"<script", "application/ld+json", ">", "</script>", " ", "x", "<", "/script>",
                            "\n"};
    std::minstd_rand random(7); // NOLINT(cert-msc51-cpp): the same pages every time
    for (int round = 0; round < 20'000; ++round) {
        std::string page;
        for (int i = 0; i < 12; ++i) {
            page += pieces[random() % std::size(pieces)];
        }
        std::vector<std::string> expected;
        auto matches = pattern.globalMatch(QString::fromStdString(page));
        while (matches.hasNext()) {
            expected.push_back(matches.next().captured(1).trimmed().toStdString());
        }
        ASSERT_EQ(scripts(page), expected) << page;
    }
}

TEST(MetaTags, ReadsQuotedAttributes)
{
    struct Case
    {
        const char* page;
        const char* key;
        const char* content;
    };
    const Case cases[] = {
        {R"(<meta property="og:title" content="Soup &amp; bread">)", "og:title", "Soup & bread"},
        {R"(<META CONTENT = 'a "b"' NAME	=
            'Description'/>)",
         "description", "a \"b\""},
        {R"(<meta name="a" property="b" content="c">)", "b", "c"},
        {R"(<meta name="a" property="b" content="c">)", "a", "none"},
        {R"(<meta name="a" content="first"><meta name="A" content="second">)", "a", "first"},
        {R"(<meta name="a" name="b" content="first" content="second">)", "a", "first"},
        {R"(<meta name="a"><meta name="a" content="second">)", "a", "second"},
        {R"(<meta name="a" content="">)", "a", ""},
        {R"(<meta name="a" content=bare>)", "a", "none"},
        {R"(<meta name="a" content="cut > short">)", "a", "none"},
        {R"(<meta name="a" data-content="no" content="yes">)", "a", "yes"},
        {R"(<meta name="a" éxcontent="no" content="yes">)", "a", "yes"},
        {R"(<meta name="a" b="open content='in'>)", "a", "in"},
        {R"(<meta/name="a"/content="c">)", "a", "c"},
        {R"(<metadata name="a" content="c">)", "a", "none"},
        {"<meta\u0301 name='a' content='c'>", "a", "none"},
        {"<meta\u00BD name='a' content='c'>", "a", "c"},
        {R"(<meta name="a" content="c")", "a", "none"},
        {"<meta name='a'\u00A0content\u2003=\u3000'c'>", "a", "c"},
        {"<meta name='a' content='b\xFF\xE2\x82z'>", "a", "b\uFFFD\uFFFDz"},
        {R"(<meta <meta name="a" content="c">)", "a", "c"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(meta(c.page, c.key), c.content) << c.page;
    }
}

TEST(PageTitle, IsTheFirstThatEnds)
{
    EXPECT_EQ(title("<TITLE lang=en> A &amp; <b>B</b>\n C</Title><title>D</title>"), "A & B\nC");
    EXPECT_EQ(title("<title></title><title>D</title>"), "");
    EXPECT_EQ(title("<title>never ends"), "none");
    EXPECT_EQ(title("<svg><titles>x</title>"), "x");
    EXPECT_EQ(title("<title"), "none");
    EXPECT_EQ(title("no markup"), "none");
}

// Quadratic work on four megabytes would take minutes, not a moment.
TEST(PageMarkup, TakesTimeInProportion)
{
    for (const char* piece : {"<",
                              "<script",
                              "<script ",
                              "<script application/ld+json",
                              "application/ld+json",
                              "<script application/ld+json>",
                              "</script",
                              "<meta",
                              "<meta ",
                              "<meta>",
                              "<meta a='",
                              "a=\"",
                              "<meta a=\"b' ",
                              "<title",
                              "<title>",
                              "</title",
                              "+json",
                              "application/ld+",
                              "\xE2\x82",
                              ">",
                              "='"}) {
        const QByteArray page = QByteArray(piece).repeated(4'000'000 / int(strlen(piece)));
        for (const QByteArray& variant : {page, "<meta " + page + ">", "<script " + page + ">" + page}) {
            const std::string_view view(variant.constData(), size_t(variant.size()));
            scripts(view);
            meta(view, "og:title");
            title(view);
        }
    }
}

} // namespace
} // namespace ovrin
