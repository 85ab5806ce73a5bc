#pragma once

#include <QtCore/QString>

#include <optional>

namespace ovrin {

/// What one line of a page looks like, by itself: the plain-text parser's eyes.
namespace LineShape {

struct Numbered
{
    int number = 0;
    /// What follows the number; may be empty.
    QString rest;
};

/// "2. Stir", "2) Stir", "Step 2: Stir", "Schritt 2", and a bare number alone or before a capital ("2 Stir").
std::optional<Numbered> numbered(const QString& text);

/// A number in front, whatever follows ("9 add the rest"): what `numbered` leaves out because it is more
/// often an amount, but is none where it is the next one of a count.
std::optional<Numbered> counted(const QString& text);

/// Whether the number stands bare, so that it may as well be an amount ("2 Eggs").
bool isBareNumber(const QString& text);

bool hasBullet(const QString& text);
QString withoutBullet(const QString& text);

/// A digit or a fraction first, perhaps behind a bullet.
bool startsWithAmount(const QString& text);

/// An entry of a list by its first sign.
bool hasAmountOrBullet(const QString& text);

/// The first word is an amount ("pinch of salt", "juice of 1 lemon").
bool startsWithAmountWord(const QString& text);

/// Digits and nothing else.
bool isCount(const QString& text);

/// An amount and its unit first: "200 g flour".
bool startsWithMeasure(const QString& text);

/// An amount with nothing that it is an amount of: "200 g", "1½", "2 cups".
bool isBareAmount(const QString& text);

/// Above 1 the line is most likely an ingredient, below 0 most likely none.
double ingredientLikeness(const QString& text);

/// Running text: a sentence or the beginning of one, rather than a list entry or a heading.
bool isProse(const QString& text);

/// A direction, by its first word or because it is prose.
bool looksLikeStep(const QString& text);

/// The first word is one that directions begin with.
bool startsWithVerb(const QString& text);

/// Ends in a full stop, question mark or the like, closing brackets and quotes aside.
bool endsSentence(const QString& text);

/// Letters, all of them capitals.
bool isAllCapitals(const QString& text);

/// The letters and digits alone, in lower case: names that are written alike are equal.
QString lettersOf(const QString& text);

/// Width that the text takes in a proportional font, in units of an average letter. Only good for comparing
/// lines of one column.
double estimatedWidth(const QString& text);

} // namespace LineShape

} // namespace ovrin
