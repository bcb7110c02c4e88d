#include "TempDir.h"
#include "TestRegistry.h"
#include "data/Database.h"

#include <QTest>

class DatabaseTest : public QObject {
    Q_OBJECT
private slots:
    void valuesRoundTripThroughParameters_data();
    void valuesRoundTripThroughParameters();
    void moneyAndDatesKeepTheirExactForm();
    void transactionRollsBackUnlessCommitted();
    void failedStatementInsideTransactionLeavesNothing();
    void foreignFilesAreRefused_data();
    void foreignFilesAreRefused();
    void missingFileIsNotCreated();
};

void DatabaseTest::valuesRoundTripThroughParameters_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << QStringLiteral("Finance");
    QTest::newRow("single quote") << QStringLiteral("St John's");
    QTest::newRow("double quote") << QStringLiteral("The \"Big\" Room");
    QTest::newRow("sql text") << QStringLiteral("x'); DROP TABLE t; --");
    QTest::newRow("accents") << QStringLiteral("Café Zoë £");
    QTest::newRow("empty") << QString();
}

void DatabaseTest::valuesRoundTripThroughParameters() {
    QFETCH(QString, text);
    Database db = Database::openMemory();
    db.execScript(QStringLiteral("CREATE TABLE t (name TEXT)"));
    db.exec(QStringLiteral("INSERT INTO t (name) VALUES (?)"), text);
    QCOMPARE(queryInt(db, QStringLiteral("SELECT count(*) FROM t WHERE name = ?"), text), 1);
    Statement st(db, QStringLiteral("SELECT name FROM t"));
    QVERIFY(st.step());
    QCOMPARE(st.text(0), text);
    QVERIFY(db.tableExists(QStringLiteral("t")));
}

void DatabaseTest::moneyAndDatesKeepTheirExactForm() {
    Database db = Database::openMemory();
    db.execScript(QStringLiteral("CREATE TABLE t (m CURRENCY, d DATE, n DATE)"));
    const Money big = Money::fromRaw(9'223'372'036'854'775'807LL);
    db.exec(QStringLiteral("INSERT INTO t VALUES (?, ?, ?)"), big, Date(1899, 12, 30), Date());
    db.exec(QStringLiteral("INSERT INTO t VALUES (?, ?, ?)"), Money::fromRaw(-1),
            DateTime(Date(2012, 1, 31), 13, 5), Date());
    Statement st(db, QStringLiteral("SELECT m, typeof(m), d, n FROM t ORDER BY rowid"));
    QVERIFY(st.step());
    QCOMPARE(st.money(0), big);
    QCOMPARE(st.text(1), QStringLiteral("integer"));
    QCOMPARE(st.text(2), QStringLiteral("1899-12-30"));
    QVERIFY(st.isNull(3));
    QVERIFY(st.step());
    QCOMPARE(st.money(0).raw(), -1);
    QCOMPARE(st.text(2), QStringLiteral("2012-01-31 13:05:00"));
    QCOMPARE(st.dateTime(2), DateTime(Date(2012, 1, 31), 13, 5));
    QCOMPARE(st.date(2), Date(2012, 1, 31));
}

void DatabaseTest::transactionRollsBackUnlessCommitted() {
    Database db = Database::openMemory();
    db.execScript(QStringLiteral("CREATE TABLE t (v INTEGER)"));
    {
        Transaction tx(db);
        db.exec(QStringLiteral("INSERT INTO t VALUES (1)"));
    }
    QCOMPARE(queryInt(db, QStringLiteral("SELECT count(*) FROM t")), 0);
    {
        Transaction tx(db);
        db.exec(QStringLiteral("INSERT INTO t VALUES (2)"));
        tx.commit();
    }
    QCOMPARE(queryInt(db, QStringLiteral("SELECT count(*) FROM t")), 1);
    QVERIFY(!db.inTransaction());
}

void DatabaseTest::failedStatementInsideTransactionLeavesNothing() {
    Database db = Database::openMemory();
    db.execScript(QStringLiteral("CREATE TABLE t (v INTEGER NOT NULL)"));
    bool thrown = false;
    try {
        Transaction tx(db);
        db.exec(QStringLiteral("INSERT INTO t VALUES (?)"), 1);
        db.exec(QStringLiteral("INSERT INTO t VALUES (NULL)"));
        tx.commit();
    } catch (const DbError& e) {
        thrown = true;
        QVERIFY(e.message().contains(QStringLiteral("NOT NULL")));
    }
    QVERIFY(thrown);
    QCOMPARE(queryInt(db, QStringLiteral("SELECT count(*) FROM t")), 0);
}

void DatabaseTest::foreignFilesAreRefused_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("hello, world\n");
    QTest::newRow("almost a header") << QByteArray("SQLite format 3").append(QByteArray(200, '\x01'));
}

void DatabaseTest::foreignFilesAreRefused() {
    QFETCH(QByteArray, content);
    testing::TempDir dir;
    const QString file = dir.write(QStringLiteral("x.mdb"), content);
    QVERIFY_THROWS_EXCEPTION(DbError, Database::open(file));
    // Refusing must not change the file.
    QCOMPARE(testing::readAll(file), content);
}

void DatabaseTest::missingFileIsNotCreated() {
    testing::TempDir dir;
    QVERIFY_THROWS_EXCEPTION(DbError, Database::open(dir.path(QStringLiteral("none.mdb"))));
    QVERIFY(!QFile::exists(dir.path(QStringLiteral("none.mdb"))));
}

VANTREL_TEST(DatabaseTest);
#include "tst_database.moc"
