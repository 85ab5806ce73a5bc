#pragma once

#include <QtCore/QHashFunctions>
#include <QtCore/QString>

namespace ovrin {

/// A piece of a direction paragraph. The pieces of a paragraph, in order, are its whole text.
struct DirectionSegment
{
    enum class Kind {
        Plain,
        /// The first mention of an ingredient in the directions.
        Ingredient,
        /// A cooking time.
        Timer,
    };

    Kind kind = Kind::Plain;
    /// Exactly as it stands in the paragraph; never empty.
    QString text;
    /// Position of the ingredient line, from 0; -1 unless the kind is `Ingredient`.
    qsizetype ingredientIndex = -1;
    /// Whole seconds, at least 1; 0 unless the kind is `Timer`.
    qint64 seconds = 0;

    static DirectionSegment plain(QString text) { return {Kind::Plain, std::move(text), -1, 0}; }
    static DirectionSegment ingredient(QString text, qsizetype index)
    {
        return {Kind::Ingredient, std::move(text), index, 0};
    }
    static DirectionSegment timer(QString text, qint64 seconds)
    {
        return {Kind::Timer, std::move(text), -1, seconds};
    }

    bool operator==(const DirectionSegment&) const = default;
};

inline size_t qHash(const DirectionSegment& segment, size_t seed = 0)
{
    return qHashMulti(seed, static_cast<int>(segment.kind), segment.text, segment.ingredientIndex,
                      segment.seconds);
}

} // namespace ovrin
