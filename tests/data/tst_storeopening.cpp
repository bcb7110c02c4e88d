#include "StoreFixture.h"
#include "TestRegistry.h"
#include "app/Startup.h"
#include "data/Database.h"
#include "data/Stores.h"

#include <QFile>
#include <QTest>

class StoreOpeningTest : public QObject {
    Q_OBJECT
private slots:
    void allStoresPresentOpenWithoutMessage();
    void firstStartCopiesBothTemplates();
    void unreadableStoreIsSetAsideAndOnlyItIsRestored_data();
    void unreadableStoreIsSetAsideAndOnlyItIsRestored();
    void missingStoreEndsTheProgram_data();
    void missingStoreEndsTheProgram();
    void lockedStoreIsLeftAlone();
};

void StoreOpeningTest::allStoresPresentOpenWithoutMessage() {
    StoreFixture f;
    f.writeAllStores();
    QVERIFY(startInstallation(f.ctx, f.paths()));
    QVERIFY(f.dialogs.messages.empty());
    QVERIFY(f.ctx.budgetDb.isOpen() && f.ctx.trendDb.isOpen() && f.ctx.costCentreDb.isOpen() &&
            f.ctx.telDb.isOpen());
    QCOMPARE(f.ctx.version, programVersion());
}

void StoreOpeningTest::firstStartCopiesBothTemplates() {
    StoreFixture f;
    f.writeStore(StoreFile::CostCentres, QStringLiteral("costcentres"));
    f.writeStore(StoreFile::Telephones, QStringLiteral("tel"));
    QVERIFY(startInstallation(f.ctx, f.paths()));
    QVERIFY(f.dialogs.messages.empty());
    QVERIFY(QFile::exists(f.appFile(StoreFile::Budgets)));
    QVERIFY(QFile::exists(f.appFile(StoreFile::Trend)));
    QVERIFY(f.ctx.budgetDb.tableExists(QStringLiteral("tblBudgetEntry")));
    QVERIFY(f.ctx.trendDb.tableExists(QStringLiteral("tblSummaryTrend")));
    // Nothing was there to keep, so nothing was set aside.
    QVERIFY(f.appFilesStartingWith(QStringLiteral("budgets.mdb.unreadable")).isEmpty());
}

void StoreOpeningTest::unreadableStoreIsSetAsideAndOnlyItIsRestored_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("not a database") << QByteArray(4096, '\xA5');
    QTest::newRow("zero length") << QByteArray();
    QTest::newRow("text file") << QByteArray("AppFolder=/tmp\r\n");
    testing::TempDir dir;
    const QString other = dir.path(QStringLiteral("other.mdb"));
    Database::open(other, Database::Mode::ReadWriteCreate).execScript(QStringLiteral("CREATE TABLE t (x)"));
    QTest::newRow("a database without the tables") << testing::readAll(other);
}

void StoreOpeningTest::unreadableStoreIsSetAsideAndOnlyItIsRestored() {
    QFETCH(QByteArray, content);
    StoreFixture f;
    f.writeAllStores();
    {
        // The trend store holds a row that must survive the budget store's restore.
        Database trend = Database::open(f.appFile(StoreFile::Trend));
        trend.exec(QStringLiteral("INSERT INTO tblSummaryTrend (BillDate, BillAccount) VALUES (?, ?)"),
                   Date(2012, 1, 31), QStringLiteral("ACC1"));
    }
    f.dir.write(QStringLiteral("app/budgets.mdb"), content);

    QVERIFY(startInstallation(f.ctx, f.paths()));
    QVERIFY(f.dialogs.messages.empty());
    QVERIFY(f.ctx.budgetDb.tableExists(QStringLiteral("tblBudget")));
    QCOMPARE(queryInt(f.ctx.budgetDb, QStringLiteral("SELECT count(*) FROM tblBudget")), 0);
    QCOMPARE(queryInt(f.ctx.trendDb, QStringLiteral("SELECT count(*) FROM tblSummaryTrend")), 1);

    const QStringList aside = f.appFilesStartingWith(QStringLiteral("budgets.mdb.unreadable-"));
    QCOMPARE(aside.size(), 1);
    QCOMPARE(testing::readAll(f.appFile(aside.first())), content);
    QVERIFY(f.appFilesStartingWith(QStringLiteral("trend.mdb.unreadable")).isEmpty());
}

void StoreOpeningTest::missingStoreEndsTheProgram_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("templateFile"); // removed as well
    QTest::newRow("trend store and its template") << StoreFile::Trend << StoreFile::TrendTemplate;
    // The shared stores are never restored.
    QTest::newRow("telephones") << StoreFile::Telephones << QString();
    QTest::newRow("cost centres") << StoreFile::CostCentres << QString();
}

void StoreOpeningTest::missingStoreEndsTheProgram() {
    QFETCH(QString, file);
    QFETCH(QString, templateFile);
    StoreFixture f;
    f.writeAllStores();
    QFile::remove(f.appFile(file));
    if (!templateFile.isEmpty())
        QFile::remove(f.systemFile(templateFile));
    QVERIFY(!startInstallation(f.ctx, f.paths()));
    QCOMPARE(f.dialogs.messages.size(), size_t(1));
    QCOMPARE(f.dialogs.messages[0].icon, MessageIcon::Critical);
    // Which file failed is in the box's details and in the error log, not in its text.
    QVERIFY(f.dialogs.lastText().startsWith(QStringLiteral("Required files are missing")));
    const QString named = templateFile.isEmpty() ? file : templateFile;
    QVERIFY(f.dialogs.messages[0].details.contains(named));
    QVERIFY(testing::readAll(f.appFile(QStringLiteral("VantrelError.log"))).contains(named.toUtf8()));
    QVERIFY(!QFile::exists(f.appFile(file)));
    // The budget store that opened well is untouched.
    QVERIFY(f.appFilesStartingWith(QStringLiteral("budgets.mdb.")).isEmpty());
}

void StoreOpeningTest::lockedStoreIsLeftAlone() {
    StoreFixture f;
    f.writeAllStores();
    Database holder = Database::open(f.appFile(StoreFile::Budgets));
    holder.execScript(QStringLiteral("BEGIN EXCLUSIVE"));
    holder.exec(QStringLiteral("INSERT INTO tblBudget (Title) VALUES ('held')"));

    QVERIFY(!startInstallation(f.ctx, f.paths()));
    QVERIFY(f.dialogs.messages.back().details.contains(QStringLiteral("in use by another program")));
    QVERIFY(f.appFilesStartingWith(QStringLiteral("budgets.mdb.unreadable")).isEmpty());
    holder.execScript(QStringLiteral("COMMIT"));
    QCOMPARE(queryInt(holder, QStringLiteral("SELECT count(*) FROM tblBudget")), 1);
}

VANTREL_TEST(StoreOpeningTest);
#include "tst_storeopening.moc"
