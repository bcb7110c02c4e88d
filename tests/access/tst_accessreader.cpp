#include "AccessTestFiles.h"
#include "TempDir.h"
#include "TestRegistry.h"
#include "data/AccessReader.h"
#include "data/Database.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

class AccessReaderTest : public QObject {
    Q_OBJECT
private slots:
    void tablesAndRowCounts_data();
    void tablesAndRowCounts();
    void declaredTypes_data();
    void declaredTypes();
    void jet3Values();
    void jet3RowsInPhysicalOrder();
    void jet4ExtremeDates();
    void jet4Text();
    void aceValues();
    void reportsProgress();
    void cancelLeavesTargetUntouched();
    void refusesBadFiles_data();
    void refusesBadFiles();
    void neverWritesTheFile();
};

namespace {

// One value by a WHERE clause on the table's key; an SQL error comes back as its text,
// which no expected value matches (a test must fail, not throw).
DbValue valueOf(Database& db, const QString& sql, const QVariant& key = QVariant()) {
    try {
        Statement st = db.prepare(sql);
        if (key.isValid()) {
            if (key.typeId() == QMetaType::QString)
                st.bind(1, key.toString());
            else
                st.bind(1, key.toLongLong());
        }
        return st.step() ? st.value(0) : DbValue();
    } catch (const DbError& e) {
        return QStringLiteral("<%1>").arg(e.message());
    }
}

std::int64_t countOf(Database& db, const QString& sql) {
    const DbValue v = valueOf(db, sql);
    return std::holds_alternative<std::int64_t>(v) ? std::get<std::int64_t>(v) : -1;
}

QString textOf(Database& db, const QString& sql, const QVariant& key = QVariant()) {
    const DbValue v = valueOf(db, sql, key);
    return std::holds_alternative<QString>(v) ? std::get<QString>(v) : QStringLiteral("<not text>");
}

std::int64_t intOf(Database& db, const QString& sql, const QVariant& key = QVariant()) {
    const DbValue v = valueOf(db, sql, key);
    return std::holds_alternative<std::int64_t>(v) ? std::get<std::int64_t>(v) : -999999;
}

bool isNull(Database& db, const QString& sql, const QVariant& key = QVariant()) {
    return std::holds_alternative<std::monostate>(valueOf(db, sql, key));
}

// Reads one of the shared files into a new database `db`: skips the test when the file is
// absent, fails it when the file cannot be read.
#define READ_SHARED_FILE(db, name)                                                                           \
    Database db = Database::openMemory();                                                                    \
    do {                                                                                                     \
        const QString file_ = testing::accessTestFile(name);                                                 \
        SKIP_WITHOUT_SHARED_FILE(file_);                                                                     \
        QString error_;                                                                                      \
        QVERIFY2(readAccessDatabase(file_, db, AccessProgress(), &error_), qPrintable(error_));              \
    } while (false)

QList<AccessTableCount> nwindCounts() {
    // Counted with mdb-export, in the order mdb-tables lists them.
    return {{QStringLiteral("Order Details"), 2155}, {QStringLiteral("Orders"), 830},
            {QStringLiteral("Products"), 77},        {QStringLiteral("Shippers"), 3},
            {QStringLiteral("Categories"), 8},       {QStringLiteral("Customers"), 91},
            {QStringLiteral("Employees"), 9},        {QStringLiteral("Suppliers"), 29},
            {QStringLiteral("Umsätze"), 830}};
}

} // namespace

Q_DECLARE_METATYPE(QList<AccessTableCount>)

void AccessReaderTest::tablesAndRowCounts_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QList<AccessTableCount>>("expected");
    QTest::newRow("Jet 3") << testing::accessTestFile("nwind.mdb") << nwindCounts();
    QTest::newRow("Jet 4") << testing::accessTestFile("DateTestDatabase.mdb")
                           << QList<AccessTableCount>{{QStringLiteral("DateTest"), 6}};
    QTest::newRow("ACE") << testing::accessTestFile("ASampleDatabase.accdb")
                         << QList<AccessTableCount>{{QStringLiteral("Asset Items"), 65}};
}

void AccessReaderTest::tablesAndRowCounts() {
    QFETCH(QString, path);
    QFETCH(QList<AccessTableCount>, expected);
    SKIP_WITHOUT_SHARED_FILE(path);
    Database db = Database::openMemory();
    QString error;
    QList<AccessTableCount> tables;
    QVERIFY2(readAccessDatabase(path, db, AccessProgress(), &error, &tables), qPrintable(error));

    QCOMPARE(tables.size(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        QCOMPARE(tables[i].name, expected[i].name);
        QCOMPARE(tables[i].rows, expected[i].rows);
    }
    // Exactly those tables, no system table among them, each with its rows.
    QStringList names;
    Statement st =
        db.prepare(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name"));
    while (st.step())
        names << st.text(0);
    QStringList expectedNames;
    for (const auto& t : expected)
        expectedNames << t.name;
    expectedNames.sort();
    QCOMPARE(names, expectedNames);
    for (const auto& t : expected) {
        const QString count = QStringLiteral("SELECT count(*) FROM \"%1\"").arg(t.name);
        QCOMPARE(countOf(db, count), t.rows);
    }
}

void AccessReaderTest::declaredTypes_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("table");
    QTest::addColumn<QStringList>("columns"); // "name type"

    // Types as mdb-schema gives them: Long Integer, Currency, Integer, Single, Text (n),
    // DateTime, Memo, OLE.
    QTest::newRow("Order Details") << "nwind.mdb"
                                   << "Order Details"
                                   << QStringList{"OrderID INTEGER", "ProductID INTEGER",
                                                  "UnitPrice CURRENCY", "Quantity SMALLINT",
                                                  "Discount SINGLE"};
    QTest::newRow("Categories") << "nwind.mdb"
                                << "Categories"
                                << QStringList{"CategoryID INTEGER", "CategoryName VARCHAR(15)",
                                               "Description LONGTEXT", "Picture BLOB"};
    // Jet 4 keeps text in UTF-16: Text (255) is 255 characters, not bytes.
    QTest::newRow("DateTest") << "DateTestDatabase.mdb"
                              << "DateTest"
                              << QStringList{"IDCol INTEGER",        "DateTimeCol DATE",
                                             "DateCol DATE",         "TimeCol DATE",
                                             "LongTextCol LONGTEXT", "ShortTextCol VARCHAR(255)"};
}

void AccessReaderTest::declaredTypes() {
    QFETCH(QString, file);
    QFETCH(QString, table);
    QFETCH(QStringList, columns);
    READ_SHARED_FILE(db, file.toLatin1().constData());
    QStringList found;
    Statement st = db.prepare(QStringLiteral("SELECT name, type FROM pragma_table_info(?1) ORDER BY cid"));
    st.bind(1, table);
    while (st.step())
        found << st.text(0) + QLatin1Char(' ') + st.text(1);
    QCOMPARE(found, columns);
}

void AccessReaderTest::jet3Values() {
    READ_SHARED_FILE(db, "nwind.mdb");

    // Text with accents (Jet 3 keeps it in a code page) and a Null text.
    const QString customer = QStringLiteral("SELECT %1 FROM Customers WHERE CustomerID = ?1");
    QCOMPARE(textOf(db, customer.arg("Address"), "ANATR"), QStringLiteral("Avda. de la Constitución 2222"));
    QCOMPARE(textOf(db, customer.arg("City"), "ANATR"), QStringLiteral("México D.F."));
    QCOMPARE(textOf(db, customer.arg("CompanyName"), "BERGS"), QStringLiteral("Berglunds snabbköp"));
    QCOMPARE(textOf(db, customer.arg("ContactName"), "BLONP"), QStringLiteral("Frédérique Citeaux"));
    QVERIFY(isNull(db, customer.arg("Region"), "ANATR"));
    QCOMPARE(textOf(db, customer.arg("Region"), "COMMI"), QStringLiteral("SP"));

    // Currency in ten-thousandths: 12.7500 and 42.4000.
    QCOMPARE(intOf(db, "SELECT Freight FROM Orders WHERE OrderID = ?1", 10330), 127500);
    const QString detail = "SELECT %1 FROM \"Order Details\" WHERE OrderID = 10250 AND ProductID = 51";
    QCOMPARE(intOf(db, detail.arg("UnitPrice")), 424000);
    QCOMPARE(intOf(db, detail.arg("Quantity")), 35);
    // The single 0.15 as typed, not widened to 0.15000000596.
    const DbValue discount = valueOf(db, detail.arg("Discount"));
    QVERIFY(std::holds_alternative<double>(discount));
    QCOMPARE(std::get<double>(discount), 0.15);

    // Dates, and a Null date (order 11077 was never shipped).
    QCOMPARE(textOf(db, "SELECT OrderDate FROM Orders WHERE OrderID = ?1", 10330),
             QStringLiteral("1994-11-16"));
    QVERIFY(isNull(db, "SELECT ShippedDate FROM Orders WHERE OrderID = ?1", 11077));
    QCOMPARE(textOf(db, "SELECT BirthDate FROM Employees WHERE EmployeeID = ?1", 1),
             QStringLiteral("1948-12-08"));

    // Booleans as 0 and 1.
    QCOMPARE(intOf(db, "SELECT Discontinued FROM Products WHERE ProductID = ?1", 1), 0);
    QCOMPARE(intOf(db, "SELECT Discontinued FROM Products WHERE ProductID = ?1", 5), 1);

    // Memo text, whole.
    const QString notes = textOf(db, "SELECT Notes FROM Employees WHERE EmployeeID = ?1", 1);
    QCOMPARE(notes.size(), 175);
    QVERIFY(
        notes.startsWith("Education includes a BA in psychology from Colorado State University in 1970."));
    QVERIFY(notes.endsWith(" a member of Toastmasters International."));
    QCOMPARE(textOf(db, "SELECT Description FROM Categories WHERE CategoryID = ?1", 1),
             QStringLiteral("Soft drinks, coffees, teas, beers, and ales"));

    // OLE pictures as blobs of the size mdb-export -b hex gives.
    QCOMPARE(intOf(db, "SELECT length(Picture) FROM Categories WHERE CategoryID = ?1", 1), 10746);
    QCOMPARE(intOf(db, "SELECT typeof(Picture) = 'blob' FROM Categories WHERE CategoryID = ?1", 8), 1);

    // A table name with an accent.
    QCOMPARE(countOf(db, QStringLiteral("SELECT count(*) FROM \"Umsätze\" WHERE CustomerID = 'RATTC'")),
             countOf(db, QStringLiteral("SELECT count(*) FROM Orders WHERE CustomerID = 'RATTC'")));
}

void AccessReaderTest::jet3RowsInPhysicalOrder() {
    READ_SHARED_FILE(db, "nwind.mdb");
    // mdb-export lists Orders from 10330 on, not by key.
    const QString firstThree = QStringLiteral("SELECT group_concat(OrderID) FROM (SELECT OrderID FROM Orders "
                                              "ORDER BY rowid LIMIT 3)");
    QCOMPARE(textOf(db, firstThree), QStringLiteral("10330,10331,10332"));
    QCOMPARE(countOf(db, QStringLiteral("SELECT OrderID FROM Orders ORDER BY rowid DESC LIMIT 1")), 11077);
    QCOMPARE(
        countOf(db, QStringLiteral("SELECT ProductID FROM \"Order Details\" ORDER BY rowid DESC LIMIT 1")),
        77);
}

void AccessReaderTest::jet4ExtremeDates() {
    READ_SHARED_FILE(db, "DateTestDatabase.mdb");
    // Days since 1899-12-30 as stored (2958101, -728, -463126, ...), counted out by hand.
    struct Row {
        int id;
        const char* dateTime;
        const char* date;
        const char* time;
    };
    const Row rows[] = {
        {1, "2021-12-02", "2021-12-02", "2021-12-02"}, {2, "9999-01-01", "9999-01-01", "9999-01-01"},
        {3, "1898-01-01", "1899-01-01", "1900-01-01"}, {4, "0632-01-01", "0633-01-01", "0634-01-01"},
        {5, "2021-12-02", "2021-12-02", "2021-12-02"}, {6, "2021-12-02", "2021-12-02", "2021-12-02"},
    };
    for (const Row& r : rows) {
        const QString sql = QStringLiteral("SELECT %1 FROM DateTest WHERE IDCol = ?1");
        QCOMPARE(textOf(db, sql.arg("DateTimeCol"), r.id), QString::fromLatin1(r.dateTime));
        QCOMPARE(textOf(db, sql.arg("DateCol"), r.id), QString::fromLatin1(r.date));
        QCOMPARE(textOf(db, sql.arg("TimeCol"), r.id), QString::fromLatin1(r.time));
    }
}

void AccessReaderTest::jet4Text() {
    READ_SHARED_FILE(db, "DateTestDatabase.mdb");
    const QString sql = QStringLiteral("SELECT %1 FROM DateTest WHERE IDCol = ?1");
    QCOMPARE(textOf(db, sql.arg("LongTextCol"), 6), QStringLiteral("New line\r\nin field"));
    QCOMPARE(textOf(db, sql.arg("ShortTextCol"), 6), QStringLiteral("No new line"));
    QCOMPARE(textOf(db, sql.arg("LongTextCol"), 5), QStringLiteral("Escaped new line \\r\\n in field"));
    QCOMPARE(textOf(db, sql.arg("LongTextCol"), 2), QStringLiteral("Year 9999"));
    QCOMPARE(textOf(db, sql.arg("ShortTextCol"), 2), QStringLiteral("Year 1999"));
}

void AccessReaderTest::aceValues() {
    READ_SHARED_FILE(db, "ASampleDatabase.accdb");
    const QString sql = QStringLiteral("SELECT %1 FROM \"Asset Items\" WHERE \"Asset No\" = ?1");
    QCOMPARE(textOf(db, sql.arg("\"Asset Category\""), "30050"), QStringLiteral("Computer Hardware"));
    QCOMPARE(textOf(db, sql.arg("Acquired"), "30050"), QStringLiteral("1997-09-02"));
    QCOMPARE(intOf(db, sql.arg("Cost"), "30050"), 19955000); // 1995.5000
    QCOMPARE(intOf(db, sql.arg("Warranty"), "30050"), 12);
    QCOMPARE(textOf(db, sql.arg("Owner"), "30054"), QStringLiteral("Admin & Accounts"));
    QCOMPARE(textOf(db, sql.arg("Acquired"), "30056"), QStringLiteral("1998-12-13"));
    QCOMPARE(intOf(db, sql.arg("Cost"), "30118"), 34255000);
    QCOMPARE(intOf(db, sql.arg("Warranty"), "30118"), 0);
    QVERIFY(isNull(db, sql.arg("\"Tax Scale\""), "30118"));
    QVERIFY(isNull(db, sql.arg("Comments"), "30118"));
    QCOMPARE(countOf(db, QStringLiteral("SELECT count(*) FROM \"Asset Items\" WHERE Comments IS NOT NULL")),
             0);
}

void AccessReaderTest::reportsProgress() {
    SKIP_WITHOUT_SHARED_FILE(testing::accessTestFile("nwind.mdb"));
    Database db = Database::openMemory();
    QList<QPair<qint64, qint64>> calls;
    QString error;
    const bool ok = readAccessDatabase(
        testing::accessTestFile("nwind.mdb"), db,
        [&](qint64 done, qint64 total) {
            calls.append({done, total});
            return true;
        },
        &error);
    QVERIFY2(ok, qPrintable(error));
    // Until the library has read the list of tables there is no total (0 of 0).
    while (!calls.isEmpty() && calls.first() == qMakePair(qint64(0), qint64(0)))
        calls.removeFirst();
    const qint64 total = 2155 + 830 + 77 + 3 + 8 + 91 + 9 + 29 + 830;
    // At least once per table, once inside the 2155 rows of Order Details, once at the end.
    QVERIFY(calls.size() >= 11);
    QCOMPARE(calls.last(), qMakePair(total, total));
    for (int i = 0; i < calls.size(); ++i) {
        QCOMPARE(calls[i].second, total);
        if (i > 0)
            QVERIFY(calls[i].first >= calls[i - 1].first);
    }
    QVERIFY(
        std::any_of(calls.begin(), calls.end(), [](const auto& c) { return c.first > 0 && c.first < 2155; }));
}

void AccessReaderTest::cancelLeavesTargetUntouched() {
    SKIP_WITHOUT_SHARED_FILE(testing::accessTestFile("nwind.mdb"));
    Database db = Database::openMemory();
    db.execScript(QStringLiteral("CREATE TABLE Mine (x INTEGER); INSERT INTO Mine VALUES (7);"));
    QString error;
    const bool ok = readAccessDatabase(
        testing::accessTestFile("nwind.mdb"), db, [](qint64 done, qint64) { return done < 1000; }, &error);
    QVERIFY(!ok);
    QVERIFY(error.contains(QLatin1String("cancel")));
    QCOMPARE(countOf(db, QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type = 'table'")), 1);
    QCOMPARE(countOf(db, QStringLiteral("SELECT x FROM Mine")), 7);
}

void AccessReaderTest::refusesBadFiles_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message"); // a part of the error

    SKIP_WITHOUT_SHARED_FILE(testing::accessTestFile("nwind.mdb"));
    const QByteArray nwind = testing::readAll(testing::accessTestFile("nwind.mdb"));
    QVERIFY(nwind.size() == 3002368);
    QByteArray noise(65536, '\0');
    for (int i = 0; i < noise.size(); ++i)
        noise[i] = char((i * 7919 + 13) % 256);

    QTest::newRow("empty") << QByteArray() << "not an Access database";
    QTest::newRow("noise") << noise << "not an Access database";
    QTest::newRow("SQLite") << QByteArray("SQLite format 3\0", 16) + QByteArray(4080, '\0')
                            << "not an Access database";
    QTest::newRow("first 4096 bytes") << nwind.left(4096) << "truncated";
    QTest::newRow("cut inside a page") << nwind.left(40000) << "truncated";
    // Whole pages, but the catalog continues on a page that is gone.
    QTest::newRow("first 20 pages") << nwind.left(20 * 2048) << "damaged";
    QTest::newRow("first 146 pages") << nwind.left(146 * 2048) << "damaged";
    QTest::newRow("first half") << nwind.left(733 * 2048) << "damaged";
    // Memo and OLE values that do not fit in their row lie on pages marked "LVAL";
    // blanking those pages loses the pictures of Categories and Employees.
    QByteArray noLongValues = nwind;
    for (qsizetype page = 0; page < noLongValues.size(); page += 2048) {
        if (noLongValues.mid(page + 4, 4) == "LVAL")
            noLongValues.replace(page, 2048, QByteArray(2048, '\0'));
    }
    QTest::newRow("long values blanked") << noLongValues << "damaged";
    QByteArray scrambled = nwind;
    scrambled.replace(200000, noise.size(), noise);
    QTest::newRow("data pages overwritten") << scrambled << "";
}

void AccessReaderTest::refusesBadFiles() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    testing::TempDir dir;
    const QString path = dir.write(QStringLiteral("bad.mdb"), bytes);
    Database db = Database::openMemory();
    QString error;
    QList<AccessTableCount> tables;
    const bool ok = readAccessDatabase(path, db, AccessProgress(), &error, &tables);
    if (message.isEmpty() && ok)
        return; // garbage that still reads is acceptable; what matters is no crash
    QVERIFY(!ok);
    QVERIFY2(error.contains(message), qPrintable(error));
    QVERIFY(tables.isEmpty());
    QCOMPARE(countOf(db, QStringLiteral("SELECT count(*) FROM sqlite_master")), 0);
}

void AccessReaderTest::neverWritesTheFile() {
    SKIP_WITHOUT_SHARED_FILE(testing::accessTestFile("DateTestDatabase.mdb"));
    testing::TempDir dir;
    const QByteArray original = testing::readAll(testing::accessTestFile("DateTestDatabase.mdb"));
    const QString path = dir.write(QStringLiteral("copy.mdb"), original);
    const QDateTime modified = QFileInfo(path).lastModified();
    Database db = Database::openMemory();
    QVERIFY(readAccessDatabase(path, db, AccessProgress(), nullptr));
    QCOMPARE(countOf(db, QStringLiteral("SELECT count(*) FROM DateTest")), 6);
    QCOMPARE(QFileInfo(path).lastModified(), modified);
    QCOMPARE(testing::readAll(path), original);
    // No lock or journal file beside it either.
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("copy.mdb")});
}

VANTREL_TEST(AccessReaderTest);
#include "tst_accessreader.moc"
