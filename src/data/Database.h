#pragma once
// A thin RAII layer over the SQLite C API. Values always travel as bound
// parameters; no caller builds SQL from data.
#include "app/Date.h"
#include "app/Money.h"

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <variant>

struct sqlite3;
struct sqlite3_stmt;

// Raised by the wrapper on any SQLite failure; callers that must not fail loudly catch it.
class DbError : public std::runtime_error {
public:
    DbError(const QString& message, int code);
    int code() const { return code_; }
    QString message() const { return QString::fromUtf8(what()); }
    bool isBusy() const; // another process holds a lock

private:
    int code_;
};

// A loosely typed cell value, as read from any table.
using DbValue = std::variant<std::monostate, std::int64_t, double, QString, QByteArray>;

class Statement;

class Database {
public:
    enum class Mode { ReadWrite, ReadWriteCreate, ReadOnly, Memory };

    Database() = default;
    ~Database();
    Database(Database&& other) noexcept;
    Database& operator=(Database&& other) noexcept;
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // Opens the file and checks that it really is a database. Throws DbError.
    static Database open(const QString& path, Mode mode = Mode::ReadWrite);
    static Database openMemory() { return open(QStringLiteral(":memory:"), Mode::Memory); }

    bool isOpen() const { return db_ != nullptr; }
    void close();
    const QString& path() const { return path_; }
    sqlite3* handle() const { return db_; }

    // Runs one or more statements without parameters (schema text, PRAGMAs).
    void execScript(const QString& sql);
    // Prepares one statement, binds the values in order (1-based) and runs it to the end.
    template <typename... Args> int exec(const QString& sql, const Args&... args);
    Statement prepare(const QString& sql);

    std::int64_t lastInsertRowId() const;
    int changes() const;
    bool tableExists(const QString& table);
    bool columnExists(const QString& table, const QString& column);
    QStringList columnNames(const QString& table);
    bool inTransaction() const;

private:
    explicit Database(sqlite3* db, QString path)
        : db_(db)
        , path_(std::move(path)) {}
    sqlite3* db_ = nullptr;
    QString path_;
};

class Statement {
public:
    Statement(Database& db, const QString& sql);
    ~Statement();
    Statement(Statement&& other) noexcept;
    Statement& operator=(Statement&&) = delete;
    Statement(const Statement&) = delete;

    Statement& bindNull(int index);
    Statement& bind(int index, std::int64_t value);
    Statement& bind(int index, int value) { return bind(index, std::int64_t(value)); }
    Statement& bind(int index, unsigned value) { return bind(index, std::int64_t(value)); }
    Statement& bind(int index, long long value) { return bind(index, std::int64_t(value)); }
    Statement& bind(int index, bool value) { return bind(index, std::int64_t(value ? 1 : 0)); }
    Statement& bind(int index, double value);
    Statement& bind(int index, const QString& value);
    Statement& bind(int index, const char* value) { return bind(index, QString::fromUtf8(value)); }
    Statement& bind(int index, const QByteArray& value);
    Statement& bind(int index, Money value) { return bind(index, value.raw()); }
    // A null Date binds SQL NULL.
    Statement& bind(int index, const Date& value);
    Statement& bind(int index, const DateTime& value);
    Statement& bind(int index, const DbValue& value);
    template <typename T> Statement& bind(int index, const std::optional<T>& value) {
        return value ? bind(index, *value) : bindNull(index);
    }
    template <typename... Args> Statement& bindAll(const Args&... args) {
        int i = 1;
        (bind(i++, args), ...);
        return *this;
    }

    // Advances to the next row; false at the end. Throws DbError on failure.
    bool step();
    // Runs to the end and returns the number of rows changed.
    int run();
    void reset(); // ready to run again with new bindings

    int columnCount() const;
    QString columnName(int column) const;
    bool isNull(int column) const;
    std::int64_t int64(int column) const;
    int integer(int column) const { return int(int64(column)); }
    double real(int column) const;
    QString text(int column) const; // NULL reads as ""
    Money money(int column) const; // NULL reads as 0
    Date date(int column) const;
    DateTime dateTime(int column) const;
    DbValue value(int column) const;
    // For hot loops: the storage class (SQLITE_INTEGER ... SQLITE_NULL) and the raw
    // bytes of a text or blob cell, valid until the next step.
    int columnType(int column) const;
    QByteArrayView rawBytes(int column) const;

private:
    Database* db_;
    sqlite3_stmt* stmt_ = nullptr;
};

// Rolls the write back unless commit() was reached.
class Transaction {
public:
    explicit Transaction(Database& db);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

private:
    Database& db_;
    bool done_ = false;
};

template <typename... Args> int Database::exec(const QString& sql, const Args&... args) {
    Statement st(*this, sql);
    st.bindAll(args...);
    return st.run();
}

// A first row's first column, for COUNT(*) and the like.
template <typename... Args> std::int64_t queryInt(Database& db, const QString& sql, const Args&... args) {
    Statement st(db, sql);
    st.bindAll(args...);
    return st.step() ? st.int64(0) : 0;
}
