#include "import/document/GeneratedRecipe.h"

#include "json/JsonDocument.h"

#include <QtCore/QJsonArray>
#include <QtCore/QRegularExpression>

#include <algorithm>

namespace ovrin {

namespace {

/// More than any recipe takes; a model that talks on and on is not listened to.
constexpr qsizetype largestAnswer = 1024LL * 1024;

QJsonObject described(const char16_t* type, const char16_t* description)
{
    return {{QStringLiteral("type"), QString::fromUtf16(type)},
            {QStringLiteral("description"), QString::fromUtf16(description)}};
}

QJsonObject listOf(const QJsonObject& items, const char16_t* description)
{
    QJsonObject list = described(u"array", description);
    list[QStringLiteral("items")] = items;
    return list;
}

QJsonObject object(const QJsonObject& properties, const QStringList& order)
{
    return {{QStringLiteral("type"), QStringLiteral("object")},
            {QStringLiteral("properties"), properties},
            {QStringLiteral("required"), QJsonArray::fromStringList(order)},
            {QStringLiteral("additionalProperties"), false}};
}

bool readText(JsonValue value, QString& text)
{
    text = value.string();
    return value.isString();
}

bool readList(JsonValue value, QStringList& list)
{
    for (const JsonValue& element : value) {
        if (!element.isString()) {
            return false;
        }
        list.append(element.string());
    }
    return value.isArray();
}

/// Letters, marks and digits in lower case.
QString normalised(const QString& text)
{
    QString letters;
    for (const QChar c : text.toLower()) {
        if (c.isLetterOrNumber() || c.isMark() || c.isSurrogate()) {
            letters += c;
        }
    }
    return letters;
}

QString withoutNumber(const QString& paragraph)
{
    static const QRegularExpression number(QStringLiteral("^\\s*(?:step\\s*)?\\d{1,2}[.):]\\s*"),
                                           QRegularExpression::CaseInsensitiveOption |
                                               QRegularExpression::UseUnicodePropertiesOption);
    return QString(paragraph).remove(number).trimmed();
}

} // namespace

QJsonObject GeneratedRecipe::schema()
{
    const QJsonObject text{{QStringLiteral("type"), QStringLiteral("string")}};
    const QJsonObject step =
        object({{QStringLiteral("paragraphs"),
                 listOf(text, u"The step's text, copied exactly, split into its paragraphs.")}},
               {QStringLiteral("paragraphs")});
    return object(
        {
            {QStringLiteral("title"), described(u"string", u"The recipe's name.")},
            {QStringLiteral("source"),
             described(u"string", u"Publication, website or cookbook the recipe is from, or empty.")},
            {QStringLiteral("author"), described(u"string", u"Author's name, or empty.")},
            {QStringLiteral("summary"),
             described(u"string", u"Short description or headnote copied from the text, or empty.")},
            {QStringLiteral("yield"),
             described(u"string", u"Yield or servings, e.g. \"4 servings\", or empty.")},
            {QStringLiteral("totalMinutes"),
             described(u"integer", u"Total time in minutes, or 0 if not stated.")},
            {QStringLiteral("ingredients"),
             listOf(text,
                    u"Every ingredient line copied exactly as written, including its amount and unit.")},
            {QStringLiteral("steps"), listOf(step, u"The numbered steps of the method, in order.")},
        },
        {QStringLiteral("title"), QStringLiteral("source"), QStringLiteral("author"),
         QStringLiteral("summary"), QStringLiteral("yield"), QStringLiteral("totalMinutes"),
         QStringLiteral("ingredients"), QStringLiteral("steps")});
}

std::optional<GeneratedRecipe> GeneratedRecipe::fromJson(const QByteArray& json)
{
    const auto document = JsonDocument::parse(json, largestAnswer);
    if (!document) {
        return std::nullopt;
    }
    const JsonValue root = document->root();
    GeneratedRecipe recipe;
    const std::optional<qint64> minutes = root["totalMinutes"].integer();
    bool fits = readText(root["title"], recipe.title) && readText(root["source"], recipe.source) &&
                readText(root["author"], recipe.author) && readText(root["summary"], recipe.summary) &&
                readText(root["yield"], recipe.yield) && minutes &&
                readList(root["ingredients"], recipe.ingredients) && root["steps"].isArray();
    recipe.totalMinutes = minutes.value_or(0);
    for (const JsonValue& step : root["steps"]) {
        recipe.steps.append(GeneratedStep());
        fits = fits && readList(step["paragraphs"], recipe.steps.last().paragraphs);
    }
    return fits ? std::optional(recipe) : std::nullopt;
}

std::optional<RecipeDraft> GeneratedRecipe::checkedAgainst(const QList<TextLine>& lines) const
{
    QStringList sources;
    for (const TextLine& line : lines) {
        sources.append(normalised(line.text));
    }
    RecipeDraft draft;
    for (const QString& generated : ingredients) {
        const QString ingredient = normalised(generated);
        const bool stated =
            !ingredient.isEmpty() && std::any_of(sources.begin(), sources.end(), [&](const QString& line) {
                return line.size() < 2 * ingredient.size() + 8 && line.contains(ingredient);
            });
        if (stated) {
            draft.ingredients.append(generated.trimmed());
        }
    }
    if (draft.ingredients.isEmpty() && steps.isEmpty()) {
        return std::nullopt;
    }
    for (const GeneratedStep& generated : steps) {
        RecipeStep step;
        for (const QString& paragraph : generated.paragraphs) {
            const QString text = withoutNumber(paragraph);
            if (!text.isEmpty()) {
                step.paragraphs.append(text);
            }
        }
        if (!step.paragraphs.isEmpty()) {
            draft.steps.append(step);
        }
    }
    draft.title = title;
    draft.author = author;
    draft.publisher = source;
    draft.summary = summary;
    draft.yield = yield;
    if (totalMinutes > 0) {
        draft.totalMinutes = totalMinutes;
    }
    return draft;
}

} // namespace ovrin
