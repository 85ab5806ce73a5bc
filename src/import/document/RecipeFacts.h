#pragma once

#include "model/RecipeDraft.h"

namespace ovrin {

/// Reads what a page says about a recipe besides its ingredients and steps: yield, times, author, source.
class RecipeFacts
{
public:
    /// What is read is written into `draft`, which must outlive this reader.
    explicit RecipeFacts(RecipeDraft& draft)
        : m_draft(draft)
    {
    }

    /// Whether `line` holds such facts (or facts of no interest, such as the difficulty). A label without a
    /// value is remembered for the lines to come: "Prep Time", then "10 mins".
    bool read(const QString& line);

    /// Whether `line` would be read as facts, by itself.
    static bool isFact(const QString& line);

    /// Whether `line` holds several labelled facts ("Prep time: 5 min | Serves: 4"), the last one's value
    /// perhaps on the next line.
    static bool areSeveral(const QString& line);

    /// Whether `line` would be read as how much the recipe makes, and nothing else.
    static bool isYield(const QString& line);
    /// Whether `text` is a time and nothing else ("1 hour 20 minutes", "1-2 hours").
    static bool isDuration(const QString& text);
    /// Whether `text` is a label without a value ("Prep time").
    static bool isBareLabel(const QString& text);

private:
    enum class Kind { Prep, Cook, Total, Yield, Author, Publisher, Ignored };
    struct Label;

    static const QList<Label>& labels();
    bool readSegment(const QString& segment);
    bool readLabelled(const QString& segment);
    bool readBare(const QString& segment);
    bool store(Kind kind, const QString& value, bool afterColon);

    RecipeDraft& m_draft;
    QList<Kind> m_awaited;
};

/// Whole minutes in `text`, in any of the parser's languages ("1 Std. 20 Min.", "une heure" is none); of a
/// range the later end. Nothing when below 1.
std::optional<qint64> durationMinutes(const QString& text);

} // namespace ovrin
