#include "cooking/TimerLink.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QUrlQuery>

namespace ovrin::TimerLink {

namespace {

const QLatin1String scheme("ovrin-timer");

/// An optional sign and ASCII digits, nothing else: Qt's own conversion would also take white space.
std::optional<qint64> decimalInteger(const QString& text)
{
    const bool hasSign = text.startsWith(u'+') || text.startsWith(u'-');
    const QStringView digits = QStringView(text).mid(hasSign ? 1 : 0);
    for (const QChar c : digits) {
        if (c < u'0' || c > u'9')
            return std::nullopt;
    }
    bool fits = false;
    const qint64 value = text.toLongLong(&fits);
    return fits ? std::optional(value) : std::nullopt;
}

} // namespace

QString defaultLabel()
{
    return QCoreApplication::translate("TimerLink", "Timer");
}

QUrl url(qint64 seconds, const QString& label)
{
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("seconds"), QString::number(seconds));
    // Encoded here, since the query would leave "+" and "=" in the value as they are.
    query.addQueryItem(QStringLiteral("label"), QString::fromLatin1(QUrl::toPercentEncoding(label)));
    QUrl link;
    link.setScheme(scheme);
    link.setHost(QStringLiteral("start"));
    link.setQuery(query);
    return link;
}

std::optional<Request> parse(const QUrl& link)
{
    if (link.scheme() != scheme)
        return std::nullopt;
    const QUrlQuery query(link);
    const auto seconds = decimalInteger(query.queryItemValue(QStringLiteral("seconds"), QUrl::FullyDecoded));
    if (!seconds || *seconds < 1)
        return std::nullopt;
    const QString label = query.queryItemValue(QStringLiteral("label"), QUrl::FullyDecoded);
    return Request{*seconds, label.isEmpty() ? defaultLabel() : label};
}

} // namespace ovrin::TimerLink
