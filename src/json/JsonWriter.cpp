#include "json/JsonWriter.h"

#include <QtCore/QByteArrayView>
#include <QtCore/QString>

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cmath>

namespace ovrin {

struct JsonWriter::Output
{
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer{buffer};
};

JsonWriter::JsonWriter()
    : m_output(std::make_unique<Output>())
{
}

JsonWriter::~JsonWriter() = default;

JsonWriter& JsonWriter::beginObject()
{
    m_output->writer.StartObject();
    return *this;
}

JsonWriter& JsonWriter::endObject()
{
    m_output->writer.EndObject();
    return *this;
}

JsonWriter& JsonWriter::beginArray()
{
    m_output->writer.StartArray();
    return *this;
}

JsonWriter& JsonWriter::endArray()
{
    m_output->writer.EndArray();
    return *this;
}

JsonWriter& JsonWriter::key(std::string_view name)
{
    m_output->writer.Key(name.data(), unsigned(name.size()));
    return *this;
}

JsonWriter& JsonWriter::string(QStringView text)
{
    return utf8(text.toUtf8());
}

JsonWriter& JsonWriter::utf8(QByteArrayView ascii)
{
    m_output->writer.String(ascii.isEmpty() ? "" : ascii.data(), unsigned(ascii.size()));
    return *this;
}

JsonWriter& JsonWriter::integer(qint64 value)
{
    m_output->writer.Int64(value);
    return *this;
}

JsonWriter& JsonWriter::number(double value)
{
    if (std::isfinite(value)) {
        m_output->writer.Double(value);
    } else {
        m_output->writer.Null();
    }
    return *this;
}

JsonWriter& JsonWriter::boolean(bool value)
{
    m_output->writer.Bool(value);
    return *this;
}

JsonWriter& JsonWriter::null()
{
    m_output->writer.Null();
    return *this;
}

QByteArray JsonWriter::bytes() const
{
    QByteArray written(m_output->buffer.GetString(), qsizetype(m_output->buffer.GetSize()));
    // Only a string can hold these, and to many readers of "one value a line" each of them ends a line.
    written.replace("\xC2\x85", "\\u0085")
        .replace("\xE2\x80\xA8", "\\u2028")
        .replace("\xE2\x80\xA9", "\\u2029");
    return written;
}

} // namespace ovrin
