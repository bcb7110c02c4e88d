#include "data/AccessColumn.h"

#include "app/Date.h"
#include "app/Money.h"
#include "data/Database.h"

#include <QtEndian>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <memory>

namespace {

// The engine's date range: 100-01-01 to 9999-12-31 in days since 1899-12-30.
constexpr double FirstSerial = -657434.0;
constexpr double LastSerialExclusive = 2958466.0;

// A memo or OLE value starts with 12 bytes: its length (the top bits are flags) and where
// the data lie.
constexpr quint32 LongValueLengthMask = 0x3fffffff;
// Enough for a memo value's text in UTF-8: at most three bytes a stored byte.
constexpr size_t Utf8BytesPerStoredByte = 3;

struct GFree {
    void operator()(char* p) const { g_free(p); }
};
using MdbText = std::unique_ptr<char, GFree>;

const unsigned char* at(const MdbHandle* mdb, const MdbField& field) {
    return mdb->pg_buf + field.start;
}

// Bytes a value of a fixed-size type takes in the row; 0 for the variable ones.
int storedBytes(int type) {
    switch (type) {
    case MDB_BYTE:
        return 1;
    case MDB_INT:
        return 2;
    case MDB_LONGINT:
    case MDB_COMPLEX:
    case MDB_FLOAT:
        return 4;
    case MDB_DOUBLE:
    case MDB_DATETIME:
    case MDB_MONEY:
        return 8;
    case MDB_REPID:
        return 16;
    case MDB_NUMERIC:
        return 17;
    default:
        return 0;
    }
}

bool jet3(const MdbHandle* mdb) {
    return mdb->f->jet_version == MDB_VER_JET3;
}

bool fail(QString* error, const MdbColumn* col, const QString& what) {
    if (error)
        *error = QStringLiteral("column \"%1\": %2").arg(QString::fromUtf8(col->name), what);
    return false;
}

// The field must lie inside the page and be as long as its type needs.
bool fieldFits(const MdbHandle* mdb, const MdbField& field, int needed) {
    return field.start >= 0 && field.siz >= needed && field.start + field.siz <= mdb->fmt->pg_size;
}

void bindText(Statement& insert, int index, MdbHandle* mdb, const MdbField& field) {
    MdbText text(mdb_col_to_string(mdb, mdb->pg_buf, field.start, MDB_TEXT, field.siz));
    insert.bind(index, text ? QString::fromUtf8(text.get()) : QString(QLatin1String("")));
}

bool bindMemo(Statement& insert, int index, MdbHandle* mdb, const MdbColumn* col, const MdbField& field,
              qint64 fileSize, QString* error) {
    if (field.siz < MDB_MEMO_OVERHEAD) {
        insert.bind(index, QString(QLatin1String("")));
        return true;
    }
    const quint32 length = qFromLittleEndian<quint32>(at(mdb, field)) & LongValueLengthMask;
    if (qint64(length) > fileSize)
        return fail(error, col, QStringLiteral("a memo value longer than the file"));
    // A memo is converted whole into one buffer of the bind size: make it large enough.
    mdb_set_bind_size(mdb, std::max(TextBindSize, size_t(length) * Utf8BytesPerStoredByte + 16));
    MdbText text(mdb_col_to_string(mdb, mdb->pg_buf, field.start, MDB_MEMO, field.siz));
    mdb_set_bind_size(mdb, TextBindSize);
    // libmdb gives an empty text when the pages of a memo cannot be read. (Two bytes may
    // be no more than the mark of compressed text.)
    if (length > 2 && (!text || text.get()[0] == '\0'))
        return fail(error, col, QStringLiteral("a memo value that cannot be read"));
    insert.bind(index, text ? QString::fromUtf8(text.get()) : QString(QLatin1String("")));
    return true;
}

bool bindOle(Statement& insert, int index, MdbHandle* mdb, MdbColumn* col, const MdbField& field,
             qint64 fileSize, QString* error) {
    // libmdb fills the bound buffer with the value's 12 header bytes at each fetch.
    if (field.siz < MDB_MEMO_OVERHEAD || !col->bind_ptr) {
        insert.bind(index, QByteArray(""));
        return true;
    }
    const quint32 length = qFromLittleEndian<quint32>(at(mdb, field)) & LongValueLengthMask;
    if (qint64(length) > fileSize)
        return fail(error, col, QStringLiteral("an OLE value longer than the file"));
    size_t size = 0;
    std::unique_ptr<void, decltype(&std::free)> data(mdb_ole_read_full(mdb, col, &size), &std::free);
    // A page that cannot be read ends the value early without a word from libmdb.
    if (!data || size != length)
        return fail(error, col, QStringLiteral("an OLE value that cannot be read whole"));
    insert.bind(index, QByteArray(static_cast<const char*>(data.get()), qsizetype(size)));
    return true;
}

} // namespace

QString isoFromAccessSerial(double days) {
    if (!std::isfinite(days) || days < FirstSerial || days >= LastSerialExclusive)
        return QString();
    return DateTime::fromSerial(days).toIso();
}

double realFromSingle(float value) {
    if (!std::isfinite(value))
        return double(value);
    // The shortest decimal that reads back as the same single is what was typed.
    char text[32];
    const auto written = std::to_chars(text, text + sizeof text, value);
    double result = double(value);
    std::from_chars(text, written.ptr, result);
    return result;
}

QString sqlTypeOf(const MdbHandle* mdb, const MdbColumn* col) {
    switch (col->col_type) {
    case MDB_BOOL:
        return QStringLiteral("BOOLEAN");
    case MDB_BYTE:
        return QStringLiteral("TINYINT");
    case MDB_INT:
        return QStringLiteral("SMALLINT");
    case MDB_LONGINT:
    case MDB_COMPLEX:
        return QStringLiteral("INTEGER");
    case MDB_MONEY:
        return QStringLiteral("CURRENCY");
    case MDB_FLOAT:
        return QStringLiteral("SINGLE");
    case MDB_DOUBLE:
        return QStringLiteral("DOUBLE");
    case MDB_DATETIME:
        return QStringLiteral("DATE");
    case MDB_TEXT:
        // Jet 4 and later keep text as UTF-16 and give the size in bytes.
        return QStringLiteral("VARCHAR(%1)").arg(jet3(mdb) ? col->col_size : col->col_size / 2);
    case MDB_MEMO:
        return QStringLiteral("LONGTEXT");
    case MDB_REPID:
        return QStringLiteral("VARCHAR(38)");
    case MDB_NUMERIC:
        return QStringLiteral("DECIMAL(%1,%2)").arg(col->col_prec).arg(col->col_scale);
    default:
        return QStringLiteral("BLOB");
    }
}

bool bindAccessValue(MdbHandle* mdb, MdbColumn* col, const MdbField& field, qint64 fileSize,
                     Statement& insert, int index, QString* error) {
    // A boolean lives in the null mask: a set bit (not null) is true.
    if (col->col_type == MDB_BOOL) {
        insert.bind(index, std::int64_t(field.is_null ? 0 : 1));
        return true;
    }
    if (field.is_null) {
        insert.bindNull(index);
        return true;
    }
    if (!fieldFits(mdb, field, storedBytes(col->col_type)))
        return fail(error, col, QStringLiteral("a value outside its row"));
    const unsigned char* raw = at(mdb, field);
    switch (col->col_type) {
    case MDB_BYTE:
        insert.bind(index, std::int64_t(raw[0]));
        return true;
    case MDB_INT:
        insert.bind(index, std::int64_t(qFromLittleEndian<qint16>(raw)));
        return true;
    case MDB_LONGINT:
    case MDB_COMPLEX:
        insert.bind(index, std::int64_t(qFromLittleEndian<qint32>(raw)));
        return true;
    case MDB_FLOAT:
        insert.bind(index, realFromSingle(qFromLittleEndian<float>(raw)));
        return true;
    case MDB_DOUBLE:
        insert.bind(index, qFromLittleEndian<double>(raw));
        return true;
    case MDB_DATETIME: {
        // libmdb's own date text is zeroed outside 1899-12-30 to about 2700: use the double.
        const QString iso = isoFromAccessSerial(qFromLittleEndian<double>(raw));
        if (iso.isEmpty())
            insert.bindNull(index);
        else
            insert.bind(index, iso);
        return true;
    }
    case MDB_MONEY: {
        // libmdb writes the eight-byte integer out in full with four decimals; read it exactly.
        MdbText text(mdb_money_to_string(mdb, field.start));
        const auto money = text ? Money::parse(QString::fromLatin1(text.get())) : std::nullopt;
        if (!money)
            return fail(error, col, QStringLiteral("an unreadable currency value"));
        insert.bind(index, *money);
        return true;
    }
    case MDB_NUMERIC: {
        // Same argument order as libmdb's own conversion of bound columns.
        MdbText text(mdb_numeric_to_string(mdb, field.start, col->col_scale, col->col_prec));
        insert.bind(index, text ? QString::fromLatin1(text.get()) : QString());
        return true;
    }
    case MDB_TEXT:
        bindText(insert, index, mdb, field);
        return true;
    case MDB_REPID: {
        MdbText text(mdb_uuid_to_string(mdb->pg_buf, field.start));
        insert.bind(index, text ? QString::fromLatin1(text.get()) : QString());
        return true;
    }
    case MDB_MEMO:
        return bindMemo(insert, index, mdb, col, field, fileSize, error);
    case MDB_OLE:
        return bindOle(insert, index, mdb, col, field, fileSize, error);
    default:
        insert.bind(index, QByteArray(reinterpret_cast<const char*>(raw), field.siz));
        return true;
    }
}
