#pragma once

#include <QtCore/QSet>
#include <QtCore/QStringList>

namespace ovrin {

/// The words by which the plain-text parser knows its way around a page, all in lower case. Headings are in
/// English, German, French, Spanish, Italian, Dutch, Portuguese, Polish, Swedish and Danish.
namespace RecipeWords {

const QStringList& ingredientHeadings();
const QStringList& directionHeadings();
/// What follows or stands between and is no part of the recipe: notes, nutrition, equipment, comments.
const QStringList& otherHeadings();

/// Button and label texts of recipe applications and sites.
const QSet<QString>& noise();
/// Words after which a sentence cannot have ended.
const QSet<QString>& connectors();
/// Words that hardly end an ingredient: what they describe is still to come.
const QSet<QString>& modifiers();
/// Words with which a direction begins.
const QSet<QString>& cookingVerbs();
/// Units and vessels that follow an amount.
const QSet<QString>& units();
/// Amounts written as a word.
const QSet<QString>& amountWords();
/// First words of what lists name without an amount, as most kitchens have it ("salt").
const QSet<QString>& pantry();
/// Those that are no other name's end ("salt", but not "rice").
const QSet<QString>& staples();
/// The same of two words, of which neither says so alone ("sunflower oil").
const QSet<QString>& pantryPairs();
/// Last words of the heading of a group of ingredients ("Cheese filling"), which may as well be in an
/// ingredient.
const QSet<QString>& groupNames();
/// First words of the heading of a group of ingredients ("For the sauce").
const QStringList& groupOpenings();

} // namespace RecipeWords

} // namespace ovrin
