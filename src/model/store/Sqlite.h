#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>

struct sqlite3;
struct sqlite3_stmt;

/// A thin skin over SQLite's C API: handles that close themselves, failures as exceptions.
namespace ovrin::sqlite {

/// What SQLite answered, in words for the user.
class Error : public std::runtime_error
{
public:
    /// `code` is an extended result code; `detail` is SQLite's own text, for the log only.
    Error(int code, const std::string& detail);

    int code() const { return m_code; }
    /// The file's content is at fault, not its surroundings.
    bool isDamage() const;
    /// A sentence in plain words.
    QString description() const;

private:
    int m_code;
};

/// A prepared statement: bind, step, read. Parameters and columns count from 0.
class Statement
{
public:
    Statement(sqlite3* database, std::string_view sql, bool persistent = false);

    Statement& bind(int parameter, qint64 value);
    Statement& bind(int parameter, double value);
    Statement& bind(int parameter, const QString& value);
    /// UTF-8.
    Statement& bindText(int parameter, const QByteArray& utf8);
    Statement& bindBlob(int parameter, const QByteArray& value);
    Statement& bindNull(int parameter);
    template<typename T>
    Statement& bind(int parameter, const std::optional<T>& value)
    {
        return value ? bind(parameter, *value) : bindNull(parameter);
    }

    /// True when a row stands ready, false at the end.
    bool step();
    /// Steps to the end and makes the statement ready for its next use.
    void run();
    void reset();

    bool isNull(int column) const;
    qint64 integer(int column) const;
    double real(int column) const;
    QString text(int column) const;
    /// The bytes of a text or blob; valid until the next step.
    QByteArrayView bytes(int column) const;
    QByteArray blob(int column) const { return bytes(column).toByteArray(); }
    std::optional<qint64> optionalInteger(int column) const;
    std::optional<QString> optionalText(int column) const;

private:
    struct Finalize
    {
        void operator()(sqlite3_stmt* statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

/// One connection; used by one thread at a time.
class Connection
{
public:
    enum class Mode { ReadOnly, ReadWrite, Create };

    /// `vfs` names the file layer; empty for the system's.
    Connection(const QString& path, Mode mode, const QByteArray& vfs = {});

    void execute(const char* sql);
    Statement prepare(std::string_view sql) { return Statement(m_database.get(), sql); }
    /// A statement that is prepared once and kept.
    Statement& kept(std::string_view sql);
    /// The first column of the only row.
    qint64 number(std::string_view sql) { return one(sql).integer(0); }
    QString text(std::string_view sql) { return one(sql).text(0); }
    qint64 lastInsertedRow() const;
    /// Rows that the last statement changed.
    qint64 changes() const;
    bool inTransaction() const;
    /// Asked for more, but the file allows only this.
    bool isReadOnly() const;

private:
    Statement one(std::string_view sql);

    struct Close
    {
        void operator()(sqlite3* database) const;
    };
    std::unique_ptr<sqlite3, Close> m_database;
    std::unordered_map<std::string, Statement> m_kept;
};

/// Rolls back unless it was committed.
class Transaction
{
public:
    /// Takes the right to write at once, so that nothing read inside is stale when it writes.
    explicit Transaction(Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Returns when the changes are durable.
    void commit();

private:
    Connection& m_connection;
};

} // namespace ovrin::sqlite
