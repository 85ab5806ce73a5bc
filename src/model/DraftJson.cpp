#include "model/RecipeDraft.h"

#include "model/StepsCoding.h"
#include "json/JsonDocument.h"
#include "json/JsonWriter.h"

#include <algorithm>

namespace ovrin {

namespace {

/// Room for the largest photo that is read from anywhere, in base64, and its recipe.
constexpr qsizetype maxDraftBytes = 134'217'728;

/// Standard base64 (RFC 4648, section 4) with its padding; Qt's reader alone takes it without as well.
std::optional<QByteArray> fromBase64(std::string_view text)
{
    const std::size_t padding = text.ends_with("==") ? 2 : text.ends_with('=') ? 1 : 0;
    const auto inAlphabet = [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' ||
               c == '/';
    };
    if (text.size() % 4 != 0 || !std::ranges::all_of(text.substr(0, text.size() - padding), inAlphabet))
        return std::nullopt;
    return QByteArray::fromBase64(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())));
}

std::optional<QUrl> toUrl(JsonValue value)
{
    // Fully encoded at once, or what is written later would read as another address ("a##b").
    QUrl url = QUrl::fromEncoded(QUrl(value.string()).toEncoded());
    return url.isValid() ? std::optional(std::move(url)) : std::nullopt;
}

/// Reads the members of a draft's object; one that cannot be read makes the whole unreadable.
class DraftReader
{
public:
    explicit DraftReader(JsonValue object)
        : m_object(object)
        , m_readable(object.isObject())
    {
    }

    bool readable() const { return m_readable; }

    void read(std::string_view key, QString& into)
    {
        const JsonValue value = m_object[key];
        m_readable = m_readable && value.isString();
        into = value.string();
    }

    template<typename T, typename Read>
    void readRequired(std::string_view key, T& into, Read reader)
    {
        if (auto result = reader(m_object[key]))
            into = std::move(*result);
        else
            m_readable = false;
    }

    template<typename T, typename Read>
    void readOptional(std::string_view key, std::optional<T>& into, Read reader)
    {
        const JsonValue value = m_object[key];
        if (value.isMissing() || value.isNull())
            return;
        into = reader(value);
        m_readable = m_readable && into.has_value();
    }

private:
    JsonValue m_object;
    bool m_readable;
};

} // namespace

QByteArray RecipeDraft::toJson() const
{
    JsonWriter writer;
    writer.beginObject();
    writer.key("title").string(title);
    writer.key("author").string(author);
    writer.key("publisher").string(publisher);
    writer.key("summary").string(summary);
    if (sourceURL)
        writer.key("sourceURL").utf8(sourceURL->toEncoded());
    if (imageURL)
        writer.key("imageURL").utf8(imageURL->toEncoded());
    if (imageData)
        writer.key("imageData").utf8(imageData->toBase64());
    writer.key("yield").string(yield);
    const auto writeMinutes = [&](std::string_view key, std::optional<qint64> minutes) {
        if (minutes)
            writer.key(key).integer(*minutes);
    };
    writeMinutes("prepMinutes", prepMinutes);
    writeMinutes("cookMinutes", cookMinutes);
    writeMinutes("totalMinutes", totalMinutes);
    writer.key("ingredients");
    writeStrings(writer, ingredients);
    writer.key("steps");
    writeSteps(writer, steps);
    writer.endObject();
    return writer.bytes();
}

std::optional<RecipeDraft> RecipeDraft::fromJson(const QByteArray& json)
{
    const auto document = JsonDocument::parse(json, maxDraftBytes);
    if (!document)
        return std::nullopt;

    const auto toMinutes = [](JsonValue value) { return value.integer(); };
    const auto toPhoto = [](JsonValue value) {
        return value.isString() ? fromBase64(value.utf8()) : std::nullopt;
    };
    DraftReader reader(document->root());
    RecipeDraft draft;
    reader.read("title", draft.title);
    reader.read("author", draft.author);
    reader.read("publisher", draft.publisher);
    reader.read("summary", draft.summary);
    reader.readOptional("sourceURL", draft.sourceURL, toUrl);
    reader.readOptional("imageURL", draft.imageURL, toUrl);
    reader.readOptional("imageData", draft.imageData, toPhoto);
    reader.read("yield", draft.yield);
    reader.readOptional("prepMinutes", draft.prepMinutes, toMinutes);
    reader.readOptional("cookMinutes", draft.cookMinutes, toMinutes);
    reader.readOptional("totalMinutes", draft.totalMinutes, toMinutes);
    reader.readRequired("ingredients", draft.ingredients, readStrings);
    reader.readRequired("steps", draft.steps, readSteps);
    return reader.readable() ? std::optional(std::move(draft)) : std::nullopt;
}

} // namespace ovrin
