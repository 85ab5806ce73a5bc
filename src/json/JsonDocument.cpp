#include "json/JsonDocument.h"

#include "json/Utf8.h"

#include <QtCore/QByteArray>
#include <QtCore/QLocale>

#include <rapidjson/document.h>

#include <charconv>
#include <cmath>
#include <string_view>

namespace ovrin {
namespace {

using Node = rapidjson::Value;

// Iterative, so that no nesting can exhaust the stack; in place, so that strings are not copied; numbers as
// they are written, since the library's own exact reading of them does what C++ leaves undefined ("0.0…0e1").
constexpr unsigned parseFlags = rapidjson::kParseInsituFlag | rapidjson::kParseIterativeFlag |
                                rapidjson::kParseNumbersAsStringsFlag | rapidjson::kParseValidateEncodingFlag;

/// Passes the reader's events on to the tree until a bound is exceeded.
class BoundedBuilder
{
public:
    explicit BoundedBuilder(rapidjson::Document& tree)
        : m_tree(tree)
    {
    }

    bool Null() { return mayAdd() && m_tree.Null(); }
    bool Bool(bool value) { return mayAdd() && m_tree.Bool(value); }
    bool Int(int value) { return mayAdd() && m_tree.Int(value); }
    bool Uint(unsigned value) { return mayAdd() && m_tree.Uint(value); }
    bool Int64(int64_t value) { return mayAdd() && m_tree.Int64(value); }
    bool Uint64(uint64_t value) { return mayAdd() && m_tree.Uint64(value); }
    bool Double(double value) { return mayAdd() && m_tree.Double(value); }
    bool RawNumber(const char* text, unsigned length, bool /*copy*/)
    {
        const std::string_view number(text, length);
        if (const auto whole = read<int64_t>(number)) {
            return Int64(*whole);
        }
        if (const auto large = read<uint64_t>(number)) {
            return Uint64(*large);
        }
        // Beyond the range of double there is nothing that a document of ours could mean.
        const auto real = read<double>(number);
        return real && Double(*real);
    }
    bool String(const char* text, unsigned length, bool copy)
    {
        return mayAdd() && m_tree.String(text, length, copy);
    }
    bool Key(const char* text, unsigned length, bool copy)
    {
        return mayAdd() && m_tree.Key(text, length, copy);
    }
    bool StartObject() { return mayNest() && m_tree.StartObject(); }
    bool StartArray() { return mayNest() && m_tree.StartArray(); }
    bool EndObject(unsigned members)
    {
        --m_depth;
        return m_tree.EndObject(members);
    }
    bool EndArray(unsigned elements)
    {
        --m_depth;
        return m_tree.EndArray(elements);
    }

private:
    template<typename Number>
    static std::optional<Number> read(std::string_view text)
    {
        const char* const end = text.data() + text.size();
        Number number{};
        const auto [stopped, error] = std::from_chars(text.data(), end, number);
        return error == std::errc() && stopped == end ? std::optional(number) : std::nullopt;
    }

    bool mayAdd() { return ++m_values <= JsonDocument::maxValues; }
    bool mayNest() { return ++m_depth <= JsonDocument::maxDepth && mayAdd(); }

    rapidjson::Document& m_tree;
    qsizetype m_values = 0;
    int m_depth = 0;
};

const Node& nodeAt(const void* pointer)
{
    return *static_cast<const Node*>(pointer);
}

std::string_view stringOf(const Node& node)
{
    return {node.GetString(), node.GetStringLength()};
}

} // namespace

JsonValue::Kind JsonValue::kind() const
{
    if (!m_node) {
        return Kind::Missing;
    }
    switch (nodeAt(m_node).GetType()) {
    case rapidjson::kNullType:
        return Kind::Null;
    case rapidjson::kFalseType:
    case rapidjson::kTrueType:
        return Kind::Boolean;
    case rapidjson::kObjectType:
        return Kind::Object;
    case rapidjson::kArrayType:
        return Kind::Array;
    case rapidjson::kStringType:
        return Kind::String;
    case rapidjson::kNumberType:
        return Kind::Number;
    }
    return Kind::Missing;
}

std::string_view JsonValue::utf8() const
{
    return isString() ? stringOf(nodeAt(m_node)) : std::string_view();
}

QString JsonValue::string() const
{
    return stringFromUtf8(utf8());
}

std::optional<bool> JsonValue::boolean() const
{
    return kind() == Kind::Boolean ? std::optional(nodeAt(m_node).GetBool()) : std::nullopt;
}

std::optional<double> JsonValue::number() const
{
    return isNumber() ? std::optional(nodeAt(m_node).GetDouble()) : std::nullopt;
}

std::optional<qint64> JsonValue::integer() const
{
    if (!isNumber()) {
        return std::nullopt;
    }
    const Node& node = nodeAt(m_node);
    if (node.IsInt64()) {
        return node.GetInt64();
    }
    const double value = node.GetDouble();
    constexpr double limit = 9223372036854775808.0; // 2^63, the first that does not fit
    const bool fits = value >= -limit && value < limit && std::trunc(value) == value;
    return fits ? std::optional(qint64(value)) : std::nullopt;
}

QString JsonValue::numberText() const
{
    if (!isNumber()) {
        return {};
    }
    if (const auto whole = integer()) {
        return QString::number(*whole);
    }
    const Node& node = nodeAt(m_node);
    return node.IsUint64() ? QString::number(node.GetUint64())
                           : QString::number(node.GetDouble(), 'g', QLocale::FloatingPointShortest);
}

qsizetype JsonValue::size() const
{
    switch (kind()) {
    case Kind::Array:
        return nodeAt(m_node).Size();
    case Kind::Object:
        return nodeAt(m_node).MemberCount();
    default:
        return 0;
    }
}

JsonValue JsonValue::at(qsizetype index) const
{
    if (index < 0 || index >= size()) {
        return {};
    }
    const Node& node = nodeAt(m_node);
    return JsonValue(node.IsArray() ? &node[unsigned(index)] : &(node.MemberBegin() + index)->value);
}

std::string_view JsonValue::keyAt(qsizetype index) const
{
    return isObject() && index >= 0 && index < size() ? stringOf((nodeAt(m_node).MemberBegin() + index)->name)
                                                      : std::string_view();
}

JsonValue JsonValue::operator[](std::string_view key) const
{
    if (!isObject()) {
        return {};
    }
    const Node& node = nodeAt(m_node);
    for (auto member = node.MemberEnd(); member != node.MemberBegin();) {
        --member;
        if (stringOf(member->name) == key) {
            return JsonValue(&member->value);
        }
    }
    return {};
}

struct JsonDocument::Content
{
    QByteArray bytes;
    rapidjson::Document tree;
};

JsonDocument::JsonDocument(std::unique_ptr<Content> content)
    : m_content(std::move(content))
{
}

JsonDocument::JsonDocument(JsonDocument&&) noexcept = default;
JsonDocument& JsonDocument::operator=(JsonDocument&&) noexcept = default;
JsonDocument::~JsonDocument() = default;

std::optional<JsonDocument> JsonDocument::parse(QByteArrayView utf8, qsizetype maxBytes)
{
    if (utf8.size() > maxBytes) {
        return std::nullopt;
    }
    auto content = std::make_unique<Content>();
    // A character cut off at the end makes the reader look at up to three bytes beyond it.
    constexpr qsizetype beyond = 4;
    content->bytes.reserve(utf8.size() + beyond);
    content->bytes.append(utf8).append(beyond, '\0');
    char* const text = content->bytes.data();
    bool whole = false;
    auto build = [&](rapidjson::Document& tree) {
        rapidjson::InsituStringStream stream(text);
        rapidjson::Reader reader;
        BoundedBuilder builder(tree);
        whole = !reader.Parse<parseFlags>(stream, builder).IsError();
        // The reader takes a NUL byte for the end.
        whole = whole && qsizetype(stream.Tell()) == utf8.size();
        return whole;
    };
    content->tree.Populate(build);
    return whole ? std::optional(JsonDocument(std::move(content))) : std::nullopt;
}

JsonValue JsonDocument::root() const
{
    return JsonValue(&static_cast<const Node&>(m_content->tree));
}

} // namespace ovrin
