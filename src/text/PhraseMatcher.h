#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>

#include <utility>
#include <vector>

namespace ovrin {

/// Finds any of a set of phrases in a text in one walk: what a case-insensitive pattern of all phrases as
/// alternatives, longest first, between word boundaries finds, from left to right and without overlap. A
/// space in a phrase stands for any white space. Each walk is as long as the longest phrase at most.
///
/// It relies on phrases starting with a letter and having nothing but letters, marks, apostrophes, hyphens
/// and single spaces in them: then every match starts and ends where a run of word characters does, and a
/// trie whose steps are such runs, with what stands before each, finds the longest phrase.
class PhraseMatcher
{
public:
    /// In UTF-16 units. No mention is that long; without a bound a crafted recipe could make every walk long.
    static constexpr qsizetype maximumPhraseLength = 256;

    struct Match
    {
        qsizetype start;
        qsizetype end;
    };

    void add(QStringView phrase);

    std::vector<Match> find(QStringView text) const;

private:
    using Step = std::pair<int, QString>;

    QHash<Step, int> m_nodes;
    std::vector<bool> m_isPhrase = {false};
};

} // namespace ovrin
