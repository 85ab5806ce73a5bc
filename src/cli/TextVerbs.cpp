#include "cli/TextVerbs.h"

#include "cli/DraftFile.h"
#include "cli/Sources.h"
#include "text/DirectionTokenizer.h"
#include "text/Duration.h"
#include "text/HTMLText.h"
#include "text/IngredientScaler.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <charconv>
#include <cmath>

namespace ovrin::cli {

namespace {

/// The shortest decimal text that reads back as the same number: "1.5", "3", "0.3333333333333333".
QString decimal(double value)
{
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, value).ptr;
    return QString::fromLatin1(text, end - text);
}

int scale(const Arguments& arguments, const Console& console)
{
    bool isNumber = false;
    const double factor = arguments.required(0, QStringLiteral("FACTOR")).toDouble(&isNumber);
    if (!isNumber || !std::isfinite(factor))
        throw UsageError(QStringLiteral("“%1” is no number.").arg(arguments.positional.first()));
    console.eachLine(
        [&](const QString& line) { console.print(IngredientScaler::scale(line, factor, console.locale)); });
    return Done;
}

int value(const Arguments&, const Console& console)
{
    console.eachLine([&](const QString& line) {
        const std::optional<double> read = IngredientScaler::value(line);
        console.print(read ? decimal(*read) : QString());
    });
    return Done;
}

int minutes(const Arguments&, const Console& console)
{
    console.eachLine([&](const QString& line) {
        const std::optional<qint64> read = Duration::minutes(line);
        console.print(read ? QString::number(*read) : QString());
    });
    return Done;
}

int clean(const Arguments&, const Console& console)
{
    const QString markup = QString::fromUtf8(readFile(QStringLiteral("-"), console, 64 << 20));
    const QString text = HTMLText::clean(markup);
    if (!text.isEmpty())
        console.print(text);
    return Done;
}

QJsonObject toJson(const DirectionSegment& segment)
{
    QJsonObject object;
    object.insert(QStringLiteral("text"), segment.text);
    switch (segment.kind) {
    case DirectionSegment::Kind::Plain:
        object.insert(QStringLiteral("kind"), QStringLiteral("plain"));
        break;
    case DirectionSegment::Kind::Ingredient:
        object.insert(QStringLiteral("kind"), QStringLiteral("ingredient"));
        object.insert(QStringLiteral("ingredientIndex"), segment.ingredientIndex);
        break;
    case DirectionSegment::Kind::Timer:
        object.insert(QStringLiteral("kind"), QStringLiteral("timer"));
        object.insert(QStringLiteral("seconds"), segment.seconds);
        break;
    }
    return object;
}

/// Plain lines, or the JSON that `lines` prints.
int parse(const Arguments&, const Console& console)
{
    console.print(draftOfText(readFile(QStringLiteral("-"), console, 64 << 20)).toJson());
    return Done;
}

int segments(const Arguments& arguments, const Console& console)
{
    const RecipeDraft draft = readDraft(arguments.required(0, QStringLiteral("DRAFT.json")), console);
    QStringList paragraphs;
    for (const RecipeStep& step : draft.steps)
        paragraphs << step.paragraphs;
    QJsonArray lists;
    for (const auto& paragraph : DirectionTokenizer(draft.ingredients).segments(paragraphs)) {
        QJsonArray list;
        for (const DirectionSegment& segment : paragraph)
            list << toJson(segment);
        lists << list;
    }
    console.print(QJsonDocument(lists).toJson(QJsonDocument::Compact));
    return Done;
}

} // namespace

QList<Verb> textVerbs()
{
    return {
        {QStringLiteral("scale"),
         QStringLiteral("scale FACTOR"),
         QStringLiteral("Scales each ingredient line of standard input."),
         {},
         1,
         scale},
        {QStringLiteral("value"),
         QStringLiteral("value"),
         QStringLiteral("Reads each line of standard input as a quantity: its number, or an empty line."),
         {},
         0,
         value},
        {QStringLiteral("parse"),
         QStringLiteral("parse"),
         QStringLiteral("Lays the lines of standard input out as a recipe by rule and prints the draft.\n"
                        "Reads plain text, or the JSON that “lines” prints."),
         {},
         0,
         parse},
        {QStringLiteral("segments"),
         QStringLiteral("segments DRAFT.json"),
         QStringLiteral("Cuts the draft's directions into plain text, ingredient mentions and timers,\n"
                        "one list a paragraph, as JSON. “-” is standard input."),
         {},
         1,
         segments},
        {QStringLiteral("clean"),
         QStringLiteral("clean"),
         QStringLiteral("Turns the markup on standard input into plain text."),
         {},
         0,
         clean},
        {QStringLiteral("minutes"),
         QStringLiteral("minutes"),
         QStringLiteral("Reads each line of standard input as an ISO-8601 duration: whole minutes,\n"
                        "or an empty line."),
         {},
         0,
         minutes},
    };
}

} // namespace ovrin::cli
