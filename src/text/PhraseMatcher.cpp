#include "text/PhraseMatcher.h"

#include "text/Characters.h"
#include "text/WhiteSpace.h"

#include <algorithm>

namespace ovrin {

namespace {

struct FoldedText
{
    explicit FoldedText(QStringView text)
        : folded(text.size(), Qt::Uninitialized)
    {
        QChar* const out = folded.data();
        bool isInRun = false;
        for (qsizetype i = 0; i < text.size();) {
            const auto [c, length] = Characters::at(text, i);
            const bool isWord = Characters::isWordCharacter(c);
            if (isWord && !isInRun)
                runs.push_back({i, i});
            const char32_t lower = isWord ? Characters::folded(c) : c;
            if (length == 1) {
                out[i] = QChar(static_cast<char16_t>(lower));
            } else {
                out[i] = QChar(QChar::highSurrogate(lower));
                out[i + 1] = QChar(QChar::lowSurrogate(lower));
            }
            i += length;
            if (isWord)
                runs.back().end = i;
            isInRun = isWord;
        }
    }

    /// As long as the text, so that offsets stay the same.
    QString folded;
    /// The longest runs of word characters, in order.
    std::vector<PhraseMatcher::Match> runs;
};

bool isWhiteSpace(QStringView gap)
{
    return std::all_of(gap.begin(), gap.end(), [](QChar c) { return WhiteSpace::isWhiteSpace(c.unicode()); });
}

} // namespace

void PhraseMatcher::add(QStringView phrase)
{
    const FoldedText text(phrase);
    int node = 0;
    qsizetype done = 0;
    const auto step = [&](qsizetype end) {
        int& next = m_nodes[{node, text.folded.sliced(done, end - done)}];
        if (next == 0) {
            next = static_cast<int>(m_isPhrase.size());
            m_isPhrase.push_back(false);
        }
        node = next;
        done = end;
    };
    for (const Match& run : text.runs)
        step(run.end);
    if (done < phrase.size())
        step(phrase.size());
    m_isPhrase[static_cast<std::size_t>(node)] = true;
}

std::vector<PhraseMatcher::Match> PhraseMatcher::find(QStringView text) const
{
    std::vector<Match> result;
    if (m_nodes.isEmpty())
        return result;
    const FoldedText paragraph(text);
    const auto& runs = paragraph.runs;
    const auto follow = [&](int node, qsizetype start, qsizetype end) {
        return m_nodes.value({node, QString::fromRawData(paragraph.folded.constData() + start, end - start)});
    };
    const auto followRun = [&](int node, const Match& before, const Match& run) {
        const QStringView gap = QStringView(paragraph.folded).sliced(before.end, run.start - before.end);
        if (gap == u" " || !isWhiteSpace(gap))
            return gap.size() < maximumPhraseLength ? follow(node, before.end, run.end) : 0;
        return m_nodes.value({node, u' ' + paragraph.folded.sliced(run.start, run.end - run.start)});
    };
    const auto isPhrase = [&](int node) { return node != 0 && m_isPhrase[static_cast<std::size_t>(node)]; };

    for (std::size_t first = 0; first < runs.size();) {
        std::size_t next = first + 1;
        std::size_t resume = next;
        qsizetype end = 0;
        int node = follow(0, runs[first].start, runs[first].end);
        for (; node != 0; ++next) {
            const Match& run = runs[next - 1];
            if (isPhrase(node)) {
                end = run.end;
                resume = next;
            }
            if (next == runs.size())
                break;
            // A phrase that ends in an apostrophe or hyphen needs a word behind it to end at a boundary.
            const bool isNear = runs[next].start - run.end < maximumPhraseLength;
            if (isNear && isPhrase(follow(node, run.end, runs[next].start))) {
                end = runs[next].start;
                resume = next;
            }
            node = followRun(node, run, runs[next]);
        }
        if (end > 0)
            result.push_back({runs[first].start, end});
        first = resume;
    }
    return result;
}

} // namespace ovrin
