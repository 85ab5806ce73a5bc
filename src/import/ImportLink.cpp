#include "import/ImportLink.h"

#include <QtCore/QUrlQuery>

namespace ovrin::ImportLink {

namespace {

/// The fully decoded value of the query item `name` of a link to `host`; a "+" in it stays a "+".
std::optional<QString> item(const QUrl& url, QLatin1String host, const QString& name)
{
    if (!isOurs(url) || url.host() != host)
        return std::nullopt;
    const QUrlQuery query(url);
    if (!query.hasQueryItem(name))
        return std::nullopt;
    return query.queryItemValue(name, QUrl::FullyDecoded);
}

} // namespace

bool isOurs(const QUrl& url)
{
    return url.scheme() == QLatin1String("ovrin");
}

std::optional<QUrl> page(const QUrl& url)
{
    const auto value = item(url, QLatin1String("import"), QStringLiteral("url"));
    if (!value || value->isEmpty())
        return std::nullopt;
    const QUrl address(*value);
    // QUrl keeps schemes in lower case, whatever the link says.
    if (!address.isValid() ||
        (address.scheme() != QLatin1String("http") && address.scheme() != QLatin1String("https")))
        return std::nullopt;
    return address;
}

std::optional<RecipeDraft> draft(const QUrl& url)
{
    if (url.url().size() > maximumLength)
        return std::nullopt;
    const auto value = item(url, QLatin1String("draft"), QStringLiteral("json"));
    if (!value || value->size() % 4 != 0)
        return std::nullopt;
    const auto decoded = QByteArray::fromBase64Encoding(
        value->toUtf8(), QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors);
    return decoded ? RecipeDraft::fromJson(*decoded) : std::nullopt;
}

} // namespace ovrin::ImportLink
