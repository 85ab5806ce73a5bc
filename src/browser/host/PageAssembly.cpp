#include "browser/host/PageAssembly.h"

#include "browser/host/NativeMessages.h"
#include "import/error/RecipeImportError.h"
#include "json/JsonDocument.h"

namespace ovrin::browser {

namespace {

constexpr qint64 maximumParts = 1024;
constexpr std::size_t maximumAddressBytes = 64 << 10;

QUrl webAddress(std::string_view text)
{
    QUrl address = QUrl(QString::fromUtf8(text.data(), qsizetype(text.size())));
    const bool isWeb =
        address.scheme() == QLatin1String("http") || address.scheme() == QLatin1String("https");
    if (text.size() > maximumAddressBytes || !address.isValid() || !isWeb || address.host().isEmpty())
        throw Refusal{QStringLiteral("Ovrin can only take pages from the web.")};
    return address;
}

} // namespace

PageAssembly::PageAssembly(qsizetype maximumBytes)
    : m_maximumBytes(maximumBytes)
{
}

std::optional<SentPage> PageAssembly::take(const QByteArray& message)
{
    const auto document = JsonDocument::parse(message, NativeMessages::maximumBytes);
    const JsonValue object = document ? document->root() : JsonValue();
    const std::string_view kind = object["kind"].utf8();
    if (kind == "page" && !m_missing && object["address"].isString()) {
        m_missing = object["parts"].integer().value_or(0);
        if (*m_missing < 1 || *m_missing > maximumParts)
            throw misunderstanding();
        m_page.address = webAddress(object["address"].utf8());
        return std::nullopt;
    }
    const JsonValue html = object["html"];
    if (kind != "part" || !html.isString() || m_missing.value_or(0) < 1)
        throw misunderstanding();
    const std::string_view part = html.utf8();
    if (qsizetype(part.size()) > m_maximumBytes - m_page.html.size())
        throw Refusal{RecipeImportError::tooLarge().errorDescription()};
    m_page.html.append(part.data(), qsizetype(part.size()));
    --*m_missing;
    return *m_missing == 0 ? std::optional(std::move(m_page)) : std::nullopt;
}

} // namespace ovrin::browser
