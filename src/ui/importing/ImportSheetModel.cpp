#include "ui/importing/ImportSheetModel.h"

#include <algorithm>

namespace ovrin {

namespace {
/// Longer than any server takes; a pasteboard may hold megabytes.
constexpr qsizetype longestAddress = 8192;
} // namespace

ImportSheetModel::ImportSheetModel(QObject* parent)
    : QObject(parent)
{
}

void ImportSheetModel::setAddress(const QString& address)
{
    if (m_address == address)
        return;
    m_address = address;
    Q_EMIT addressChanged();
}

void ImportSheetModel::open(const QString& pasteboard)
{
    setAddress(fullWebAddress(pasteboard) ? pasteboard : QString());
}

std::optional<QUrl> ImportSheetModel::webAddress(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty() || trimmed.size() > longestAddress)
        return std::nullopt;
    // Blanks inside are no address, though the lenient reading that addresses with "|" need would encode
    // them.
    if (std::any_of(trimmed.begin(), trimmed.end(), [](QChar c) { return c.isSpace(); }))
        return std::nullopt;
    const QUrl url(trimmed.contains(QStringLiteral("://")) ? trimmed : QStringLiteral("https://") + trimmed);
    const bool isWeb = url.scheme() == QStringLiteral("http") || url.scheme() == QStringLiteral("https");
    if (!url.isValid() || !isWeb || url.host().isEmpty())
        return std::nullopt;
    return url;
}

std::optional<QUrl> ImportSheetModel::fullWebAddress(const QString& text)
{
    return text.startsWith(QStringLiteral("http")) && text.contains(QStringLiteral("://")) ? webAddress(text)
                                                                                           : std::nullopt;
}

} // namespace ovrin
