#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringView>

#include <memory>
#include <string_view>

namespace ovrin {

/// Writes one JSON value in its compact form, UTF-8. The caller's calls must nest properly: a key before each
/// value of an object, an end for each begin.
class JsonWriter
{
public:
    JsonWriter();
    ~JsonWriter();
    JsonWriter(const JsonWriter&) = delete;
    JsonWriter& operator=(const JsonWriter&) = delete;

    JsonWriter& beginObject();
    JsonWriter& endObject();
    JsonWriter& beginArray();
    JsonWriter& endArray();
    JsonWriter& key(std::string_view name);
    /// Half a surrogate pair is written as a question mark.
    JsonWriter& string(QStringView text);
    /// `ascii` or other valid UTF-8, as it stands (base64 of a photo).
    JsonWriter& utf8(QByteArrayView ascii);
    JsonWriter& integer(qint64 value);
    /// Finite values only; anything else is written as null.
    JsonWriter& number(double value);
    JsonWriter& boolean(bool value);
    JsonWriter& null();

    /// What was written so far: one line, whatever counts as the end of one.
    QByteArray bytes() const;

private:
    struct Output;
    std::unique_ptr<Output> m_output;
};

} // namespace ovrin
