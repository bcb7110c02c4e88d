#include "data/Database.h"

#include <QFileInfo>
#include <QStringList>
#include <cmath>
#include <sqlite3.h>

namespace {

QString errorText(sqlite3* db, const QString& context) {
    const char* msg = db ? sqlite3_errmsg(db) : "out of memory";
    return context.isEmpty() ? QString::fromUtf8(msg)
                             : context + QStringLiteral(": ") + QString::fromUtf8(msg);
}

[[noreturn]] void fail(sqlite3* db, int code, const QString& context) {
    throw DbError(errorText(db, context), code);
}

// How long a statement waits for another process to release its lock.
constexpr int BusyTimeoutMs = 2000;

} // namespace

DbError::DbError(const QString& message, int code)
    : std::runtime_error(message.toStdString())
    , code_(code) {}

bool DbError::isBusy() const {
    const int primary = code_ & 0xff;
    return primary == SQLITE_BUSY || primary == SQLITE_LOCKED;
}

Database::~Database() {
    close();
}

Database::Database(Database&& other) noexcept
    : db_(other.db_)
    , path_(std::move(other.path_)) {
    other.db_ = nullptr;
}

Database& Database::operator=(Database&& other) noexcept {
    if (this != &other) {
        close();
        db_ = other.db_;
        path_ = std::move(other.path_);
        other.db_ = nullptr;
    }
    return *this;
}

Database Database::open(const QString& path, Mode mode) {
    // A connection is only ever used by the thread that opened it, so SQLite need not lock
    // it on every call: a scan of a big bill makes millions of them.
    int flags = SQLITE_OPEN_NOMUTEX;
    switch (mode) {
    case Mode::ReadWrite:
        flags |= SQLITE_OPEN_READWRITE;
        break;
    case Mode::ReadWriteCreate:
        flags |= SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
        break;
    case Mode::ReadOnly:
        flags |= SQLITE_OPEN_READONLY;
        break;
    case Mode::Memory:
        flags |= SQLITE_OPEN_READWRITE | SQLITE_OPEN_MEMORY;
        break;
    }
    if (mode == Mode::ReadWrite || mode == Mode::ReadOnly) {
        const QFileInfo info(path);
        if (!info.exists())
            throw DbError(QStringLiteral("%1: the file does not exist").arg(path), SQLITE_CANTOPEN);
        // SQLite takes an empty file for an empty database; for a file we expect to hold
        // data that is a damaged file, not a database.
        if (info.isFile() && info.size() == 0)
            throw DbError(QStringLiteral("%1: the file is empty, not a database").arg(path), SQLITE_NOTADB);
    }
    sqlite3* db = nullptr;
    const QByteArray name = path.toUtf8();
    const int rc = sqlite3_open_v2(name.constData(), &db, flags, nullptr);
    if (rc != SQLITE_OK) {
        const QString text = errorText(db, path);
        sqlite3_close_v2(db);
        throw DbError(text, rc);
    }
    sqlite3_extended_result_codes(db, 1);
    sqlite3_busy_timeout(db, BusyTimeoutMs);
    Database result(db, path);
    // Opening is lazy in SQLite; reading the schema proves the file is a database.
    result.prepare(QStringLiteral("SELECT count(*) FROM sqlite_master")).step();
    return result;
}

void Database::close() {
    if (db_) {
        sqlite3_close_v2(db_);
        db_ = nullptr;
    }
}

void Database::execScript(const QString& sql) {
    char* err = nullptr;
    const int rc = sqlite3_exec(db_, sql.toUtf8().constData(), nullptr, nullptr, &err);
    if (rc != SQLITE_OK) {
        const QString text = err ? QString::fromUtf8(err) : errorText(db_, QString());
        sqlite3_free(err);
        throw DbError(text, rc);
    }
}

Statement Database::prepare(const QString& sql) {
    return Statement(*this, sql);
}

std::int64_t Database::lastInsertRowId() const {
    return sqlite3_last_insert_rowid(db_);
}

int Database::changes() const {
    return sqlite3_changes(db_);
}

bool Database::inTransaction() const {
    return db_ && sqlite3_get_autocommit(db_) == 0;
}

bool Database::tableExists(const QString& table) {
    return queryInt(*this,
                    QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name = ?1 "
                                   "COLLATE NOCASE"),
                    table) > 0;
}

QStringList Database::columnNames(const QString& table) {
    QStringList names;
    Statement st(*this, QStringLiteral("SELECT name FROM pragma_table_info(?1)"));
    st.bind(1, table);
    while (st.step())
        names << st.text(0);
    return names;
}

bool Database::columnExists(const QString& table, const QString& column) {
    return columnNames(table).contains(column, Qt::CaseInsensitive);
}

Statement::Statement(Database& db, const QString& sql)
    : db_(&db) {
    if (!db.isOpen())
        throw DbError(QStringLiteral("The database is not open"), SQLITE_MISUSE);
    const QByteArray text = sql.toUtf8();
    const int rc = sqlite3_prepare_v2(db.handle(), text.constData(), int(text.size()), &stmt_, nullptr);
    if (rc != SQLITE_OK)
        fail(db.handle(), rc, QString());
}

Statement::~Statement() {
    sqlite3_finalize(stmt_);
}

Statement::Statement(Statement&& other) noexcept
    : db_(other.db_)
    , stmt_(other.stmt_) {
    other.stmt_ = nullptr;
}

namespace {
void checkBind(sqlite3_stmt* stmt, int rc) {
    if (rc != SQLITE_OK)
        fail(sqlite3_db_handle(stmt), rc, QStringLiteral("binding a value"));
}
} // namespace

Statement& Statement::bindNull(int index) {
    checkBind(stmt_, sqlite3_bind_null(stmt_, index));
    return *this;
}

Statement& Statement::bind(int index, std::int64_t value) {
    checkBind(stmt_, sqlite3_bind_int64(stmt_, index, value));
    return *this;
}

Statement& Statement::bind(int index, double value) {
    checkBind(stmt_, sqlite3_bind_double(stmt_, index, value));
    return *this;
}

Statement& Statement::bind(int index, const QString& value) {
    const QByteArray utf8 = value.toUtf8();
    checkBind(stmt_, sqlite3_bind_text(stmt_, index, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT));
    return *this;
}

Statement& Statement::bind(int index, const QByteArray& value) {
    checkBind(stmt_, sqlite3_bind_blob(stmt_, index, value.constData(), int(value.size()), SQLITE_TRANSIENT));
    return *this;
}

Statement& Statement::bind(int index, const Date& value) {
    return value.isValid() ? bind(index, value.toIso()) : bindNull(index);
}

Statement& Statement::bind(int index, const DateTime& value) {
    return value.isValid() ? bind(index, value.toIso()) : bindNull(index);
}

Statement& Statement::bind(int index, const DbValue& value) {
    return std::visit(
        [&](const auto& v) -> Statement& {
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, std::monostate>)
                return bindNull(index);
            else
                return bind(index, v);
        },
        value);
}

bool Statement::step() {
    const int rc = sqlite3_step(stmt_);
    if (rc == SQLITE_ROW)
        return true;
    if (rc == SQLITE_DONE)
        return false;
    fail(db_->handle(), rc, QString());
}

int Statement::run() {
    while (step()) {
    }
    return sqlite3_changes(db_->handle());
}

void Statement::reset() {
    sqlite3_reset(stmt_);
    sqlite3_clear_bindings(stmt_);
}

int Statement::columnCount() const {
    return sqlite3_column_count(stmt_);
}

QString Statement::columnName(int column) const {
    return QString::fromUtf8(sqlite3_column_name(stmt_, column));
}

bool Statement::isNull(int column) const {
    return sqlite3_column_type(stmt_, column) == SQLITE_NULL;
}

std::int64_t Statement::int64(int column) const {
    return sqlite3_column_int64(stmt_, column);
}

double Statement::real(int column) const {
    return sqlite3_column_double(stmt_, column);
}

QString Statement::text(int column) const {
    const auto* p = reinterpret_cast<const char*>(sqlite3_column_text(stmt_, column));
    return p ? QString::fromUtf8(p, sqlite3_column_bytes(stmt_, column)) : QString();
}

Money Statement::money(int column) const {
    switch (sqlite3_column_type(stmt_, column)) {
    case SQLITE_INTEGER:
        return Money::fromRaw(sqlite3_column_int64(stmt_, column));
    case SQLITE_FLOAT:
        // Only a value someone else wrote can be a float here; it counts in ten-thousandths.
        return Money::fromRaw(std::llround(sqlite3_column_double(stmt_, column)));
    default:
        return Money();
    }
}

Date Statement::date(int column) const {
    return Date::fromIso(text(column));
}

DateTime Statement::dateTime(int column) const {
    return DateTime::fromIso(text(column));
}

int Statement::columnType(int column) const {
    return sqlite3_column_type(stmt_, column);
}

QByteArrayView Statement::rawBytes(int column) const {
    const auto* p = static_cast<const char*>(sqlite3_column_blob(stmt_, column));
    return QByteArrayView(p, sqlite3_column_bytes(stmt_, column));
}

DbValue Statement::value(int column) const {
    switch (sqlite3_column_type(stmt_, column)) {
    case SQLITE_INTEGER:
        return sqlite3_column_int64(stmt_, column);
    case SQLITE_FLOAT:
        return sqlite3_column_double(stmt_, column);
    case SQLITE_TEXT:
        return text(column);
    case SQLITE_BLOB: {
        const auto* p = static_cast<const char*>(sqlite3_column_blob(stmt_, column));
        return QByteArray(p, sqlite3_column_bytes(stmt_, column));
    }
    default:
        return std::monostate{};
    }
}

Transaction::Transaction(Database& db)
    : db_(db) {
    db_.execScript(QStringLiteral("BEGIN IMMEDIATE"));
}

Transaction::~Transaction() {
    if (!done_) {
        try {
            db_.execScript(QStringLiteral("ROLLBACK"));
        } catch (const DbError&) {
            // The engine may already have rolled back on its own; nothing is left to undo.
        }
    }
}

void Transaction::commit() {
    db_.execScript(QStringLiteral("COMMIT"));
    done_ = true;
}
