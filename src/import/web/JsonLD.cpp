#include "import/web/JsonLD.h"

#include "text/Duration.h"
#include "text/HTMLText.h"
#include "json/JsonRepair.h"
#include "json/Utf8.h"

#include <algorithm>

namespace ovrin {
namespace JsonLD {
namespace {

// A page is bounded itself; this only says that a script is never larger.
constexpr qsizetype maxScriptBytes = qsizetype(64) * 1024 * 1024;

/// Calls `visit` with each of the value's types: none unless `@type` is a string or an array of nothing but
/// strings.
template<typename Visit>
bool anyType(JsonValue object, Visit visit)
{
    const JsonValue type = object["@type"];
    if (type.isString()) {
        return visit(type.utf8());
    }
    if (!type.isArray()) {
        return false;
    }
    bool found = false;
    for (const JsonValue one : type) {
        if (!one.isString()) {
            return false;
        }
        found = found || visit(one.utf8());
    }
    return found;
}

bool isRecipeType(std::string_view type)
{
    const QLatin1String word("recipe");
    return type.ends_with("/Recipe") ||
           QLatin1String(type.data(), qsizetype(type.size())).compare(word, Qt::CaseInsensitive) == 0;
}

JsonValue firstRecipe(JsonValue container)
{
    for (const JsonValue element : container) {
        if (const JsonValue recipe = findRecipe(element); !recipe.isMissing()) {
            return recipe;
        }
    }
    return {};
}

QStringList splitLines(const QString& text)
{
    return text.split(u'\n', Qt::SkipEmptyParts);
}

RecipeStep stepOf(QStringList paragraphs)
{
    RecipeStep step;
    step.paragraphs = std::move(paragraphs);
    return step;
}

// Steps are appended to one list, so that deep nesting does not copy them from level to level.
void appendSteps(JsonValue value, QList<RecipeStep>& steps);

void appendSection(JsonValue section, QList<RecipeStep>& steps)
{
    const qsizetype first = steps.size();
    appendSteps(section["itemListElement"], steps);
    if (steps.size() > first) {
        if (const auto name = text(section["name"])) {
            steps[first].title = *name;
        }
    }
}

void appendObject(JsonValue object, QList<RecipeStep>& steps)
{
    if (anyType(object, [](std::string_view type) { return type == "HowToSection"; })) {
        appendSection(object, steps);
        return;
    }
    auto words = text(object["text"]);
    if (!words) {
        words = text(object["name"]);
    }
    QStringList paragraphs = splitLines(words.value_or(QString()));
    paragraphs += lines(object["itemListElement"]);
    if (!paragraphs.isEmpty()) {
        steps << stepOf(std::move(paragraphs));
    }
}

void appendSteps(JsonValue value, QList<RecipeStep>& steps)
{
    if (value.isString()) {
        for (const QString& line : splitLines(HTMLText::clean(value.string()))) {
            steps << stepOf({line});
        }
    } else if (value.isArray()) {
        for (const JsonValue element : value) {
            appendSteps(element, steps);
        }
    } else if (value.isObject()) {
        appendObject(value, steps);
    }
}

} // namespace

std::optional<JsonDocument> json(std::string_view body)
{
    QByteArray bytes = repairedUtf8(body);
    if (auto strict = JsonDocument::parse(bytes, maxScriptBytes)) {
        return strict;
    }
    QByteArray oneLine(bytes.constData(), bytes.size());
    std::replace(oneLine.begin(), oneLine.end(), '\n', ' ');
    std::replace(oneLine.begin(), oneLine.end(), '\r', ' ');
    if (auto strict = JsonDocument::parse(oneLine, maxScriptBytes)) {
        return strict;
    }
    return JsonDocument::parse(repairedJson(bytes), maxScriptBytes);
}

JsonValue findRecipe(JsonValue value)
{
    if (value.isArray()) {
        return firstRecipe(value);
    }
    if (!value.isObject()) {
        return {};
    }
    if (anyType(value, isRecipeType)) {
        return value;
    }
    for (const char* key : {"@graph", "mainEntity", "mainEntityOfPage", "itemListElement", "item"}) {
        if (const JsonValue recipe = findRecipe(value[key]); !recipe.isMissing()) {
            return recipe;
        }
    }
    return {};
}

std::optional<QString> text(JsonValue value)
{
    switch (value.kind()) {
    case JsonValue::Kind::String: {
        QString cleaned = HTMLText::clean(value.string());
        return cleaned.isEmpty() ? std::nullopt : std::optional(std::move(cleaned));
    }
    case JsonValue::Kind::Number:
        return value.numberText();
    case JsonValue::Kind::Array:
        for (const JsonValue element : value) {
            if (auto found = text(element)) {
                return found;
            }
        }
        return std::nullopt;
    case JsonValue::Kind::Object:
        for (const char* key : {"name", "text", "@value"}) {
            if (auto found = text(value[key])) {
                return found;
            }
        }
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

QStringList list(JsonValue value)
{
    QStringList result;
    if (!value.isArray()) {
        if (auto only = text(value)) {
            result << *std::move(only);
        }
        return result;
    }
    for (const JsonValue element : value) {
        if (auto found = text(element)) {
            result << *std::move(found);
        }
    }
    return result;
}

QString people(JsonValue value)
{
    return list(value).join(QStringLiteral(", "));
}

QStringList lines(JsonValue value)
{
    QStringList result;
    for (const QString& element : list(value)) {
        result += splitLines(element);
    }
    return result;
}

QList<RecipeStep> steps(JsonValue value)
{
    QList<RecipeStep> result;
    appendSteps(value, result);
    return result;
}

std::optional<QUrl> imageURL(JsonValue value, const QUrl& page)
{
    if (value.isString()) {
        return resolvedAddress(HTMLText::decodeEntities(value.string()), page);
    }
    if (value.isArray()) {
        for (const JsonValue element : value) {
            if (auto found = imageURL(element, page)) {
                return found;
            }
        }
        return std::nullopt;
    }
    auto found = value.isObject() ? imageURL(value["url"], page) : std::nullopt;
    return found || !value.isObject() ? found : imageURL(value["contentUrl"], page);
}

std::optional<qint64> minutes(JsonValue value)
{
    return value.isString() ? Duration::minutes(value.string()) : std::nullopt;
}

} // namespace JsonLD

namespace {

/// A percent sign that starts no escape, as an escape. QUrl would encode every one as soon as one of them is
/// bad.
QString withPercentsEncoded(const QString& address)
{
    const auto isHex = [&](qsizetype at) {
        const char16_t c = at < address.size() ? address[at].unicode() : u'\0';
        return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
    };
    QString encoded;
    for (qsizetype at = 0; at < address.size(); ++at) {
        encoded += address[at];
        if (address[at] == u'%' && !(isHex(at + 1) && isHex(at + 2))) {
            encoded += u"25";
        }
    }
    return encoded;
}

} // namespace

std::optional<QUrl> resolvedAddress(const QString& address, const QUrl& page)
{
    QString written = address.trimmed();
    written.removeIf([](QChar c) { return c == u'\n' || c == u'\r' || c == u'\t'; });
    const QUrl relative(withPercentsEncoded(written), QUrl::TolerantMode);
    if (written.isEmpty() || !relative.isValid()) {
        return std::nullopt;
    }
    const QUrl absolute = page.resolved(relative);
    const bool web = absolute.scheme() == u"http" || absolute.scheme() == u"https";
    if (!absolute.isValid() || absolute.isRelative() || (web && absolute.host().isEmpty())) {
        return std::nullopt;
    }
    return absolute;
}

} // namespace ovrin
