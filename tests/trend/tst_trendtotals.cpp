// The bill totals kept beside the trend rows, against a small independent query of the
// rows: written with each gathering, unchanged by a cancelled one, removed with the
// entry, and built at start for a store an older version wrote.
#include "TempDir.h"
#include "TestRegistry.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "data/Stores.h"
#include "data/TrendTotals.h"
#include "tools/DemoGenerator.h"
#include "trend/TrendGathering.h"
#include "trend/TrendList.h"

#include <QTest>

namespace {

const QString Account = QStringLiteral("TOT01");

// Each bill's totals beside the same figures summed from its rows; the product totals
// beside the rows' pre-tax cost summed per code without regard to case.
QStringList totalsAndRows(Database& db) {
    const QString figures = QStringLiteral("\"Usage Charges\", \"Line Rental\", \"PreTax Cost\"");
    QStringList out;
    for (const QString& sql :
         {QStringLiteral("SELECT BillDate, \"Rows\", %1 FROM TblTrendTotals ORDER BY BillDate").arg(figures),
          QStringLiteral("SELECT BillDate, count(*), SUM(\"Usage Charges\"), SUM(\"Line Rental\"), "
                         "SUM(\"PreTax Cost\") FROM TblSummaryTrend GROUP BY BillDate ORDER BY BillDate"),
          QStringLiteral(
              "SELECT BillDate, upper(\"Product Code\"), \"PreTax Cost\" FROM TblTrendProductTotals "
              "ORDER BY 1, 2"),
          QStringLiteral(
              "SELECT BillDate, upper(\"Product Code\"), SUM(\"PreTax Cost\") FROM TblSummaryTrend "
              "GROUP BY 1, 2 ORDER BY 1, 2")}) {
        Statement st(db, sql);
        QStringList rows;
        while (st.step()) {
            QStringList cells;
            for (int c = 0; c < st.columnCount(); ++c)
                cells << st.text(c);
            rows << cells.join(QLatin1Char('|'));
        }
        out << rows.join(QLatin1Char('\n'));
    }
    return out;
}

int billCount(Database& db) {
    return int(queryInt(db, QStringLiteral("SELECT count(*) FROM TblTrendTotals")));
}

} // namespace

class TrendTotalsTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void totalsFollowGatheringAndDeleting();
    void olderStoreGetsItsTotalsAtStart_data();
    void olderStoreGetsItsTotalsAtStart();

private:
    testing::TempDir dir_;
    RecordingDialogService dialogs_;
    std::unique_ptr<AppContext> ctx_;
    QString january_, february_;
};

void TrendTotalsTest::init() {
    ctx_ = std::make_unique<AppContext>(dialogs_);
    ctx_->trendDb = Database::openMemory();
    CreateTrendTable(ctx_->trendDb);
    if (january_.isEmpty()) {
        january_ = dir_.path(QStringLiteral("jan.mdb"));
        february_ = dir_.path(QStringLiteral("feb.mdb"));
        writeDemoProject(january_, Account, Date(2024, 1, 31), 9000, 7); // past the first progress step
        writeDemoProject(february_, Account, Date(2024, 2, 29), 400, 8);
    }
}

void TrendTotalsTest::totalsFollowGatheringAndDeleting() {
    Database& trend = ctx_->trendDb;
    for (const QString& path : {january_, february_}) {
        Database project = Database::open(path, Database::Mode::ReadOnly);
        QVERIFY(GatherTrend(*ctx_, project).ok());
    }
    QStringList both = totalsAndRows(trend);
    QCOMPARE(billCount(trend), 2);
    QCOMPARE(both[0], both[1]);
    QCOMPARE(both[2], both[3]);

    // A cancelled gathering of January again leaves both bills' totals as they were;
    // a finished one replaces January's with the same.
    Database january = Database::open(january_, Database::Mode::ReadOnly);
    QCOMPARE(GatherTrend(*ctx_, january, [](qint64, qint64) { return false; }).status,
             GatherResult::Status::Cancelled);
    QCOMPARE(totalsAndRows(trend), both);
    QVERIFY(GatherTrend(*ctx_, january).ok());
    QCOMPARE(totalsAndRows(trend), both);

    deleteTrendEntry(trend, Account, Date(2024, 1, 31));
    const QStringList february = totalsAndRows(trend);
    QCOMPARE(billCount(trend), 1);
    QCOMPARE(february[0], february[1]);
    QCOMPARE(february[2], february[3]);
    deleteAllTrendEntries(trend, Account);
    QCOMPARE(billCount(trend), 0);
    QCOMPARE(queryInt(trend, QStringLiteral("SELECT count(*) FROM TblTrendProductTotals")), 0);
}

void TrendTotalsTest::olderStoreGetsItsTotalsAtStart_data() {
    QTest::addColumn<QString>("olderStore"); // what an older version left behind
    QTest::newRow("no totals tables") << "DROP TABLE TblTrendTotals; DROP TABLE TblTrendProductTotals;";
    QTest::newRow("a bill it gathered without totals")
        << "DELETE FROM TblTrendTotals WHERE BillDate > '2024-02'; "
           "DELETE FROM TblTrendProductTotals;";
    QTest::newRow("Null amounts, zeroed at start") << "UPDATE TblSummaryTrend SET \"Line Rental\" = NULL; "
                                                      "UPDATE TblTrendTotals SET \"Line Rental\" = NULL;";
}

void TrendTotalsTest::olderStoreGetsItsTotalsAtStart() {
    QFETCH(QString, olderStore);
    Database& trend = ctx_->trendDb;
    for (const QString& path : {january_, february_}) {
        Database project = Database::open(path, Database::Mode::ReadOnly);
        QVERIFY(GatherTrend(*ctx_, project).ok());
    }
    trend.execScript(olderStore);
    // As the program starts: Nulls become 0, then the totals are checked.
    ZeroNullTrendColumns(trend);
    ensureTrendTotals(trend);
    const QStringList after = totalsAndRows(trend);
    QCOMPARE(billCount(trend), 2);
    QCOMPARE(after[0], after[1]);
    QCOMPARE(after[2], after[3]);
    QVERIFY(!after[0].contains(QLatin1String("||")));
}

VANTREL_TEST(TrendTotalsTest);
#include "tst_trendtotals.moc"
