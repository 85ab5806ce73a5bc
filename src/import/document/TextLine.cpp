#include "import/document/TextLine.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>

namespace ovrin {

double TextLines::tallest(const QList<TextLine>& lines)
{
    double height = 0;
    for (const TextLine& line : lines) {
        height = std::max(height, line.relativeHeight);
    }
    return height;
}

QList<TextLine> TextLines::fromPlainText(const QString& text)
{
    QList<TextLine> lines;
    bool startsBlock = true;
    for (const QString& raw : text.split(u'\n')) {
        const QString trimmed = raw.trimmed();
        lines.append({trimmed, startsBlock && !trimmed.isEmpty()});
        startsBlock = trimmed.isEmpty();
    }
    return lines;
}

QByteArray TextLines::toJson(const QList<TextLine>& lines)
{
    QJsonArray array;
    for (const TextLine& line : lines) {
        array.append(QJsonObject{{QStringLiteral("text"), line.text},
                                 {QStringLiteral("startsBlock"), line.startsBlock},
                                 {QStringLiteral("relativeHeight"), line.relativeHeight},
                                 {QStringLiteral("page"), line.page}});
    }
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

std::optional<QList<TextLine>> TextLines::fromJson(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray()) {
        return std::nullopt;
    }
    QList<TextLine> lines;
    for (const auto& value : document.array()) {
        const QJsonValue text = value[QStringLiteral("text")];
        if (!text.isString()) {
            return std::nullopt;
        }
        lines.append({text.toString(), value[QStringLiteral("startsBlock")].toBool(),
                      value[QStringLiteral("relativeHeight")].toDouble(1),
                      value[QStringLiteral("page")].toInt()});
    }
    return lines;
}

} // namespace ovrin
