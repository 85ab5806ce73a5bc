#pragma once

#include "import/document/TextLine.h"
#include "model/RecipeDraft.h"

namespace ovrin {

/// Turns lines of text, in reading order, into a recipe by rule, without a language model. Never fails: what
/// it cannot place it leaves out.
namespace RecipeTextParser {

struct Result
{
    RecipeDraft draft;
    /// The pages hold further recipes, of which nothing is in the draft.
    bool hasMoreRecipes = false;
};

Result parseFirst(const QList<TextLine>& lines);

/// The draft of `parseFirst`.
RecipeDraft parse(const QList<TextLine>& lines);

/// The lines joined into paragraphs. An empty line ends one.
QStringList paragraphs(const QList<TextLine>& lines);

/// A clock, a clock with a date, or a battery level: a phone's status bar captured in a screenshot.
bool isStatusBar(const QString& line);

/// Reads a line such as "Serves: 4 to 6" or "Prep time: 15 min, Cook time: 1 hr" into `draft`; whether it was
/// one. An amount below one minute clears its field.
bool metadata(const QString& line, RecipeDraft& draft);

/// The sum of all amounts of hours and minutes in `text` ("1 hour 30 mins" is 90); nothing when below 1.
std::optional<qint64> minutes(const QString& text);

/// Whether `line` begins a paragraph after `previous`, given that one `mayBegin` there at all.
bool startsParagraph(const QString& line, const QString& previous, bool mayBegin);

/// Whether `line`, in lower case, is one of the heading `words`, perhaps with a short addition that does not
/// begin with an amount.
bool isHeading(const QString& line, const QStringList& words);

} // namespace RecipeTextParser

} // namespace ovrin
