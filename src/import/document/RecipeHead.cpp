#include "import/document/RecipeHead.h"

#include "import/document/IngredientSearch.h"
#include "import/document/LineShape.h"
#include "import/document/RecipeFacts.h"
#include "import/document/RecipeItems.h"
#include "import/document/RecipeTextParser.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

#include <algorithm>
#include <cmath>

namespace ovrin {

namespace {

constexpr double titleType = 1.15;
constexpr qsizetype longestTitle = 110;
constexpr qsizetype leastSummary = 40;
/// Lines of running text that make what stands above a card a text of its own.
constexpr qsizetype leastProse = 4;

QSet<QString> longWords(const QString& text)
{
    QSet<QString> words;
    for (const QString& raw : text.toLower().split(u' ', Qt::SkipEmptyParts)) {
        const QString word = LineShape::lettersOf(raw);
        if (word.size() > 3) {
            words.insert(word.first(4));
        }
    }
    return words;
}

/// The share of a title's words that the recipe itself speaks of.
double shareSpokenOf(const QString& title, const QSet<QString>& spoken)
{
    const QSet<QString> words = longWords(title);
    if (words.isEmpty()) {
        return 0;
    }
    const auto known =
        std::count_if(words.begin(), words.end(), [&](const QString& w) { return spoken.contains(w); });
    return static_cast<double>(known) / static_cast<double>(words.size());
}

class Head
{
public:
    Head(const RecipeOutline& parts, const QStringList& siteNames, RecipeDraft& draft)
        : m_draft(draft)
        , m_siteNames(siteNames)
    {
        for (const QList<TextLine>& list : {parts.ingredients, parts.directions}) {
            for (const TextLine& line : list) {
                m_spoken.unite(longWords(line.text));
            }
        }
        RecipeFacts facts(draft);
        for (const TextLine& line : parts.head) {
            const QString author = draft.author;
            if (isLargeType(line) || !facts.read(line.text)) {
                takeUnlessPublisher(line);
            } else if (m_aboveByline < 0 && draft.author != author) {
                m_aboveByline = m_lines.size() - 1;
            }
        }
    }

    void read()
    {
        const Title best = bestTitle();
        m_draft.title = withoutLabel(withoutSectionNumber(best.text));
        m_draft.summary = summary(m_lines.sliced(best.end));
    }

private:
    void takeUnlessPublisher(const TextLine& line)
    {
        if (m_siteNames.contains(LineShape::lettersOf(line.text))) {
            if (m_draft.publisher.isEmpty()) {
                m_draft.publisher = line.text;
            }
            return;
        }
        m_lines.append(line);
    }

    bool mayBeTitle(const TextLine& line) const
    {
        return line.text.size() <= longestTitle && !LineShape::hasBullet(line.text) &&
               !(LineShape::endsSentence(line.text) && LineShape::isProse(line.text));
    }

    /// A run of lines that may be one title.
    struct Title
    {
        QString text;
        qsizetype end = 0;
    };

    /// "1 Desserts", the chapter that "1.1 Apple cake" stands in.
    static bool isChapter(const QString& text)
    {
        static const QRegularExpression chapter(QStringLiteral("^\\d{1,2}\\s+\\p{Lu}"),
                                                QRegularExpression::UseUnicodePropertiesOption);
        return chapter.match(text).hasMatch();
    }

    static const QRegularExpression& sectionNumber()
    {
        static const QRegularExpression number(QStringLiteral("^\\d{1,2}\\.\\d{1,2}\\.?\\s+(?=\\p{Lu})"),
                                               QRegularExpression::UseUnicodePropertiesOption);
        return number;
    }

    static QString withoutSectionNumber(QString text) { return text.remove(sectionNumber()); }

    /// "Recipe: Apple cake", as a preprinted card has it.
    static QString withoutLabel(QString text)
    {
        static const QRegularExpression label(
            QStringLiteral(
                "^(?:recipe(?: for| name| title)?|dish|title|rezept(?: für)?|gericht|recette(?: de)?|"
                "receta(?: de)?|ricetta|recept(?: voor| på)?|receita(?: de)?|przepis(?: na)?|"
                "opskrift(?: på)?)\\s*:\\s*(?=\\S)"),
            QRegularExpression::CaseInsensitiveOption);
        return text.remove(label);
    }

    /// The last line that has a subsection's number; -1 where there is none.
    qsizetype numberedSubsection() const
    {
        for (qsizetype i = m_lines.size() - 1; i >= 0; --i) {
            if (sectionNumber().match(m_lines[i].text).hasMatch()) {
                return i;
            }
        }
        return -1;
    }

    /// Large type counts most, then that the recipe speaks of what the title names; of equals the first.
    Title bestTitle() const
    {
        const qsizetype subsection = numberedSubsection();
        const int page = lastPageWithTitle();
        Title best;
        double bestScore = 0;
        qsizetype rank = 0;
        qsizetype proseAbove = 0;
        for (qsizetype i = 0; i < m_lines.size();) {
            const TextLine& line = m_lines[i];
            proseAbove += line.text.size() >= leastSummary && line.relativeHeight < titleType ? 1 : 0;
            if (line.page != page || !mayBeTitle(line)) {
                ++i;
                continue;
            }
            Title title{line.text, i + 1};
            while (title.end < m_lines.size() && continuesTitle(title.end)) {
                title.text = RecipeItems::joined(title.text, m_lines[title.end++].text);
            }
            const bool isLarge = line.relativeHeight >= titleType;
            if (!isLarge && LineShape::isProse(line.text)) {
                ++i;
                continue;
            }
            const double large = isLarge ? line.relativeHeight * 2 : 1;
            // The name on a recipe's card, below the text that it was written for.
            const double card =
                isLarge && i > 0 && proseAbove >= leastProse && !hasLargeType(title.end) ? 1.6 : 1;
            const double masthead = isLarge && isMasthead(i) ? 0.4 : 1;
            const double twice = isLarge && standsTwice(title, i) ? 1.5 : 1;
            const double signedBelow = m_aboveByline == title.end - 1 ? 1.5 : 1;
            const double chapter = subsection > i && isChapter(title.text) ? 0.4 : 1;
            const double score = twice * signedBelow * masthead * chapter * card * large *
                                     (1 + 1.2 * shareSpokenOf(title.text, m_spoken)) -
                                 0.12 * static_cast<double>(std::min<qsizetype>(rank++, 8));
            i = title.end;
            if (score > bestScore) {
                best = title;
                bestScore = score;
            }
        }
        return best;
    }

    /// Above a text and again on the recipe's card, or in small type at the page's head.
    bool standsTwice(const Title& title, qsizetype begin) const
    {
        const auto isSame = [&](const TextLine& line) {
            return line.text.compare(title.text, Qt::CaseInsensitive) == 0;
        };
        return std::any_of(m_lines.begin(), m_lines.begin() + begin, isSame) ||
               std::any_of(m_lines.begin() + title.end, m_lines.end(), isSame);
    }

    /// Whether a small line, as a browser's at the page's head, has the same words: then they are a title
    /// whole.
    bool isNamedInSmallType(const TextLine& line) const
    {
        return std::any_of(m_lines.begin(), m_lines.end(), [&](const TextLine& other) {
            return other.relativeHeight < titleType && line.relativeHeight >= titleType &&
                   other.text.compare(line.text, Qt::CaseInsensitive) == 0;
        });
    }

    /// A paper's name, above its date or number and the title of what stands in it.
    bool isMasthead(qsizetype i) const
    {
        static const QRegularExpression dateline(
            QStringLiteral(
                "\\b(?:(?:no|nr|number|issue|vol|volume|nummer|ausgabe|heft|numéro|número|numero|numer)"
                "\\.?\\s*\\d|(?:19|20)\\d\\d\\b)"),
            QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
        return i + 1 < m_lines.size() && m_lines[i + 1].relativeHeight < titleType &&
               dateline.match(m_lines[i + 1].text).hasMatch() && hasLargeType(i + 2);
    }

    bool hasLargeType(qsizetype begin) const
    {
        return std::any_of(m_lines.begin() + begin, m_lines.end(),
                           [](const TextLine& line) { return line.relativeHeight >= titleType; });
    }

    /// A cover and a preface may come before the page that the recipe begins on.
    int lastPageWithTitle() const
    {
        int page = -1;
        for (const TextLine& line : m_lines) {
            if (mayBeTitle(line) && (page < 0 || line.relativeHeight >= titleType)) {
                page = line.page;
            }
        }
        return page;
    }

    bool continuesTitle(qsizetype i) const
    {
        const TextLine& line = m_lines[i];
        const TextLine& previous = m_lines[i - 1];
        if (line.page != previous.page || !mayBeTitle(line) || isNamedInSmallType(line)) {
            return false;
        }
        const bool sameType =
            std::abs(line.relativeHeight - previous.relativeHeight) < 0.07 * previous.relativeHeight;
        if (previous.relativeHeight >= titleType) {
            // Lines of large type are set as far apart as blocks of small type.
            const double gap = line.place.top() - previous.place.bottom();
            const bool isTight = !line.place.isNull() && gap > 0 && gap < 0.5 * line.place.height();
            return sameType && (!line.startsBlock || isTight);
        }
        return sameType && !line.startsBlock &&
               !RecipeTextParser::startsParagraph(line.text, previous.text, true);
    }

    /// The first paragraph of running text below the title.
    static QString summary(const QList<TextLine>& lines)
    {
        const double width = RecipeItems::fullWidth(lines);
        QString paragraph;
        QString previous;
        for (const TextLine& line : lines) {
            const bool begins = paragraph.isEmpty() ||
                                RecipeTextParser::startsParagraph(
                                    line.text, previous,
                                    line.startsBlock || RecipeItems::hadRoomFor(line.text, previous, width));
            if (begins && isSummary(paragraph)) {
                return paragraph;
            }
            paragraph = begins ? line.text : RecipeItems::joined(paragraph, line.text);
            previous = line.text;
        }
        return isSummary(paragraph) ? paragraph : QString();
    }

    static bool isSummary(const QString& text)
    {
        return text.size() >= leastSummary && LineShape::isProse(text);
    }

    RecipeDraft& m_draft;
    const QStringList& m_siteNames;
    QSet<QString> m_spoken;
    QList<TextLine> m_lines;
    /// The line that the author's name stands below; -1 where there is none.
    qsizetype m_aboveByline = -1;
};

} // namespace

void readHead(const RecipeOutline& parts, const QStringList& siteNames, RecipeDraft& draft)
{
    Head(parts, siteNames, draft).read();
}

} // namespace ovrin
