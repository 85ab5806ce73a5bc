#pragma once

#include "import/document/TextLine.h"

#include <vector>

namespace ovrin {

/// Lines `begin` to before `end`.
struct LineRange
{
    qsizetype begin = 0;
    qsizetype end = 0;

    qsizetype size() const { return end - begin; }
    bool isEmpty() const { return end <= begin; }
};

/// Finds lists of ingredients, and their ends, among lines by what these look like.
class IngredientSearch
{
public:
    /// `lines` must outlive this.
    explicit IngredientSearch(const QList<TextLine>& lines);

    /// A list without headings: by its amounts, or as the short lines right above a numbered method, or above
    /// running text.
    LineRange list() const;
    /// The list in lines that all stand above the heading of the method.
    LineRange listAboveMethod() const;
    /// Whether some stretch of the lines from `begin` on is like a list by its amounts.
    bool hasList(qsizetype begin) const { return !run(begin).isEmpty(); }

    /// Whether directions from line `begin` on are counted up in front.
    bool hasNumberedSteps(qsizetype begin = 0) const;
    /// Whether any line is like a direction.
    bool hasSteps() const;
    /// Where, in a list that begins at `begin` and that no heading ends, the directions begin.
    qsizetype directionsBegin(qsizetype begin) const;
    /// Where the method begins that stands in front of `list` and not behind it; `list.begin` when it does
    /// not.
    qsizetype methodAbove(LineRange list) const;
    /// Where a list under a heading is followed by running text of the page: a spanning introduction that
    /// stands higher than the list's end, but is read after its column.
    qsizetype listEnd() const;
    /// The first line from `begin` on of a further recipe without headings: in large type, or set off as the
    /// first line is where a method has ended, and soon after it a list of ingredients.
    qsizetype furtherRecipe(qsizetype begin) const;

private:
    void markNumberedSteps();
    bool isSetOff(qsizetype i) const;
    bool isTwinOfFirst(qsizetype i) const;
    bool isCertain(qsizetype i) const;
    bool isStep(qsizetype i) const { return m_isStep[static_cast<std::size_t>(i)]; }
    double likeness(qsizetype i) const { return m_likeness[static_cast<std::size_t>(i)]; }
    bool mayBeListed(qsizetype i) const;
    bool continuesText(qsizetype i) const;
    qsizetype blockEnd(qsizetype begin) const;
    LineRange run(qsizetype begin) const;
    LineRange widened(LineRange run, bool acrossBlocks) const;
    LineRange withoutIntroduction(LineRange run) const;
    LineRange shortLinedBlock() const;
    LineRange shortLinedColumn() const;
    LineRange shortLinesAboveSteps() const;
    LineRange blockAbove(qsizetype end) const;
    LineRange withoutHead(LineRange block) const;
    LineRange withColumnsBeside(LineRange block) const;
    qsizetype firstNumberedStep(qsizetype begin) const;
    qsizetype behindBullets(qsizetype begin) const;
    qsizetype behindShortLines(qsizetype begin) const;
    qsizetype methodBlock(qsizetype begin) const;

    const QList<TextLine>& m_lines;
    std::vector<double> m_likeness;
    std::vector<bool> m_isStep;
    std::vector<bool> m_isNumbered;
    /// The line with the number 1 of a numbered method; behind the lines where there is none.
    qsizetype m_firstNumber = 0;
};

/// Whether the line stands out as a title does, in larger type than the text around it.
bool isLargeType(const TextLine& line);

/// Whether line `i`, not the first, stands elsewhere than right below the line before. Without places that
/// cannot be told.
bool mayHaveJumped(const QList<TextLine>& lines, qsizetype i);

/// Whether the line may be a recipe's name by its words, whatever its type.
bool looksLikeTitle(const TextLine& line);

} // namespace ovrin
