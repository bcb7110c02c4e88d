#include "TempDir.h"
#include "TestRegistry.h"
#include "data/Database.h"
#include "data/Stores.h"

#include <QTest>

class TrendTableTest : public QObject {
    Q_OBJECT
private slots:
    void createsAllColumnsInOrder();
};

void TrendTableTest::createsAllColumnsInOrder() {
    Database db = Database::openMemory();
    CreateTrendTable(db);
    const QStringList cols = db.columnNames(QStringLiteral("tblSummaryTrend"));
    QCOMPARE(cols.size(), 82);
    QCOMPARE(cols.first(), QStringLiteral("BillDate"));
    QCOMPARE(cols.last(), QStringLiteral("One Off Other"));
}

VANTREL_TEST(TrendTableTest);
#include "tst_trendtable.moc"
