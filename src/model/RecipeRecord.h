#pragma once

#include "model/Instant.h"

#include <QtCore/QByteArray>
#include <QtCore/QFlags>
#include <QtCore/QStringList>
#include <QtCore/QUuid>

#include <array>
#include <optional>

namespace ovrin {

/// The stored attributes in schema order, one bit each: what changed, what to write.
enum class RecipeAttribute : quint32 {
    Id = 1U << 0,
    Title = 1U << 1,
    Author = 1U << 2,
    Publisher = 1U << 3,
    Summary = 1U << 4,
    SourceURL = 1U << 5,
    ImageData = 1U << 6,
    TintHex = 1U << 7,
    Yield = 1U << 8,
    PrepMinutes = 1U << 9,
    CookMinutes = 1U << 10,
    TotalMinutes = 1U << 11,
    Ingredients = 1U << 12,
    StepsData = 1U << 13,
    Notes = 1U << 14,
    IsSaved = 1U << 15,
    Scale = 1U << 16,
    CreatedAt = 1U << 17,
    LastCookedAt = 1U << 18,
    TimesCooked = 1U << 19,
};
Q_DECLARE_FLAGS(RecipeAttributes, RecipeAttribute)
Q_DECLARE_OPERATORS_FOR_FLAGS(RecipeAttributes)

inline constexpr RecipeAttributes allRecipeAttributes{QFlag(0xfffff)};

/// The attributes' names in schema order; the bit of the n-th is 1 << n.
inline constexpr std::array<const char*, 20> recipeAttributeNames{
    "id",      "title",   "author",      "publisher",   "summary",      "sourceURL",   "imageData",
    "tintHex", "yield",   "prepMinutes", "cookMinutes", "totalMinutes", "ingredients", "stepsData",
    "notes",   "isSaved", "scale",       "createdAt",   "lastCookedAt", "timesCooked"};

/// One recipe's twenty attributes as a plain value: what travels between the objects and the database.
struct RecipeRecord
{
    QUuid id;
    QString title;
    QString author;
    QString publisher;
    QString summary;
    /// Fully encoded; two addresses are equal when these are.
    std::optional<QString> sourceURL;
    /// JPEG.
    std::optional<QByteArray> imageData;
    /// Six hexadecimal digits, RRGGBB.
    std::optional<QString> tintHex;
    QString yield;
    std::optional<qint64> prepMinutes;
    std::optional<qint64> cookMinutes;
    std::optional<qint64> totalMinutes;
    QStringList ingredients;
    /// JSON array of steps, see StepsCoding.h; empty for none.
    QByteArray stepsData;
    QString notes;
    bool isSaved = false;
    double scale = 1;
    Instant createdAt;
    std::optional<Instant> lastCookedAt;
    qint64 timesCooked = 0;

    bool operator==(const RecipeRecord&) const = default;
};

} // namespace ovrin
