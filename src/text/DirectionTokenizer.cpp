#include "text/DirectionTokenizer.h"

#include "text/Characters.h"
#include "text/IngredientPhrases.h"
#include "text/TimerScanner.h"
#include "text/WhiteSpace.h"

namespace ovrin {

namespace {

/// What all phrases together may take, in UTF-16 units: a line of n words has about n² phrases, and lines
/// come from pages that nobody has checked.
constexpr qsizetype maximumPhraseText = 1 << 21;

/// A mention in the form in which phrases are kept: in lower case, with single spaces.
QString phraseOf(QStringView mention)
{
    QString phrase;
    phrase.reserve(mention.size());
    bool isAfterSpace = false;
    for (const QChar c : mention) {
        const bool isSpace = WhiteSpace::isWhiteSpace(c.unicode());
        if (!isSpace)
            phrase.append(c);
        else if (!isAfterSpace)
            phrase.append(u' ');
        isAfterSpace = isSpace;
    }
    return std::move(phrase).toLower();
}

bool touchesHyphen(QStringView paragraph, const PhraseMatcher::Match& match)
{
    return (match.start > 0 && paragraph[match.start - 1] == u'-') ||
           (match.end < paragraph.size() && paragraph[match.end] == u'-');
}

} // namespace

DirectionTokenizer::DirectionTokenizer(const QStringList& ingredients)
    : m_ingredientCount(ingredients.size())
{
    qsizetype room = maximumPhraseText;
    for (qsizetype i = 0; i < ingredients.size(); ++i) {
        IngredientPhrases::visit(ingredients.at(i), [&](const QString& phrase) {
            room -= phrase.size();
            if (room < 0)
                return false;
            if (!m_ingredientIndex.contains(phrase)) {
                m_ingredientIndex.insert(phrase, i);
                m_matcher.add(phrase);
            }
            return true;
        });
    }
}

QList<QList<DirectionSegment>> DirectionTokenizer::segments(const QStringList& paragraphs) const
{
    std::vector<bool> mentioned(static_cast<std::size_t>(m_ingredientCount));
    QList<QList<DirectionSegment>> result;
    result.reserve(paragraphs.size());
    for (const QString& paragraph : paragraphs)
        result.append(segments(paragraph, mentioned));
    return result;
}

QList<DirectionSegment> DirectionTokenizer::segments(const QString& paragraph,
                                                     std::vector<bool>& mentioned) const
{
    const std::vector<TimerScanner::Timer> timers = TimerScanner::find(paragraph);
    const std::vector<PhraseMatcher::Match> mentions = m_matcher.find(paragraph);

    QList<DirectionSegment> result;
    qsizetype written = 0;
    const auto take = [&](qsizetype start, qsizetype end) {
        if (start > written)
            result.append(DirectionSegment::plain(paragraph.sliced(written, start - written)));
        written = end;
        return paragraph.sliced(start, end - start);
    };

    // Both lists are in order and neither overlaps itself: one walk over the mentions takes the timers along.
    auto timer = timers.begin();
    const auto takeTimersBefore = [&](qsizetype position) {
        for (; timer != timers.end() && timer->start < position; ++timer)
            result.append(DirectionSegment::timer(take(timer->start, timer->end), timer->seconds));
    };
    for (const PhraseMatcher::Match& mention : mentions) {
        if (touchesHyphen(paragraph, mention))
            continue;
        const QStringView text = QStringView(paragraph).sliced(mention.start, mention.end - mention.start);
        const auto line = m_ingredientIndex.constFind(phraseOf(text));
        if (line == m_ingredientIndex.constEnd())
            continue;
        takeTimersBefore(mention.end);
        const bool overlapsTimer = written > mention.start;
        const auto index = static_cast<std::size_t>(*line);
        if (overlapsTimer || mentioned[index])
            continue;
        mentioned[index] = true;
        result.append(DirectionSegment::ingredient(take(mention.start, mention.end), *line));
    }
    takeTimersBefore(paragraph.size());
    if (written < paragraph.size())
        result.append(DirectionSegment::plain(paragraph.sliced(written)));
    return result;
}

} // namespace ovrin
