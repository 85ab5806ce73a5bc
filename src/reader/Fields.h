#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayView>
#include <QtCore/QString>

namespace ovrin::reader {

/// Writes the fields of a message one after another: integers and doubles little-endian, bytes and text
/// (UTF-8) with their size in 32 bits before them.
class FieldWriter
{
public:
    FieldWriter& u16(quint16 value);
    FieldWriter& u32(quint32 value);
    FieldWriter& f64(double value);
    FieldWriter& bytes(QByteArrayView value);
    FieldWriter& text(QStringView value);
    /// Bytes without their size.
    FieldWriter& raw(QByteArrayView value);

    const QByteArray& bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

/// Reads them back from bytes that may be hostile: past a field that does not fit, every field is zero or
/// empty and `isWhole` is false. No size is believed before the bytes for it are there.
class FieldReader
{
public:
    /// `bytes` must outlive the reader.
    explicit FieldReader(QByteArrayView bytes);

    quint16 u16();
    quint32 u32();
    double f64();
    QByteArray bytes();
    QString text();
    QByteArrayView raw(qsizetype size);

    /// The number of elements that follow; broken when even at `smallestElement` bytes each they cannot be
    /// there.
    quint32 count(qsizetype smallestElement);

    /// Every field fitted so far.
    bool isIntact() const { return m_intact; }
    /// Every field fitted and nothing is left over.
    bool isWhole() const { return m_intact && m_rest.isEmpty(); }

private:
    template<typename Number>
    Number number();

    QByteArrayView m_rest;
    bool m_intact = true;
};

} // namespace ovrin::reader
