#include "TempDir.h"
#include "TestRegistry.h"
#include "data/Database.h"

#include <QTest>

// The database layer's storage forms, transactions and refusal of foreign files. Binding of
// quoted and accented text is exercised by every store test that reads names back.
class DatabaseTest : public QObject {
    Q_OBJECT
private slots:
    void moneyAndDatesKeepTheirExactForm();
    void transactionLeavesNothingUnlessCommitted();
    void foreignOrMissingFilesAreRefused_data();
    void foreignOrMissingFilesAreRefused();
};

void DatabaseTest::moneyAndDatesKeepTheirExactForm() {
    Database db = Database::openMemory();
    db.execScript(QStringLiteral("CREATE TABLE t (m CURRENCY, d DATE, n DATE)"));
    const Money big = Money::fromRaw(9'223'372'036'854'775'807LL);
    const DateTime afternoon(Date(2012, 1, 31), 13, 5);
    db.exec(QStringLiteral("INSERT INTO t VALUES (?, ?, ?)"), big, Date(1899, 12, 30), Date());
    db.exec(QStringLiteral("INSERT INTO t VALUES (?, ?, ?)"), Money::fromRaw(-1), afternoon, Date());
    // Money as whole ten-thousandths, dates as ISO text, no date as Null.
    Statement st(db, QStringLiteral("SELECT quote(m) || ' ' || quote(d) || ' ' || quote(n), m, d FROM t"));
    QVERIFY(st.step());
    QCOMPARE(st.text(0), QStringLiteral("9223372036854775807 '1899-12-30' NULL"));
    QCOMPARE(st.money(1), big);
    QCOMPARE(st.date(2), Date(1899, 12, 30));
    QVERIFY(st.step());
    QCOMPARE(st.text(0), QStringLiteral("-1 '2012-01-31 13:05:00' NULL"));
    QCOMPARE(st.dateTime(2), afternoon);
    QCOMPARE(st.date(2), Date(2012, 1, 31));
}

// A failed statement throws out of the transaction, which takes back what went before.
void DatabaseTest::transactionLeavesNothingUnlessCommitted() {
    Database db = Database::openMemory();
    db.execScript(QStringLiteral("CREATE TABLE t (v INTEGER NOT NULL)"));
    bool thrown = false;
    try {
        Transaction tx(db);
        db.exec(QStringLiteral("INSERT INTO t VALUES (1)"));
        db.exec(QStringLiteral("INSERT INTO t VALUES (NULL)"));
        tx.commit();
    } catch (const DbError& e) {
        thrown = e.message().contains(QStringLiteral("NOT NULL"));
    }
    QVERIFY(thrown);
    QVERIFY(!db.inTransaction());
    QCOMPARE(queryInt(db, QStringLiteral("SELECT count(*) FROM t")), 0);
    {
        Transaction tx(db);
        db.exec(QStringLiteral("INSERT INTO t VALUES (2)"));
        tx.commit();
    }
    QCOMPARE(queryInt(db, QStringLiteral("SELECT count(*) FROM t")), 1);
}

void DatabaseTest::foreignOrMissingFilesAreRefused_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("missing") << QByteArray();
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("text") << QByteArray("hello, world\n");
    QTest::newRow("almost a header") << QByteArray("SQLite format 3").append(QByteArray(200, '\x01'));
}

void DatabaseTest::foreignOrMissingFilesAreRefused() {
    QFETCH(QByteArray, content);
    testing::TempDir dir;
    const QString file = dir.path(QStringLiteral("x.mdb"));
    if (!content.isNull())
        dir.write(QStringLiteral("x.mdb"), content);
    QVERIFY_THROWS_EXCEPTION(DbError, Database::open(file));
    // Refusing must neither change the file nor make one.
    QCOMPARE(QFile::exists(file), !content.isNull());
    QCOMPARE(testing::readAll(file), content);
}

VANTREL_TEST(DatabaseTest);
#include "tst_database.moc"
