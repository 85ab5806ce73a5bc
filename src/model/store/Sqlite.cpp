#include "model/store/Sqlite.h"

#include <sqlite3.h>

namespace ovrin::sqlite {

namespace {

/// How long a writer waits for another process's transaction.
constexpr int busyMilliseconds = 10'000;

int flagsFor(Connection::Mode mode)
{
    const int access = mode == Connection::Mode::ReadOnly    ? SQLITE_OPEN_READONLY
                       : mode == Connection::Mode::ReadWrite ? SQLITE_OPEN_READWRITE
                                                             : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    return access | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
}

[[noreturn]] void fail(sqlite3* database, int code)
{
    throw Error(code, database ? sqlite3_errmsg(database) : sqlite3_errstr(code));
}

void check(sqlite3_stmt* statement, int code)
{
    if (code != SQLITE_OK)
        fail(sqlite3_db_handle(statement), code);
}

} // namespace

Error::Error(int code, const std::string& detail)
    : std::runtime_error(detail)
    , m_code(code)
{
}

bool Error::isDamage() const
{
    const int primary = m_code & 0xff;
    return primary == SQLITE_CORRUPT || primary == SQLITE_NOTADB || m_code == SQLITE_IOERR_SHORT_READ;
}

QString Error::description() const
{
    switch (m_code & 0xff) {
    case SQLITE_FULL:
        return QStringLiteral("There is no space left on the disk.");
    case SQLITE_CANTOPEN:
        return QStringLiteral(
            "The library’s file can’t be opened. Check that its folder exists and that you may "
            "write to it.");
    case SQLITE_PERM:
    case SQLITE_AUTH:
    case SQLITE_READONLY:
        return QStringLiteral("You don’t have permission to change the library’s file.");
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return QStringLiteral("Another program is holding on to the library’s file.");
    case SQLITE_CORRUPT:
        return QStringLiteral("The library’s file is damaged.");
    case SQLITE_NOTADB:
        return QStringLiteral("The file is not a recipe library.");
    case SQLITE_NOMEM:
        return QStringLiteral("There is not enough memory.");
    case SQLITE_IOERR:
        return QStringLiteral("The disk reported an error.");
    case SQLITE_TOOBIG:
        return QStringLiteral("The recipe is too large to be saved.");
    default:
        return QStringLiteral("The library answered with the unexpected error %1.").arg(m_code);
    }
}

void Statement::Finalize::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

Statement::Statement(sqlite3* database, std::string_view sql, bool persistent)
{
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()),
                                        persistent ? SQLITE_PREPARE_PERSISTENT : 0, &statement, nullptr);
    m_statement.reset(statement);
    if (code != SQLITE_OK)
        fail(database, code);
}

Statement& Statement::bind(int parameter, qint64 value)
{
    check(m_statement.get(), sqlite3_bind_int64(m_statement.get(), parameter + 1, value));
    return *this;
}

Statement& Statement::bind(int parameter, double value)
{
    check(m_statement.get(), sqlite3_bind_double(m_statement.get(), parameter + 1, value));
    return *this;
}

Statement& Statement::bind(int parameter, const QString& value)
{
    return bindText(parameter, value.toUtf8());
}

Statement& Statement::bindText(int parameter, const QByteArray& utf8)
{
    check(m_statement.get(),
          sqlite3_bind_text64(m_statement.get(), parameter + 1, utf8.constData(),
                              static_cast<sqlite3_uint64>(utf8.size()), SQLITE_TRANSIENT, SQLITE_UTF8));
    return *this;
}

Statement& Statement::bindBlob(int parameter, const QByteArray& value)
{
    // The pointer must not be null, or SQLite binds NULL instead of an empty blob.
    check(m_statement.get(),
          sqlite3_bind_blob64(m_statement.get(), parameter + 1, value.constData(),
                              static_cast<sqlite3_uint64>(value.size()), SQLITE_TRANSIENT));
    return *this;
}

Statement& Statement::bindNull(int parameter)
{
    check(m_statement.get(), sqlite3_bind_null(m_statement.get(), parameter + 1));
    return *this;
}

bool Statement::step()
{
    const int code = sqlite3_step(m_statement.get());
    if (code == SQLITE_ROW)
        return true;
    if (code == SQLITE_DONE)
        return false;
    // The message is gone after the reset, and without it the statement would stay in its failed state.
    const Error error(code, sqlite3_errmsg(sqlite3_db_handle(m_statement.get())));
    sqlite3_reset(m_statement.get());
    throw error;
}

void Statement::run()
{
    while (step()) {
    }
    reset();
    // A kept statement must not keep a photo alive.
    sqlite3_clear_bindings(m_statement.get());
}

void Statement::reset()
{
    sqlite3_reset(m_statement.get());
}

bool Statement::isNull(int column) const
{
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}

qint64 Statement::integer(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

double Statement::real(int column) const
{
    return sqlite3_column_double(m_statement.get(), column);
}

QString Statement::text(int column) const
{
    return QString::fromUtf8(bytes(column));
}

QByteArrayView Statement::bytes(int column) const
{
    const void* data = sqlite3_column_blob(m_statement.get(), column);
    const int size = sqlite3_column_bytes(m_statement.get(), column);
    if (!data && size == 0 && sqlite3_errcode(sqlite3_db_handle(m_statement.get())) == SQLITE_NOMEM)
        throw Error(SQLITE_NOMEM, "out of memory");
    return {static_cast<const char*>(data), size};
}

std::optional<qint64> Statement::optionalInteger(int column) const
{
    return isNull(column) ? std::nullopt : std::optional(integer(column));
}

std::optional<QString> Statement::optionalText(int column) const
{
    return isNull(column) ? std::nullopt : std::optional(text(column));
}

void Connection::Close::operator()(sqlite3* database) const
{
    sqlite3_close_v2(database);
}

Connection::Connection(const QString& path, Mode mode, const QByteArray& vfs)
{
    sqlite3* database = nullptr;
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &database, flagsFor(mode),
                                     vfs.isEmpty() ? nullptr : vfs.constData());
    m_database.reset(database);
    if (code != SQLITE_OK)
        fail(database, code);
    sqlite3_busy_timeout(database, busyMilliseconds);
    // The file may have been made by someone else: no functions from its schema, and doubt every cell.
    execute("PRAGMA trusted_schema = OFF; PRAGMA cell_size_check = ON");
}

void Connection::execute(const char* sql)
{
    const int code = sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        fail(m_database.get(), code);
}

Statement& Connection::kept(std::string_view sql)
{
    std::string key(sql);
    auto found = m_kept.find(key);
    if (found == m_kept.end())
        found = m_kept.emplace(std::move(key), Statement(m_database.get(), sql, true)).first;
    found->second.reset();
    return found->second;
}

Statement Connection::one(std::string_view sql)
{
    Statement statement = prepare(sql);
    if (!statement.step())
        throw Error(SQLITE_ERROR, "no row");
    return statement;
}

qint64 Connection::lastInsertedRow() const
{
    return sqlite3_last_insert_rowid(m_database.get());
}

qint64 Connection::changes() const
{
    return sqlite3_changes64(m_database.get());
}

bool Connection::inTransaction() const
{
    return sqlite3_get_autocommit(m_database.get()) == 0;
}

bool Connection::isReadOnly() const
{
    return sqlite3_db_readonly(m_database.get(), "main") == 1;
}

Transaction::Transaction(Connection& connection)
    : m_connection(connection)
{
    m_connection.execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    // Some failures have rolled back already; a second failure here leaves nothing more to undo.
    if (m_connection.inTransaction()) {
        try {
            m_connection.execute("ROLLBACK");
        } catch (const Error&) {
        }
    }
}

void Transaction::commit()
{
    m_connection.execute("COMMIT");
}

} // namespace ovrin::sqlite
