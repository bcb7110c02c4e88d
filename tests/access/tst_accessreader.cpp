#include "AccessTestFiles.h"
#include "TempDir.h"
#include "TestRegistry.h"
#include "data/AccessColumn.h"
#include "data/AccessReader.h"
#include "data/Database.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>
#include <QtEndian>
#include <map>
#include <numeric>

// The shared files read back and converted; expected values were picked by hand from mdb-export
// and mdb-schema output, never from this reader. Bad input must end in a result or a refusal
// within seconds, never hang, and never harm the output already there.
class AccessReaderTest : public QObject {
    Q_OBJECT
private slots:
    void readBack_data();
    void readBack();
    void cancelLeavesTargetUntouched();
    void serialDates_data();
    void serialDates();
    void badFiles_data();
    void badFiles();
    void commandLine();

private:
    struct Reading {
        Database db;
        QList<AccessTableCount> tables;
    };
    std::map<QString, Reading> read_; // each shared file read once
    testing::TempDir copies_;
};

namespace {

// The first row of `sql`, its columns joined by " | ", NULL as "NULL", a real to 15 digits; an
// SQL error as "<message>", which no expected text matches (a test must fail, not throw).
QString sqlText(Database& db, const QString& sql) {
    try {
        Statement st = db.prepare(sql);
        if (!st.step())
            return QStringLiteral("<no row>");
        QStringList columns;
        for (int i = 0; i < st.columnCount(); ++i) {
            const DbValue v = st.value(i);
            if (std::holds_alternative<std::monostate>(v))
                columns << QStringLiteral("NULL");
            else if (const auto* d = std::get_if<double>(&v))
                columns << QString::number(*d, 'g', 15);
            else
                columns << st.text(i);
        }
        return columns.join(QStringLiteral(" | "));
    } catch (const DbError& e) {
        return QStringLiteral("<%1>").arg(e.message());
    }
}

const QString TablesQuery = QStringLiteral("SELECT group_concat(name, ', ') FROM (SELECT name FROM "
                                           "sqlite_master WHERE type = 'table' ORDER BY name)");

// The tables of a SQLite file, by name.
QString tablesOf(const QString& path) {
    try {
        Database db = Database::open(path, Database::Mode::ReadOnly);
        return sqlText(db, TablesQuery);
    } catch (const DbError& e) {
        return QStringLiteral("<%1>").arg(e.message());
    }
}

constexpr int Jet3Page = 2048;

// A byte in the catalog's property data of nwind.mdb whose change sends libmdb round
// for ever (found by flipping random bytes).
QByteArray loopingCatalog(QByteArray nwind) {
    nwind[0x170f55] = char(3);
    return nwind;
}

// Every row of every long-value page names itself as the next piece of its value. A Jet 4
// or ACE page is 4096 bytes, its row count at 12 and the row offsets from 14.
QByteArray selfLinkedLongValues(QByteArray file) {
    constexpr int PageSize = 4096;
    for (qsizetype page = 0; page + PageSize <= file.size(); page += PageSize) {
        if (file.mid(page + 4, 4) != "LVAL")
            continue;
        const int rows = qFromLittleEndian<quint16>(file.constData() + page + 12);
        for (int row = 0; row < rows && row < 256; ++row) {
            const int start = qFromLittleEndian<quint16>(file.constData() + page + 14 + 2 * row) & 0x1fff;
            if (start + 4 <= PageSize)
                qToLittleEndian(quint32((page / PageSize) << 8 | row), file.data() + page + start);
        }
    }
    return file;
}

// Memo and OLE values that do not fit in their row lie on pages marked "LVAL".
QByteArray blankLongValues(QByteArray file) {
    for (qsizetype page = 0; page < file.size(); page += Jet3Page)
        if (file.mid(page + 4, 4) == "LVAL")
            file.replace(page, Jet3Page, QByteArray(Jet3Page, '\0'));
    return file;
}

QByteArray flipped(QByteArray file, quint32 seed, int bytes = 300) {
    QRandomGenerator random(seed);
    for (int i = 0; i < bytes; ++i)
        file[random.bounded(file.size())] = char(random.bounded(256));
    return file;
}

} // namespace

void AccessReaderTest::readBack_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* file, const char* select, const char* expected) {
        QTest::newRow(name) << file << select << expected;
    };
    // An empty query: the tables the reader reports, in catalog order as mdb-tables lists them.
    row("Jet 3 tables", "nwind.mdb", "",
        "Order Details 2155, Orders 830, Products 77, Shippers 3, Categories 8, Customers 91, Employees 9, "
        "Suppliers 29, Umsätze 830");
    row("Jet 4 tables", "DateTestDatabase.mdb", "", "DateTest 6");
    row("ACE tables", "ASampleDatabase.accdb", "", "Asset Items 65");
    row("no system tables", "nwind.mdb", "count(*) FROM sqlite_master WHERE type = 'table'", "9");

    // Declared types as mdb-schema gives them: Long Integer, Currency, Integer, Single,
    // Text (n), Memo, OLE.
    const char* jet3 = "nwind.mdb";
    row("Jet 3 types", jet3,
        "group_concat(name || ' ' || type, ', ') FROM pragma_table_info('Order Details')",
        "OrderID INTEGER, ProductID INTEGER, UnitPrice CURRENCY, Quantity SMALLINT, Discount SINGLE");
    row("Jet 3 types, text", jet3,
        "group_concat(name || ' ' || type, ', ') FROM pragma_table_info('Categories')",
        "CategoryID INTEGER, CategoryName VARCHAR(15), Description LONGTEXT, Picture BLOB");
    // Jet 3 keeps text in a code page.
    row("accents, null text", jet3, "Address, City, Region FROM Customers WHERE CustomerID = 'ANATR'",
        "Avda. de la Constitución 2222 | México D.F. | NULL");
    // Currency in ten-thousandths (8.5300, 42.4000); the single 0.15 as typed, not widened.
    row("date, null date, currency", jet3,
        "OrderDate, ShippedDate, Freight FROM Orders WHERE OrderID = 11077", "1996-06-05 | NULL | 85300");
    row("currency, integer, single", jet3,
        "UnitPrice, Quantity, typeof(Discount), Discount FROM \"Order Details\" "
        "WHERE OrderID = 10250 AND ProductID = 51",
        "424000 | 35 | real | 0.15");
    row("booleans", jet3, "group_concat(Discontinued) FROM Products WHERE ProductID <= 5", "0,0,0,0,1");
    row("memo, whole", jet3,
        "length(Notes), substr(Notes, 1, 23), substr(Notes, -39) FROM Employees WHERE EmployeeID = 1",
        "175 | Education includes a BA | a member of Toastmasters International.");
    // The size mdb-export -b hex gives.
    row("OLE picture", jet3, "length(Picture), typeof(Picture) FROM Categories WHERE CategoryID = 1",
        "10746 | blob");
    // mdb-export lists Orders from 10330 on, not by key.
    row("rows in physical order", jet3,
        "group_concat(OrderID) FROM (SELECT OrderID FROM Orders ORDER BY rowid LIMIT 3)",
        "10330,10331,10332");

    // Jet 4 keeps text in UTF-16: Text (255) is 255 characters, not bytes.
    const char* jet4 = "DateTestDatabase.mdb";
    row("Jet 4 types", jet4, "group_concat(name || ' ' || type, ', ') FROM pragma_table_info('DateTest')",
        "IDCol INTEGER, DateTimeCol DATE, DateCol DATE, TimeCol DATE, LongTextCol LONGTEXT, "
        "ShortTextCol VARCHAR(255)");
    // Days since 1899-12-30 as stored (2958101, -728, -463126, ...), counted out by hand.
    row("dates", jet4, "group_concat(DateTimeCol || ' ' || DateCol || ' ' || TimeCol, ', ') FROM DateTest",
        "2021-12-02 2021-12-02 2021-12-02, 9999-01-01 9999-01-01 9999-01-01, "
        "1898-01-01 1899-01-01 1900-01-01, 0632-01-01 0633-01-01 0634-01-01, "
        "2021-12-02 2021-12-02 2021-12-02, 2021-12-02 2021-12-02 2021-12-02");
    row("line break kept", jet4, "LongTextCol, ShortTextCol FROM DateTest WHERE IDCol = 6",
        "New line\r\nin field | No new line");
    row("backslashes kept", jet4, "LongTextCol FROM DateTest WHERE IDCol = 5",
        "Escaped new line \\r\\n in field");

    const char* ace = "ASampleDatabase.accdb";
    row("ACE values", ace,
        "\"Asset Category\", Acquired, Cost, Warranty, \"Tax Scale\" FROM \"Asset Items\" "
        "WHERE \"Asset No\" = '30050'",
        "Computer Hardware | 1997-09-02 | 19955000 | 12 | A");
    row("ACE zero and nulls", ace,
        "Cost, Warranty, \"Tax Scale\", Comments FROM \"Asset Items\" WHERE \"Asset No\" = '30118'",
        "34255000 | 0 | NULL | NULL");
}

void AccessReaderTest::readBack() {
    QFETCH(QString, file);
    QFETCH(QString, sql);
    QFETCH(QString, expected);
    const QString path = testing::accessTestFile(file);
    SKIP_WITHOUT_SHARED_FILE(path);
    auto it = read_.find(file);
    if (it == read_.end()) {
        // From a copy, to see that the reader leaves it as it was and puts nothing beside it.
        const QByteArray original = testing::readAll(path);
        const QString copy = copies_.write(file, original);
        Reading r{Database::openMemory(), {}};
        QString error;
        QList<QPair<qint64, qint64>> calls;
        const auto record = [&](qint64 done, qint64 total) {
            calls.append({done, total});
            return true;
        };
        QVERIFY2(readAccessDatabase(copy, r.db, record, &error, &r.tables), qPrintable(error));
        // The same tables converted to a file replace the one there, which others may read.
        const QString out = copy + QStringLiteral(".sqlite");
        Database::open(out, Database::Mode::ReadWriteCreate)
            .execScript(QStringLiteral("CREATE TABLE Old (x)"));
        QVERIFY2(convertAccessFile(copy, out, AccessProgress(), &error), qPrintable(error));
        QCOMPARE(tablesOf(out), sqlText(r.db, TablesQuery));
        QVERIFY(QFileInfo(out).permissions() & QFile::ReadOther);
        // The copy is left as it was, with nothing but the output beside it.
        QCOMPARE(testing::readAll(copy), original);
        QCOMPARE(QDir(copies_.path()).entryList(QDir::Files).size(), qsizetype(2 * read_.size() + 2));
        // Progress: 0 of 0 until the library has read the list of tables, then at least once
        // per table and at the end, never backwards, out of the rows of all tables.
        while (!calls.isEmpty() && calls.first() == qMakePair(qint64(0), qint64(0)))
            calls.removeFirst();
        const qint64 total =
            std::accumulate(r.tables.begin(), r.tables.end(), qint64(0),
                            [](qint64 sum, const AccessTableCount& t) { return sum + t.rows; });
        QVERIFY(calls.size() > r.tables.size());
        QCOMPARE(calls.last(), qMakePair(total, total));
        for (int i = 0; i < calls.size(); ++i) {
            QCOMPARE(calls[i].second, total);
            QVERIFY(i == 0 || calls[i].first >= calls[i - 1].first);
        }
        // Also inside a long table (Order Details of nwind.mdb has 2155 rows).
        const qint64 first = r.tables.value(0).rows;
        QVERIFY(first < 1000 || std::any_of(calls.begin(), calls.end(),
                                            [&](const auto& c) { return c.first > 0 && c.first < first; }));
        it = read_.emplace(file, std::move(r)).first;
    }
    if (sql.isEmpty()) {
        QStringList tables;
        for (const AccessTableCount& t : it->second.tables) {
            tables << QStringLiteral("%1 %2").arg(t.name).arg(t.rows);
            const QString count = QStringLiteral("SELECT count(*) FROM \"%1\"").arg(t.name);
            QCOMPARE(sqlText(it->second.db, count), QString::number(t.rows));
        }
        QCOMPARE(tables.join(QStringLiteral(", ")), expected);
    } else {
        QCOMPARE(sqlText(it->second.db, QStringLiteral("SELECT ") + sql), expected);
    }
}

void AccessReaderTest::cancelLeavesTargetUntouched() {
    SKIP_WITHOUT_SHARED_FILE(testing::accessTestFile("nwind.mdb"));
    Database db = Database::openMemory();
    db.execScript(QStringLiteral("CREATE TABLE Mine (x INTEGER); INSERT INTO Mine VALUES (7);"));
    QString error;
    const bool ok = readAccessDatabase(
        testing::accessTestFile("nwind.mdb"), db, [](qint64 done, qint64) { return done < 1000; }, &error);
    QVERIFY2(!ok && error.contains(QLatin1String("cancel")), qPrintable(error));
    QCOMPARE(
        sqlText(db, QStringLiteral("SELECT group_concat(name), (SELECT x FROM Mine) FROM sqlite_master")),
        QStringLiteral("Mine | 7"));
}

void AccessReaderTest::serialDates_data() {
    QTest::addColumn<double>("serial");
    QTest::addColumn<QString>("iso"); // empty: no date
    QTest::newRow("a time of day, 56168.97 s") << 44532.650103831016 << "2021-12-02 15:36:09";
    QTest::newRow("a second before midnight") << 1.0 + 86399.0 / 86400.0 << "1899-12-31 23:59:59";
    // Before the epoch the whole part counts the days back and the fraction the time forward.
    QTest::newRow("two days back, 18:00") << -2.75 << "1899-12-28 18:00:00";
    QTest::newRow("first allowed day") << -657434.0 << "0100-01-01";
    QTest::newRow("last allowed second") << 2958465.0 + 86399.0 / 86400.0 << "9999-12-31 23:59:59";
    QTest::newRow("after the year 9999") << 2958466.0 << "";
    QTest::newRow("before the year 100") << -657435.0 << "";
    QTest::newRow("not a number") << std::nan("") << "";
}

void AccessReaderTest::serialDates() {
    QFETCH(double, serial);
    QFETCH(QString, iso);
    QCOMPARE(isoFromAccessSerial(serial), iso);
}

void AccessReaderTest::badFiles_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message"); // a part of the error
    QTest::addColumn<bool>("mayRead");    // garbage that still reads is acceptable: no crash, no hang
    QTest::addColumn<int>("cancelAtMs");  // -1: never

    const auto row = [](const char* name, const QByteArray& bytes, const char* message, bool mayRead = false,
                        int cancelAtMs = -1) {
        QTest::newRow(name) << bytes << message << mayRead << cancelAtMs;
    };
    const QByteArray noise = flipped(QByteArray(65536, '\0'), 4711, 65536);
    row("empty", QByteArray(), "not an Access database");
    row("noise", noise, "not an Access database");
    row("SQLite", QByteArray("SQLite format 3\0", 16) + QByteArray(4080, '\0'), "not an Access database");
    SKIP_WITHOUT_SHARED_FILE(testing::accessTestFile("nwind.mdb"));
    const QByteArray nwind = testing::readAll(testing::accessTestFile("nwind.mdb"));
    row("first 4096 bytes", nwind.left(4096), "truncated");
    row("cut inside a page", nwind.left(40000), "truncated");
    // Whole pages, but the catalog continues on a page that is gone.
    row("first 20 pages", nwind.left(20 * Jet3Page), "damaged");
    row("first half", nwind.left(733 * Jet3Page), "damaged");
    // This loses the pictures of Categories and Employees.
    row("long values blanked", blankLongValues(nwind), "damaged");
    // Only the time limit ends this one, or a cancel: the library never gets past the catalog,
    // so it never counts a row, and only the reports made while it waits can carry the cancel.
    row("catalog data that loops", loopingCatalog(nwind), "damaged");
    row("catalog data that loops, cancelled", loopingCatalog(nwind), "cancel", false, 300);
    // libmdb piles up a looping property list until the reader's memory runs out, then reads
    // on without it: the tables may still come out whole, before the time limit strikes.
    row("long values chained to themselves",
        selfLinkedLongValues(testing::readAll(testing::accessTestFile("ASampleDatabase.accdb"))), "damaged",
        true);
    row("data pages overwritten", nwind.left(200000) + noise + nwind.mid(265536), "damaged", true);
    for (quint32 seed : {1u, 2u, 3u})
        QTest::addRow("300 random bytes, seed %u", seed) << flipped(nwind, seed) << "damaged" << true << -1;
}

void AccessReaderTest::badFiles() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    QFETCH(bool, mayRead);
    QFETCH(int, cancelAtMs);
    testing::TempDir dir;
    const QString path = dir.write(QStringLiteral("bad.mdb"), bytes);
    const QString out = dir.path(QStringLiteral("out.sqlite"));
    Database::open(out, Database::Mode::ReadWriteCreate).execScript(QStringLiteral("CREATE TABLE Old (x)"));
    QString error;
    QList<AccessTableCount> tables;
    QElapsedTimer clock;
    clock.start();
    const auto progress = [&](qint64, qint64) { return cancelAtMs < 0 || clock.elapsed() < cancelAtMs; };
    const bool ok = convertAccessFile(path, out, progress, &error, &tables);
    // Far above the reader's own limit for a 3 MB file, far below a hang; a cancel at once.
    const qint64 within = cancelAtMs < 0 ? 20000 : cancelAtMs + 1200;
    QVERIFY2(clock.elapsed() < within, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), (QStringList{"bad.mdb", "out.sqlite"}));
    if (ok && mayRead)
        return;
    QVERIFY2(!ok, "a damaged file was read");
    QVERIFY2(error.contains(message), qPrintable(error));
    QVERIFY(tables.isEmpty());
    QCOMPARE(tablesOf(out), QStringLiteral("Old"));
}

void AccessReaderTest::commandLine() {
    const QString cli = QStringLiteral(VANTREL_BIN_DIR "/vantrel-cli");
    if (!QFileInfo::exists(cli))
        QSKIP("vantrel-cli is not built");
    SKIP_WITHOUT_SHARED_FILE(testing::accessTestFile("ASampleDatabase.accdb"));
    testing::TempDir dir;
    const QString out = dir.path(QStringLiteral("asset.sqlite"));
    QProcess run;
    run.start(cli, {QStringLiteral("convert"), testing::accessTestFile("ASampleDatabase.accdb"), out});
    QVERIFY(run.waitForFinished(60000));
    QCOMPARE(run.exitCode(), 0);
    QCOMPARE(QString::fromUtf8(run.readAllStandardOutput()), QStringLiteral("Asset Items\t65\n"));
    QCOMPARE(tablesOf(out), QStringLiteral("Asset Items"));

    // A file that is no Access database: a message and a non-zero code, no output file.
    const QString notAccess = dir.write(QStringLiteral("notes.txt"), "just text\n");
    run.start(cli, {QStringLiteral("convert"), notAccess, out + QStringLiteral("2")});
    QVERIFY(run.waitForFinished(60000));
    QVERIFY(run.exitCode() != 0);
    QVERIFY(QString::fromUtf8(run.readAllStandardError()).contains(QLatin1String("not an Access database")));
    QVERIFY(!QFileInfo::exists(out + QStringLiteral("2")));
}

VANTREL_TEST(AccessReaderTest);
#include "tst_accessreader.moc"
