#include "data/AccessImport.h"

#include "data/AccessColumn.h"
#include "data/Database.h"
#include "data/FileKind.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <memory>
#include <vector>

namespace {

// How often a long table reports progress.
constexpr qint64 ProgressEveryRows = 2000;

struct MdbClose {
    void operator()(MdbHandle* mdb) const { mdb_close(mdb); }
};
using MdbFilePtr = std::unique_ptr<MdbHandle, MdbClose>;

struct MdbFreeTable {
    void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};
using MdbTablePtr = std::unique_ptr<MdbTableDef, MdbFreeTable>;

// Read failures carry the message for the user; the transaction rolls back on the way out.
struct ReadError {
    QString message;
};

struct SourceTable {
    QString name;
    MdbTablePtr def;
};

QString fromMdb(const char* text) {
    return QString::fromUtf8(text);
}

// Table and column names cannot be bound parameters: they go into the statement quoted.
QString quoted(const QString& identifier) {
    QString text = identifier;
    text.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

MdbColumn* columnAt(MdbTableDef* table, unsigned i) {
    return static_cast<MdbColumn*>(g_ptr_array_index(table->columns, i));
}

bool isUserTable(const MdbCatalogEntry* entry) {
    // A form or report may share a table's name: only real tables count.
    if (entry->object_type != MDB_TABLE)
        return false;
    if (mdb_is_system_table(const_cast<MdbCatalogEntry*>(entry)))
        return false;
    return !fromMdb(entry->object_name).startsWith(QLatin1String("MSys"), Qt::CaseInsensitive);
}

int pageSizeOf(FileKind kind) {
    return kind == FileKind::Jet3 ? 2048 : 4096;
}

// Checks what can be checked before libmdb sees the file.
void checkFile(const QString& path, FileKind kind, qint64 size) {
    if (kind == FileKind::Missing)
        throw ReadError{QStringLiteral("The file %1 does not exist.").arg(QDir::toNativeSeparators(path))};
    if (!isAccessKind(kind))
        throw ReadError{QStringLiteral("%1 is not an Access database.").arg(QDir::toNativeSeparators(path))};
    // An Access file is a whole number of pages, and holds more than its header and catalog.
    const int page = pageSizeOf(kind);
    const QString name = QDir::toNativeSeparators(path);
    if (size % page != 0)
        throw ReadError{QStringLiteral("%1 is damaged or truncated: its size (%2 bytes) is not a whole "
                                       "number of %3-byte pages.")
                            .arg(name)
                            .arg(size)
                            .arg(page)};
    if (size < 4 * page)
        throw ReadError{
            QStringLiteral("%1 is truncated: %2 bytes cannot hold a database.").arg(name).arg(size)};
}

ReadError damaged(const QString& path, const QString& what) {
    return ReadError{QStringLiteral("%1 is damaged: %2.").arg(QDir::toNativeSeparators(path), what)};
}

// The user tables in catalog order, each with its columns read.
std::vector<SourceTable> userTables(MdbHandle* mdb, const QString& path) {
    GPtrArray* catalog = mdb_read_catalog(mdb, MDB_ANY);
    if (!catalog)
        throw damaged(path, QStringLiteral("its list of tables cannot be read"));
    std::vector<SourceTable> tables;
    MdbTablePtr objects;
    for (guint i = 0; i < catalog->len; ++i) {
        auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(catalog, i));
        if (entry->object_type == MDB_TABLE && qstrcmp(entry->object_name, "MSysObjects") == 0)
            objects.reset(mdb_read_table(entry));
        if (!isUserTable(entry))
            continue;
        SourceTable table{fromMdb(entry->object_name), MdbTablePtr(mdb_read_table(entry))};
        if (!table.def || !mdb_read_columns(table.def.get()))
            throw damaged(path, QStringLiteral("the table \"%1\" cannot be read").arg(table.name));
        tables.push_back(std::move(table));
    }
    // A catalog cut short by a missing page would silently lose tables.
    if (!objects || catalog->len < objects->num_rows)
        throw damaged(path, QStringLiteral("its list of tables is incomplete"));
    return tables;
}

class Importer {
public:
    Importer(MdbHandle* mdb, Database& target, const QString& path, qint64 fileSize,
             const AccessProgress& progress, qint64 total)
        : mdb_(mdb)
        , target_(target)
        , path_(path)
        , fileSize_(fileSize)
        , progress_(progress)
        , total_(total) {}

    qint64 copy(const SourceTable& source);

private:
    void createTable(const SourceTable& source);
    void report();

    MdbHandle* mdb_;
    Database& target_;
    const QString& path_;
    qint64 fileSize_;
    const AccessProgress& progress_;
    qint64 total_;
    qint64 done_ = 0;
};

void Importer::report() {
    if (progress_ && !progress_(done_, total_))
        throw ReadError{QStringLiteral("The import was cancelled.")};
}

void Importer::createTable(const SourceTable& source) {
    MdbTableDef* table = source.def.get();
    QStringList columns;
    for (unsigned i = 0; i < table->num_cols; ++i) {
        const MdbColumn* col = columnAt(table, i);
        columns << quoted(fromMdb(col->name)) + QLatin1Char(' ') + sqlTypeOf(mdb_, col);
    }
    target_.execScript(QStringLiteral("CREATE TABLE %1 (%2)").arg(quoted(source.name), columns.join(", ")));
}

qint64 Importer::copy(const SourceTable& source) {
    MdbTableDef* table = source.def.get();
    if (table->num_cols == 0)
        return 0; // nothing a SQLite table could hold
    report();
    createTable(source);

    QStringList names;
    QStringList params;
    for (unsigned i = 0; i < table->num_cols; ++i) {
        names << quoted(fromMdb(columnAt(table, i)->name));
        params << QStringLiteral("?%1").arg(i + 1);
    }
    Statement insert = target_.prepare(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                           .arg(quoted(source.name), names.join(", "), params.join(", ")));

    // OLE values are read through a bound buffer; every other value straight from the page.
    std::vector<std::vector<char>> oleBuffers;
    oleBuffers.reserve(table->num_cols);
    for (unsigned i = 0; i < table->num_cols; ++i) {
        if (columnAt(table, i)->col_type == MDB_OLE) {
            oleBuffers.emplace_back(OleBindBufferSize);
            mdb_bind_column(table, int(i + 1), oleBuffers.back().data(), nullptr);
        }
    }

    std::vector<MdbField> fields(table->num_cols);
    qint64 rows = 0;
    mdb_rewind_table(table);
    while (mdb_fetch_row(table)) {
        // The row just fetched is the one before the cursor, on the page in pg_buf.
        int start = 0;
        size_t size = 0;
        if (mdb_find_row(mdb_, int(table->cur_row) - 1, &start, &size) != 0)
            throw damaged(path_, QStringLiteral("a row of \"%1\" cannot be found").arg(source.name));
        start &= 0x1fff; // the top bits are flags
        if (mdb_crack_row(table, start, size, fields.data()) < 0)
            throw damaged(path_, QStringLiteral("a row of \"%1\" cannot be read").arg(source.name));
        for (unsigned i = 0; i < table->num_cols; ++i) {
            const MdbField& field = fields[i];
            QString why;
            if (!bindAccessValue(mdb_, columnAt(table, unsigned(field.colnum)), field, fileSize_, insert,
                                 field.colnum + 1, &why))
                throw damaged(path_, QStringLiteral("table \"%1\", %2").arg(source.name, why));
        }
        insert.run();
        insert.reset();
        // A data page chain that leads back on itself yields the same rows again and again.
        if (++rows > qint64(table->num_rows))
            throw damaged(path_, QStringLiteral("the table \"%1\" yields more than its %2 rows")
                                     .arg(source.name)
                                     .arg(table->num_rows));
        ++done_;
        if (rows % ProgressEveryRows == 0)
            report();
    }
    // A data page that cannot be read ends the scan early without a word from libmdb.
    if (rows < qint64(table->num_rows))
        throw damaged(path_, QStringLiteral("the table \"%1\" holds %2 rows but only %3 can be read")
                                 .arg(source.name)
                                 .arg(table->num_rows)
                                 .arg(rows));
    return rows;
}

void setError(QString* error, const QString& message) {
    if (error)
        *error = message;
}

} // namespace

bool checkAccessFile(const QString& path, QString* error) {
    try {
        checkFile(path, detectFileKind(path), QFileInfo(path).size());
        return true;
    } catch (const ReadError& e) {
        setError(error, e.message);
        return false;
    }
}

bool importAccessFile(const QString& path, Database& target, const AccessProgress& progress, QString* error,
                      QList<AccessTableCount>* tables) {
    try {
        const FileKind kind = detectFileKind(path);
        const qint64 fileSize = QFileInfo(path).size();
        checkFile(path, kind, fileSize);
        // libmdb opens the file read-only.
        MdbFilePtr mdb(mdb_open(QFile::encodeName(path).constData(), MDB_NOFLAGS));
        if (!mdb)
            throw ReadError{QStringLiteral("%1 cannot be opened as an Access database.")
                                .arg(QDir::toNativeSeparators(path))};
        mdb_set_bind_size(mdb.get(), TextBindSize);
        mdb_set_boolean_fmt_numbers(mdb.get());

        const std::vector<SourceTable> sources = userTables(mdb.get(), path);
        qint64 total = 0;
        for (const SourceTable& source : sources)
            total += source.def->num_rows;

        QList<AccessTableCount> counts;
        Transaction transaction(target);
        Importer importer(mdb.get(), target, path, fileSize, progress, total);
        for (const SourceTable& source : sources)
            counts.append({source.name, importer.copy(source)});
        if (progress && !progress(total, total))
            throw ReadError{QStringLiteral("The import was cancelled.")};
        transaction.commit();
        if (tables)
            *tables = counts;
        return true;
    } catch (const ReadError& e) {
        setError(error, e.message);
    } catch (const DbError& e) {
        setError(
            error,
            QStringLiteral("%1 could not be copied: %2").arg(QDir::toNativeSeparators(path), e.message()));
    } catch (const std::exception& e) {
        setError(error, QStringLiteral("%1 could not be copied: %2")
                            .arg(QDir::toNativeSeparators(path), QString::fromLocal8Bit(e.what())));
    }
    return false;
}
