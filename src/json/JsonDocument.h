#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QString>

#include <memory>
#include <optional>
#include <string_view>

namespace ovrin {

/// One value of a JsonDocument: as small as a pointer, copied freely, valid as long as its document lives.
///
/// A value that is not there is a value too (`isMissing`), and every access on a value of another kind gives
/// the empty answer, so that foreign JSON can be walked without a check at each step.
class JsonValue
{
public:
    enum class Kind { Missing, Null, Boolean, Number, String, Array, Object };

    JsonValue() = default;

    Kind kind() const;
    bool isMissing() const { return m_node == nullptr; }
    bool isNull() const { return kind() == Kind::Null; }
    bool isString() const { return kind() == Kind::String; }
    bool isNumber() const { return kind() == Kind::Number; }
    bool isArray() const { return kind() == Kind::Array; }
    bool isObject() const { return kind() == Kind::Object; }

    /// A string's text; empty for every other kind.
    QString string() const;
    /// A string's bytes (valid UTF-8), without a copy; empty for every other kind.
    std::string_view utf8() const;

    std::optional<bool> boolean() const;
    std::optional<double> number() const;
    /// A number without a fractional part that fits: 15 and 15.0 both give 15.
    std::optional<qint64> integer() const;
    /// A number in decimal: 4.0 gives "4", 0.50 gives "0.5"; empty for every other kind.
    QString numberText() const;

    /// Elements of an array or members of an object; 0 for every other kind.
    qsizetype size() const;
    /// Element of an array, or value of an object's member, in document order; missing when out of range.
    JsonValue at(qsizetype index) const;
    /// Key of an object's member, in document order.
    std::string_view keyAt(qsizetype index) const;
    /// Value of an object under `key`; where a key is written twice the last one counts.
    JsonValue operator[](std::string_view key) const;

    class Iterator;
    /// Walks an array's elements or the values of an object's members.
    Iterator begin() const;
    Iterator end() const;

private:
    friend class JsonDocument;
    explicit JsonValue(const void* node)
        : m_node(node)
    {
    }

    const void* m_node = nullptr;
};

class JsonValue::Iterator
{
public:
    Iterator(JsonValue container, qsizetype index)
        : m_container(container)
        , m_index(index)
    {
    }
    JsonValue operator*() const { return m_container.at(m_index); }
    Iterator& operator++()
    {
        ++m_index;
        return *this;
    }
    bool operator!=(const Iterator& other) const { return m_index != other.m_index; }

private:
    JsonValue m_container;
    qsizetype m_index;
};

inline JsonValue::Iterator JsonValue::begin() const
{
    return {*this, 0};
}

inline JsonValue::Iterator JsonValue::end() const
{
    return {*this, size()};
}

/// Foreign JSON (RFC 8259, UTF-8), read whole and within bounds: at most `maxDepth` containers inside one
/// another, `maxValues` values, and as many bytes as the caller allows. Any value may stand at the top.
class JsonDocument
{
public:
    static constexpr int maxDepth = 512;
    static constexpr qsizetype maxValues = 4'000'000;

    /// Nothing when `utf8` is longer than `maxBytes`, out of bounds, or not strictly JSON.
    static std::optional<JsonDocument> parse(QByteArrayView utf8, qsizetype maxBytes);

    JsonDocument(JsonDocument&&) noexcept;
    JsonDocument& operator=(JsonDocument&&) noexcept;
    ~JsonDocument();

    JsonValue root() const;

private:
    struct Content;
    explicit JsonDocument(std::unique_ptr<Content> content);

    std::unique_ptr<Content> m_content;
};

} // namespace ovrin
