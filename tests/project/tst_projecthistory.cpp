#include "TempDir.h"
#include "TestRegistry.h"
#include "data/ProjectHistory.h"

#include <QTest>

class ProjectHistoryTest : public QObject {
    Q_OBJECT
private slots:
    void noFileGivesAnEmptyList();
    void fileHoldsMarkerThenNewestQuoted();
    void reselectedProjectMovesToTheTop();
    void tenthEntryFallsOffOnSave();
    void projectExists();
    void longPathsAreShortenedFolderByFolder();
};

void ProjectHistoryTest::noFileGivesAnEmptyList() {
    testing::TempDir dir;
    QVERIFY(LoadHistory(dir.path()).isEmpty());
}

void ProjectHistoryTest::fileHoldsMarkerThenNewestQuoted() {
    testing::TempDir dir;
    QVERIFY(SaveHistory(dir.path(), QStringLiteral("/p/b.mdb"), {QStringLiteral("/p/a.mdb")}));
    QCOMPARE(testing::readAll(dir.path(QStringLiteral("CallHistory.csv"))),
             QByteArray("\"More files ..\"\r\n\"/p/b.mdb\"\r\n\"/p/a.mdb\"\r\n"));
    QCOMPARE(LoadHistory(dir.path()), QStringList({"/p/b.mdb", "/p/a.mdb"}));
}

void ProjectHistoryTest::reselectedProjectMovesToTheTop() {
    testing::TempDir dir;
    const QStringList before{"/p/c.mdb", "/p/B.mdb", "/p/a.mdb"};
    QVERIFY(SaveHistory(dir.path(), QStringLiteral("/p/b.mdb"), before));
    QCOMPARE(LoadHistory(dir.path()), QStringList({"/p/b.mdb", "/p/c.mdb", "/p/a.mdb"}));
}

void ProjectHistoryTest::tenthEntryFallsOffOnSave() {
    testing::TempDir dir;
    QStringList ten;
    for (int i = 10; i >= 1; --i)
        ten << QStringLiteral("/p/%1.mdb").arg(i);
    QVERIFY(SaveHistory(dir.path(), QStringLiteral("/p/new.mdb"), ten));
    const QStringList after = LoadHistory(dir.path());
    QCOMPARE(after.size(), 10);
    QCOMPARE(after.first(), QStringLiteral("/p/new.mdb"));
    QCOMPARE(after.last(), QStringLiteral("/p/2.mdb"));
}

void ProjectHistoryTest::projectExists() {
    testing::TempDir dir;
    const QString file = dir.write(QStringLiteral("Bill.mdb"), "x");
    QVERIFY(ProjectExists(file));
    QVERIFY(!ProjectExists(dir.path(QStringLiteral("Gone.mdb"))));
    QVERIFY(!ProjectExists(dir.path()));
    QVERIFY(!ProjectExists(QString()));
}

void ProjectHistoryTest::longPathsAreShortenedFolderByFolder() {
    const QString path = QStringLiteral("/srv-finance-share/accounts/bills/2012/bill.mdb");
    const auto fitsIn = [](int n) { return [n](const QString& s) { return s.size() <= n; }; };
    QCOMPARE(shortenPath(path, fitsIn(100)), path);
    QCOMPARE(shortenPath(path, fitsIn(40)), QStringLiteral("/sr.../accounts/bills/2012/bill.mdb"));
    QCOMPARE(shortenPath(path, fitsIn(30)), QStringLiteral("/sr.../bills/2012/bill.mdb"));
    // When nothing fits, the file name stays.
    QCOMPARE(shortenPath(path, fitsIn(5)), QStringLiteral("/sr.../bill.mdb"));
}

VANTREL_TEST(ProjectHistoryTest);
#include "tst_projecthistory.moc"
