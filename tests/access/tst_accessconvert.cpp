#include "AccessTestFiles.h"
#include "TempDir.h"
#include "TestRegistry.h"
#include "data/AccessReader.h"
#include "data/Database.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

class AccessConvertTest : public QObject {
    Q_OBJECT
private slots:
    void writesEveryTable();
    void replacesOnlyAfterSuccess();
    void commandLine();
};

namespace {

QStringList tableNames(const QString& path) {
    try {
        Database db = Database::open(path, Database::Mode::ReadOnly);
        QStringList names;
        Statement st =
            db.prepare(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name"));
        while (st.step())
            names << st.text(0);
        return names;
    } catch (const DbError& e) {
        return {QStringLiteral("<%1>").arg(e.message())};
    }
}

} // namespace

void AccessConvertTest::writesEveryTable() {
    SKIP_WITHOUT_SHARED_FILE(testing::accessTestFile("nwind.mdb"));
    testing::TempDir dir;
    const QString out = dir.path(QStringLiteral("nwind.sqlite"));
    QString error;
    QList<AccessTableCount> tables;
    QVERIFY2(convertAccessFile(testing::accessTestFile("nwind.mdb"), out, AccessProgress(), &error, &tables),
             qPrintable(error));
    QCOMPARE(tables.size(), 9);
    QCOMPARE(tableNames(out), (QStringList{"Categories", "Customers", "Employees", "Order Details", "Orders",
                                           "Products", "Shippers", "Suppliers", "Umsätze"}));
    try {
        Database db = Database::open(out, Database::Mode::ReadOnly);
        QCOMPARE(queryInt(db, QStringLiteral("SELECT count(*) FROM \"Order Details\"")), 2155);
        QCOMPARE(queryInt(db, QStringLiteral("SELECT Freight FROM Orders WHERE OrderID = 10330")), 127500);
    } catch (const DbError& e) {
        QFAIL(qPrintable(e.message()));
    }
    // Nothing but the output is left in the folder, and others may read it.
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("nwind.sqlite")});
    QVERIFY(QFileInfo(out).permissions() & QFile::ReadOther);
}

void AccessConvertTest::replacesOnlyAfterSuccess() {
    SKIP_WITHOUT_SHARED_FILE(testing::accessTestFile("nwind.mdb"));
    testing::TempDir dir;
    const QString out = dir.path(QStringLiteral("out.sqlite"));
    {
        Database old = Database::open(out, Database::Mode::ReadWriteCreate); // a new file cannot fail
        old.execScript(QStringLiteral("CREATE TABLE Old (x INTEGER)"));
    }
    const QString truncated = dir.write(QStringLiteral("cut.mdb"),
                                        testing::readAll(testing::accessTestFile("nwind.mdb")).left(4096));
    QString error;
    QVERIFY(!convertAccessFile(truncated, out, AccessProgress(), &error));
    QVERIFY(!error.isEmpty());
    QCOMPARE(tableNames(out), QStringList{QStringLiteral("Old")});
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), (QStringList{"cut.mdb", "out.sqlite"}));

    QVERIFY2(
        convertAccessFile(testing::accessTestFile("DateTestDatabase.mdb"), out, AccessProgress(), &error),
        qPrintable(error));
    QCOMPARE(tableNames(out), QStringList{QStringLiteral("DateTest")});
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), (QStringList{"cut.mdb", "out.sqlite"}));
}

void AccessConvertTest::commandLine() {
    const QString cli = QStringLiteral(VANTREL_BIN_DIR "/vantrel-cli");
    if (!QFileInfo::exists(cli))
        QSKIP("vantrel-cli is not built");
    SKIP_WITHOUT_SHARED_FILE(testing::accessTestFile("ASampleDatabase.accdb"));
    testing::TempDir dir;
    const QString out = dir.path(QStringLiteral("asset.sqlite"));
    QProcess run;
    run.start(cli, {QStringLiteral("convert"), testing::accessTestFile("ASampleDatabase.accdb"), out});
    QVERIFY(run.waitForFinished(60000));
    const QString err = QString::fromUtf8(run.readAllStandardError());
    if (err.contains(QLatin1String("unknown command")))
        QSKIP("this vantrel-cli has no convert command");
    QCOMPARE(run.exitCode(), 0);
    QCOMPARE(QString::fromUtf8(run.readAllStandardOutput()), QStringLiteral("Asset Items\t65\n"));
    QCOMPARE(tableNames(out), QStringList{QStringLiteral("Asset Items")});

    // A file that is no Access database: a message and a non-zero code, no output file.
    const QString notAccess = dir.write(QStringLiteral("notes.txt"), "just text\n");
    const QString out2 = dir.path(QStringLiteral("notes.sqlite"));
    run.start(cli, {QStringLiteral("convert"), notAccess, out2});
    QVERIFY(run.waitForFinished(60000));
    QVERIFY(run.exitCode() != 0);
    QVERIFY(QString::fromUtf8(run.readAllStandardError()).contains(QLatin1String("not an Access database")));
    QVERIFY(!QFileInfo::exists(out2));
}

VANTREL_TEST(AccessConvertTest);
#include "tst_accessconvert.moc"
