#pragma once

#include "text/DirectionSegment.h"

#include <QtCore/QLocale>
#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

#include <optional>

/// What the scanners must answer, found with the patterns that they stand for. Slow, and runs away on long
/// inputs.
namespace ovrin::PatternReference {

/// The pattern with "\d", "\s" and "\b" written out as the Unicode classes that are meant: any decimal digit,
/// the property White_Space, and a boundary of words of letters, marks, digits and connecting punctuation.
QRegularExpression compiled(QString pattern, bool isCaseInsensitive);

QString scale(const QString& line, double factor, const QLocale& locale);
qsizetype leadingAmountLength(const QString& line);
std::optional<qint64> minutes(const QString& text);
QString clean(const QString& html);
QString decodeEntities(const QString& text);
/// Nothing when the phrases are too many for one pattern.
std::optional<QList<QList<DirectionSegment>>> segments(const QStringList& ingredients,
                                                       const QStringList& paragraphs);

} // namespace ovrin::PatternReference
