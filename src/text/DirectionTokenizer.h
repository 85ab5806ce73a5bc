#pragma once

#include "text/DirectionSegment.h"
#include "text/PhraseMatcher.h"

#include <QtCore/QHash>
#include <QtCore/QStringList>

#include <vector>

namespace ovrin {

/// Cuts direction paragraphs into plain text, mentions of ingredients and cooking times. Built once for a
/// recipe's ingredient lines; immutable, may be used from any thread.
class DirectionTokenizer
{
public:
    /// Phrases of more than `PhraseMatcher::maximumPhraseLength` units are not looked for, and ingredient
    /// lines that amount to more than about two million units of phrases (a recipe has some thousands) are
    /// read up to there.
    explicit DirectionTokenizer(const QStringList& ingredients);

    /// One list of segments a paragraph, in order. Each ingredient is marked at its first mention only; that
    /// is counted over all paragraphs of the call. An empty paragraph has no segments.
    QList<QList<DirectionSegment>> segments(const QStringList& paragraphs) const;

private:
    QList<DirectionSegment> segments(const QString& paragraph, std::vector<bool>& mentioned) const;

    qsizetype m_ingredientCount;
    /// The line a phrase belongs to: the first that yields it.
    QHash<QString, qsizetype> m_ingredientIndex;
    PhraseMatcher m_matcher;
};

} // namespace ovrin
