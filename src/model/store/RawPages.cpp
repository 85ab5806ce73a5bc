#include "model/store/RawPages.h"

#include "model/StepsCoding.h"
#include "json/JsonDocument.h"

#include <QtCore/QHash>
#include <QtCore/QtEndian>

#include <bit>
#include <variant>
#include <vector>

namespace ovrin {

namespace {

using Value = std::variant<std::monostate, qint64, double, QByteArray>;

/// Reads on from a position and remembers whether it ever ran past the end.
class Cursor
{
public:
    explicit Cursor(QByteArrayView bytes, qsizetype at = 0)
        : m_bytes(bytes)
        , m_at(at)
    {
        m_ok = at >= 0 && at <= bytes.size();
    }

    bool ok() const { return m_ok; }
    qsizetype at() const { return m_at; }

    QByteArrayView take(qsizetype size)
    {
        if (!m_ok || size < 0 || size > m_bytes.size() - m_at) {
            m_ok = false;
            return {};
        }
        m_at += size;
        return m_bytes.sliced(m_at - size, size);
    }

    quint64 bigEndian(qsizetype size)
    {
        quint64 value = 0;
        for (const char c : take(size))
            value = value << 8 | static_cast<quint8>(c);
        return value;
    }

    /// One to nine bytes, seven bits each, the ninth whole.
    qint64 varint()
    {
        quint64 value = 0;
        for (int i = 0; i < 9 && m_ok; ++i) {
            const quint64 byte = bigEndian(1);
            if (i == 8)
                return static_cast<qint64>(value << 8 | byte);
            value = value << 7 | (byte & 0x7f);
            if (byte < 0x80)
                break;
        }
        return static_cast<qint64>(value);
    }

private:
    QByteArrayView m_bytes;
    qsizetype m_at;
    bool m_ok;
};

Value readValue(Cursor& body, qint64 serialType)
{
    constexpr std::array<qsizetype, 7> sizes{0, 1, 2, 3, 4, 6, 8};
    if (serialType >= 12)
        return body.take((serialType - 12) / 2).toByteArray();
    if (serialType == 8 || serialType == 9)
        return serialType - 8;
    if (serialType == 7)
        return std::bit_cast<double>(body.bigEndian(8));
    if (serialType < 1 || serialType > 6)
        return {};
    const qsizetype size = sizes[static_cast<std::size_t>(serialType)];
    const int unused = 64 - static_cast<int>(size) * 8;
    return static_cast<qint64>(body.bigEndian(size) << unused) >> unused;
}

/// The values of a record; none unless it is whole.
std::vector<Value> readRecord(QByteArrayView payload)
{
    Cursor header(payload);
    const qint64 headerSize = header.varint();
    Cursor body(payload, headerSize);
    std::vector<Value> values;
    while (header.ok() && body.ok() && header.at() < headerSize)
        values.push_back(readValue(body, header.varint()));
    return header.ok() && body.ok() && body.at() == payload.size() ? values : std::vector<Value>();
}

qint64 integerOf(const Value& value)
{
    return std::holds_alternative<qint64>(value) ? std::get<qint64>(value) : 0;
}

QByteArray bytesOf(const Value& value)
{
    return std::holds_alternative<QByteArray>(value) ? std::get<QByteArray>(value) : QByteArray();
}

QString textOf(const Value& value)
{
    return QString::fromUtf8(bytesOf(value));
}

template<typename T, typename Read>
std::optional<T> optionalOf(const Value& value, Read read)
{
    return std::holds_alternative<std::monostate>(value) ? std::nullopt : std::optional<T>(read(value));
}

/// In the order of the table's columns.
RecipeRecord recordOf(const QUuid& id, const std::vector<Value>& values)
{
    const auto instant = [](const Value& value) {
        return Instant(std::chrono::microseconds(integerOf(value)));
    };
    RecipeRecord record;
    record.id = id;
    record.title = textOf(values[1]);
    record.author = textOf(values[2]);
    record.publisher = textOf(values[3]);
    record.summary = textOf(values[4]);
    record.sourceURL = optionalOf<QString>(values[5], textOf);
    record.tintHex = optionalOf<QString>(values[6], textOf);
    record.yield = textOf(values[7]);
    record.prepMinutes = optionalOf<qint64>(values[8], integerOf);
    record.cookMinutes = optionalOf<qint64>(values[9], integerOf);
    record.totalMinutes = optionalOf<qint64>(values[10], integerOf);
    const auto lines = JsonDocument::parse(bytesOf(values[11]), bytesOf(values[11]).size());
    record.ingredients = (lines ? readStrings(lines->root()) : std::nullopt).value_or(QStringList());
    record.stepsData = bytesOf(values[12]);
    record.notes = textOf(values[13]);
    record.isSaved = integerOf(values[14]) != 0;
    // A whole number is stored as an integer even in a column of reals.
    const double* scale = std::get_if<double>(&values[15]);
    record.scale = scale ? *scale : static_cast<double>(integerOf(values[15]));
    record.createdAt = instant(values[16]);
    record.lastCookedAt = optionalOf<Instant>(values[17], instant);
    record.timesCooked = integerOf(values[18]);
    return record;
}

class Pages
{
public:
    Pages(const QByteArray& database, const QByteArray& log)
        : m_database(database)
    {
        Cursor header(database, 16);
        const quint64 size = header.bigEndian(2);
        m_size = size == 1 ? 65536 : static_cast<qsizetype>(size);
        if (!header.ok() || m_size < 512 || !std::has_single_bit(static_cast<quint64>(m_size)))
            m_size = 4096;
        header.take(2);
        m_usable = m_size - static_cast<qsizetype>(header.bigEndian(1));
        if (m_usable < 480)
            m_usable = m_size;
        readLog(log);
    }

    qsizetype count() const { return m_database.size() / m_size; }
    qsizetype usable() const { return m_usable; }

    /// Pages count from 1.
    QByteArrayView page(qsizetype number) const
    {
        if (const auto newer = m_newer.find(number); newer != m_newer.end())
            return *newer;
        if (number < 1 || number > count())
            return {};
        return QByteArrayView(m_database).sliced((number - 1) * m_size, m_size);
    }

private:
    /// Frames of the log's present generation, which its salt marks, take the place of the file's pages.
    void readLog(const QByteArray& log)
    {
        Cursor header(log, 16);
        const QByteArrayView salt = header.take(8);
        Cursor frames(log, 32);
        while (header.ok() && frames.ok()) {
            const auto number = static_cast<qsizetype>(frames.bigEndian(4));
            frames.take(4);
            const QByteArrayView frameSalt = frames.take(8);
            frames.take(8);
            const QByteArrayView content = frames.take(m_size);
            if (!frames.ok() || frameSalt != salt)
                return;
            m_newer[number] = content.toByteArray();
        }
    }

    QByteArray m_database;
    QHash<qsizetype, QByteArray> m_newer;
    qsizetype m_size = 4096;
    qsizetype m_usable = 4096;
};

/// A row's whole payload, gathered from its chain of overflow pages; empty when that breaks.
QByteArray payloadOf(const Pages& pages, Cursor& cell, qint64 size)
{
    const qsizetype usable = pages.usable();
    const qsizetype most = usable - 35;
    qsizetype local = size;
    if (size > most) {
        const qsizetype least = (usable - 12) * 32 / 255 - 23;
        local = least + (size - least) % (usable - 4);
        if (local > most)
            local = least;
    }
    QByteArray payload = cell.take(local).toByteArray();
    qsizetype next = payload.size() < size ? static_cast<qsizetype>(cell.bigEndian(4)) : 0;
    while (cell.ok() && payload.size() < size) {
        const QByteArrayView page = pages.page(next);
        if (page.isEmpty())
            return {};
        next = static_cast<qsizetype>(Cursor(page).bigEndian(4));
        payload += page.sliced(4, std::min<qsizetype>(usable - 4, size - payload.size()));
    }
    return cell.ok() ? payload : QByteArray();
}

void scanLeaf(const Pages& pages, qsizetype number, const RawFinds& finds)
{
    constexpr quint64 tableLeaf = 0x0d;
    constexpr qint64 maxPayload = 134'217'728;
    const QByteArrayView page = pages.page(number);
    Cursor header(page, number == 1 ? 100 : 0);
    if (header.bigEndian(1) != tableLeaf)
        return;
    header.take(2);
    const auto cells = static_cast<qsizetype>(header.bigEndian(2));
    header.take(3);
    for (qsizetype i = 0; i < cells && header.ok(); ++i) {
        Cursor cell(page, static_cast<qsizetype>(header.bigEndian(2)));
        const qint64 size = cell.varint();
        const qint64 row = cell.varint();
        if (!header.ok() || !cell.ok() || size < 0 || size > maxPayload)
            continue;
        const std::vector<Value> values = readRecord(payloadOf(pages, cell, size));
        const auto id = values.empty() ? std::nullopt : uuidFromText(textOf(values[0]));
        if (id && values.size() == recipeAttributeNames.size() - 1)
            finds.recipe(row, recordOf(*id, values));
        else if (id && values.size() == 2)
            finds.photo(*id, bytesOf(values[1]));
    }
}

} // namespace

void scanPages(const QByteArray& database, const QByteArray& log, const RawFinds& finds)
{
    const Pages pages(database, log);
    for (qsizetype number = 1; number <= pages.count(); ++number)
        scanLeaf(pages, number, finds);
}

} // namespace ovrin
