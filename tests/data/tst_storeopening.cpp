#include "StoreFixture.h"
#include "TestRegistry.h"
#include "app/Startup.h"
#include "data/Database.h"
#include "data/Stores.h"

#include <QFile>
#include <QTest>

namespace {

QByteArray garbage() {
    QByteArray bytes;
    for (int i = 0; i < 4096; ++i)
        bytes.append(char((i * 7919 + 13) % 251));
    return bytes;
}

int budgetCount(Database& db) {
    return int(queryInt(db, QStringLiteral("SELECT count(*) FROM tblBudget")));
}

} // namespace

class StoreOpeningTest : public QObject {
    Q_OBJECT
private slots:
    void allStoresPresentOpenWithoutMessage();
    void firstStartCopiesBothTemplates();
    void unreadableStoreIsSetAsideAndOnlyItIsRestored_data();
    void unreadableStoreIsSetAsideAndOnlyItIsRestored();
    void missingStoreAndTemplateEndsTheProgram();
    void missingSharedStoreIsNeverRestored_data();
    void missingSharedStoreIsNeverRestored();
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
    QTest::newRow("random bytes") << garbage();
    QTest::newRow("zero length") << QByteArray();
    QTest::newRow("text file") << QByteArray("AppFolder=/tmp\r\n");
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
    QCOMPARE(budgetCount(f.ctx.budgetDb), 0);
    QCOMPARE(queryInt(f.ctx.trendDb, QStringLiteral("SELECT count(*) FROM tblSummaryTrend")), 1);

    const QStringList aside = f.appFilesStartingWith(QStringLiteral("budgets.mdb.unreadable-"));
    QCOMPARE(aside.size(), 1);
    QCOMPARE(testing::readAll(f.appFile(aside.first())), content);
    QVERIFY(f.appFilesStartingWith(QStringLiteral("trend.mdb.unreadable")).isEmpty());
}

void StoreOpeningTest::missingStoreAndTemplateEndsTheProgram() {
    StoreFixture f;
    f.writeAllStores();
    QFile::remove(f.appFile(StoreFile::Trend));
    QFile::remove(f.systemFile(StoreFile::TrendTemplate));
    QVERIFY(!startInstallation(f.ctx, f.paths()));
    QCOMPARE(f.dialogs.messages.size(), size_t(1));
    QCOMPARE(f.dialogs.messages[0].icon, MessageIcon::Critical);
    // The box says exactly this; which file failed is in its details and in the error log.
    QCOMPARE(
        f.dialogs.lastText(),
        QStringLiteral("Required files are missing, please ensure Meridane is installed in the same folder.\n"
                       "Program can not continue."));
    QVERIFY(f.dialogs.messages[0].details.contains(QStringLiteral("trend.bak")));
    QVERIFY(testing::readAll(f.appFile(QStringLiteral("VantrelError.log"))).contains("trend.bak"));
    // The budget store that opened well is untouched.
    QVERIFY(f.appFilesStartingWith(QStringLiteral("budgets.mdb.")).isEmpty());
}

void StoreOpeningTest::missingSharedStoreIsNeverRestored_data() {
    QTest::addColumn<QString>("file");
    QTest::newRow("telephones") << StoreFile::Telephones;
    QTest::newRow("cost centres") << StoreFile::CostCentres;
}

void StoreOpeningTest::missingSharedStoreIsNeverRestored() {
    QFETCH(QString, file);
    StoreFixture f;
    f.writeAllStores();
    QFile::remove(f.appFile(file));
    QVERIFY(!startInstallation(f.ctx, f.paths()));
    QCOMPARE(f.dialogs.messages.size(), size_t(1));
    QVERIFY(f.dialogs.lastText().startsWith(QStringLiteral("Required files are missing")));
    QVERIFY(!QFile::exists(f.appFile(file)));
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
    QCOMPARE(budgetCount(holder), 1);
}

VANTREL_TEST(StoreOpeningTest);
#include "tst_storeopening.moc"
