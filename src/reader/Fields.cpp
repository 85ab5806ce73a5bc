#include "reader/Fields.h"

#include <QtCore/QtEndian>

#include <array>
#include <bit>

namespace ovrin::reader {

namespace {

template<typename Number>
QByteArray littleEndian(Number value)
{
    std::array<char, sizeof(Number)> bytes{};
    qToLittleEndian(value, bytes.data());
    return QByteArray(bytes.data(), bytes.size());
}

} // namespace

FieldWriter& FieldWriter::u16(quint16 value)
{
    return raw(littleEndian(value));
}

FieldWriter& FieldWriter::u32(quint32 value)
{
    return raw(littleEndian(value));
}

FieldWriter& FieldWriter::f64(double value)
{
    return raw(littleEndian(std::bit_cast<quint64>(value)));
}

FieldWriter& FieldWriter::bytes(QByteArrayView value)
{
    return u32(static_cast<quint32>(value.size())).raw(value);
}

FieldWriter& FieldWriter::text(QStringView value)
{
    return bytes(value.toUtf8());
}

FieldWriter& FieldWriter::raw(QByteArrayView value)
{
    m_bytes.append(value);
    return *this;
}

FieldReader::FieldReader(QByteArrayView bytes)
    : m_rest(bytes)
{
}

template<typename Number>
Number FieldReader::number()
{
    const auto field = raw(sizeof(Number));
    return field.isEmpty() ? Number{} : qFromLittleEndian<Number>(field.data());
}

quint16 FieldReader::u16()
{
    return number<quint16>();
}

quint32 FieldReader::u32()
{
    return number<quint32>();
}

double FieldReader::f64()
{
    return std::bit_cast<double>(number<quint64>());
}

QByteArray FieldReader::bytes()
{
    return raw(u32()).toByteArray();
}

QString FieldReader::text()
{
    return QString::fromUtf8(raw(u32()));
}

QByteArrayView FieldReader::raw(qsizetype size)
{
    if (!m_intact || size > m_rest.size()) {
        m_intact = false;
        return {};
    }
    const auto field = m_rest.first(size);
    m_rest = m_rest.sliced(size);
    return field;
}

quint32 FieldReader::count(qsizetype smallestElement)
{
    const auto elements = u32();
    if (qsizetype{elements} > m_rest.size() / smallestElement) {
        m_intact = false;
    }
    return m_intact ? elements : 0;
}

} // namespace ovrin::reader
