#pragma once

#include "import/document/PageMeasure.h"
#include "import/document/RecipeSections.h"

#include <QtCore/QHash>
#include <QtCore/QSet>

#include <optional>
#include <tuple>

namespace ovrin {

/// A gutter in a part of the page: the lines from `begin` to before `end`, sorted by their tops, lie on
/// either side of it.
struct Band
{
    qsizetype begin = 0;
    qsizetype end = 0;
    /// Rows on the side that has fewer.
    qsizetype weight = 0;
    double left = 0;
    double right = 0;

    double middle() const { return (left + right) / 2; }
    auto rank() const { return std::tuple(weight, end - begin, right - left); }
};

/// Which of a page's lines are headings or facts, read once: the search for bands asks again and again.
class PageHeadings
{
public:
    explicit PageHeadings(const QList<TextLine>& lines);

    HeadingKind of(const TextLine& line) const { return m_kinds.value(line.text, HeadingKind::None); }
    /// Whether the line heads the list or the method.
    bool isPart(const TextLine& line) const
    {
        return of(line) == HeadingKind::Ingredients || of(line) == HeadingKind::Directions;
    }

    /// Whether the line is a fact or the label of one.
    bool isFact(const TextLine& line) const { return m_facts.contains(line.text); }

private:
    QHash<QString, HeadingKind> m_kinds;
    QSet<QString> m_facts;
};

namespace PageBands {

/// The band of two columns, among `lines` sorted by their tops, whose lesser column holds most rows; weight 0
/// where there is none. `gutter` is one that the lines above or below have, so that fewer lines show that
/// these have it too.
Band best(const QList<TextLine>& lines, const PageMeasure& measure, const PageHeadings& headings,
          std::optional<double> gutter);

/// The first line inside the band from which on its columns are about something else: a heading of the
/// recipe that has nothing beside it and both columns going on below it. 0 where there is none.
qsizetype headingAcross(const QList<TextLine>& lines, const Band& band, const PageMeasure& measure,
                        const PageHeadings& headings);

} // namespace PageBands

} // namespace ovrin
