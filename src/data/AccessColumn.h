#pragma once
// How one column of an Access table becomes a SQLite column: its declared type and
// the conversion of its values. Only the Access reader includes this header.
#include <glib.h> // before mdbtools.h, which includes it inside extern "C"
#include <mdbtools.h>

#include <QString>

class Statement;

// libmdb converts text into a buffer of its bind size; 16 KiB (its default) is plenty for
// a text column of at most 255 characters. Memo values get a larger one.
constexpr size_t TextBindSize = 16384;
// libmdb copies each piece of an OLE value into the column's bound buffer: a page at most.
constexpr size_t OleBindBufferSize = 64 * 1024;

// The declared type in the project schema's vocabulary: VARCHAR(n), CURRENCY, DATE,
// INTEGER, SMALLINT, SINGLE, DOUBLE, BOOLEAN; LONGTEXT, BLOB and a few more for the rest.
QString sqlTypeOf(const MdbHandle* mdb, const MdbColumn* col);

// Binds the value of one field of the row that libmdb has just fetched (its page is in
// mdb->pg_buf) to parameter `index` of `insert`. False, with the reason in `error`,
// for a value that cannot have come from a sound file.
bool bindAccessValue(MdbHandle* mdb, MdbColumn* col, const MdbField& field, qint64 fileSize,
                     Statement& insert, int index, QString* error);

// Days since 1899-12-30 as ISO text; an empty string for a value outside the years
// 100 to 9999 that the engine allows.
QString isoFromAccessSerial(double days);
// A single widened to double the way it was typed (0.15f gives 0.15, not 0.150000006).
double realFromSingle(float value);
