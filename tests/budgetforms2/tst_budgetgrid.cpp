// The budget editor's figures without a screen: reading a budget in the order its rows
// were made, the grid model's cells, and writing the figures back by row.
#include "BudgetFormsFixture.h"
#include "TestRegistry.h"
#include "budget/BudgetErrors.h"
#include "budget/BudgetGrid.h"
#include "budget/BudgetGridModel.h"

#include <QSignalSpy>
#include <QTest>

using namespace testing;

namespace {

const QString Account = QStringLiteral("ACC1");

// A child with three rows made out of date order: March, January, then February.
struct ThreePeriods {
    explicit ThreePeriods(BudgetFormsFixture& f) {
        masterId = f.master(QStringLiteral("Plan"), Account, 1);
        childId = f.child(masterId, QStringLiteral("North"), Account, 1, QStringLiteral("Sales"));
        march =
            f.entry(childId, Date(2023, 3, 1), pounds("1234.5"), pounds("20"), pounds("-3.25"), pounds("0"));
        january = f.entry(childId, Date(2023, 1, 1), pounds("100"), pounds("21"), pounds("0"), pounds("4"));
        february =
            f.entry(childId, Date(2023, 2, 1), pounds("0.01"), pounds("22"), pounds("0"), pounds("-5"));
    }
    int masterId, childId, march, january, february;
};

} // namespace

class BudgetGridTest : public QObject {
    Q_OBJECT
private slots:
    void loadsPeriodsInTheOrderTheyWereMade();
    void titleAndMasterFlag();
    void missingBudget();
    void aMasterShowsItsOwnRowsOnly();
    void modelHeadersAndUnusedColumns();
    void modelEditFollowsTheCellRules();
    void saveWritesEachFigureToItsRow();
    void saveIsOneTransaction();
};

void BudgetGridTest::loadsPeriodsInTheOrderTheyWereMade() {
    BudgetFormsFixture f;
    ThreePeriods b(f);
    const BudgetGrid grid = loadBudgetGrid(f.ctx.budgetDb, b.childId);
    QCOMPARE(grid.periods.size(), 3);
    QCOMPARE(grid.periods[0].dateId, b.march);
    QCOMPARE(grid.periods[1].dateId, b.january);
    QCOMPARE(grid.periods[2].dateId, b.february);
    QCOMPARE(grid.periods[0].date, Date(2023, 3, 1));
    QCOMPARE(grid.amount(BudgetCostType::Usage, 0).raw(), 12345000);
    QCOMPARE(grid.amount(BudgetCostType::OneOff, 0).raw(), -32500);
    QCOMPARE(grid.amount(BudgetCostType::Adjustments, 1).raw(), 40000);
    QCOMPARE(grid.amount(BudgetCostType::Recurring, 2).raw(), 220000);
}

void BudgetGridTest::titleAndMasterFlag() {
    BudgetFormsFixture f;
    ThreePeriods b(f);
    const BudgetGrid child = loadBudgetGrid(f.ctx.budgetDb, b.childId);
    // The earliest and latest dates, whatever the order of the rows.
    QCOMPARE(budgetGridTitle(child), QStringLiteral("North  (from 01/01/2023 to 01/03/2023)"));
    QVERIFY(!child.isMaster());
    const BudgetGrid master = loadBudgetGrid(f.ctx.budgetDb, b.masterId);
    QVERIFY(master.isMaster());
    QCOMPARE(budgetGridTitle(master), QStringLiteral("Plan  (from  to )"));
    QCOMPARE(master.periods.size(), 0);
}

void BudgetGridTest::missingBudget() {
    BudgetFormsFixture f;
    QVERIFY_THROWS_EXCEPTION(BudgetNotFoundError, loadBudgetGrid(f.ctx.budgetDb, 42));
}

void BudgetGridTest::aMasterShowsItsOwnRowsOnly() {
    BudgetFormsFixture f;
    const int whole = f.master(QStringLiteral("Whole"), Account, 0);
    f.entry(whole, Date(2023, 5, 1), pounds("7"));
    const int other = f.master(QStringLiteral("Other"), Account, 1);
    f.entry(other, Date(2023, 5, 1), pounds("9"));
    const BudgetGrid grid = loadBudgetGrid(f.ctx.budgetDb, whole);
    QCOMPARE(grid.periods.size(), 1);
    QCOMPARE(grid.amount(BudgetCostType::Usage, 0).raw(), 70000);
}

void BudgetGridTest::modelHeadersAndUnusedColumns() {
    BudgetFormsFixture f;
    ThreePeriods b(f);
    BudgetGridModel model;
    model.setGrid(loadBudgetGrid(f.ctx.budgetDb, b.childId));
    QCOMPARE(model.periodCount(), 3);
    QCOMPARE(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(),
             QStringLiteral("p1\n01/03/2023"));
    QCOMPARE(model.headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(),
             QStringLiteral("p2\n01/01/2023"));
    QCOMPARE(model.headerData(3, Qt::Horizontal, Qt::DisplayRole).toString(),
             QStringLiteral("p3\n01/02/2023"));
    QVERIFY(model.flags(model.index(0, 3)) & Qt::ItemIsEditable);
    QVERIFY(!(model.flags(model.index(0, 4)) & Qt::ItemIsEditable));
    QVERIFY(!(model.flags(model.index(0, 0)) & Qt::ItemIsEditable));
    QVERIFY(!model.setData(model.index(0, 4), QStringLiteral("5")));
    QVERIFY(model.data(model.index(0, 4), Qt::DisplayRole).isNull());
}

void BudgetGridTest::modelEditFollowsTheCellRules() {
    BudgetFormsFixture f;
    ThreePeriods b(f);
    BudgetGridModel model;
    model.setGrid(loadBudgetGrid(f.ctx.budgetDb, b.childId));
    QSignalSpy changed(&model, &BudgetGridModel::figureChanged);
    QVERIFY(model.setData(model.index(1, 2), QStringLiteral("£1,234.50")));
    QCOMPARE(model.grid().amount(BudgetCostType::Recurring, 1).raw(), 12345000);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed[0][0].toInt(), 1); // row
    QCOMPARE(changed[0][1].toInt(), 2); // period
    // The same value again is no change.
    QVERIFY(model.setData(model.index(1, 2), QStringLiteral("1234.5")));
    QCOMPARE(changed.size(), 1);
    QVERIFY(model.setData(model.index(0, 1), QStringLiteral("letters")));
    QCOMPARE(model.data(model.index(0, 1), Qt::DisplayRole).toString(), QStringLiteral("£0.00"));
    QCOMPARE(changed.size(), 2);
}

void BudgetGridTest::saveWritesEachFigureToItsRow() {
    BudgetFormsFixture f;
    ThreePeriods b(f);
    const int otherBudget =
        f.child(b.masterId, QStringLiteral("South"), Account, 1, QStringLiteral("Support"));
    const int otherRow =
        f.entry(otherBudget, Date(2023, 1, 1), pounds("1"), pounds("2"), pounds("3"), pounds("4"));
    BudgetGridModel model;
    model.setGrid(loadBudgetGrid(f.ctx.budgetDb, b.childId));
    model.setData(model.index(0, 1), QStringLiteral("10"));    // March usage
    model.setData(model.index(3, 2), QStringLiteral("-2.5"));  // January adjustments
    model.setData(model.index(2, 3), QStringLiteral("0.125")); // February one-off
    QCOMPARE(saveBudgetGrid(f.ctx.budgetDb, model.grid()), 3);
    QCOMPARE(f.entryAmounts(b.march), QStringLiteral("100000|200000|-32500|0"));
    QCOMPARE(f.entryAmounts(b.january), QStringLiteral("1000000|210000|0|-25000"));
    QCOMPARE(f.entryAmounts(b.february), QStringLiteral("100|220000|1250|-50000"));
    QCOMPARE(f.entryAmounts(otherRow), QStringLiteral("10000|20000|30000|40000"));
}

void BudgetGridTest::saveIsOneTransaction() {
    BudgetFormsFixture f;
    ThreePeriods b(f);
    BudgetGridModel model;
    model.setGrid(loadBudgetGrid(f.ctx.budgetDb, b.childId));
    for (int column = 1; column <= 3; ++column)
        model.setData(model.index(0, column), QStringLiteral("99"));
    // The last period's row refuses the write: the two written before it must go back.
    f.ctx.budgetDb.execScript(QStringLiteral("CREATE TRIGGER refuse BEFORE UPDATE ON tblBudgetEntry "
                                             "WHEN NEW.DateID = %1 BEGIN SELECT RAISE(ABORT, 'refused'); END")
                                  .arg(b.february));
    const QString before = f.budgetDump();
    QVERIFY_THROWS_EXCEPTION(DbError, saveBudgetGrid(f.ctx.budgetDb, model.grid()));
    QCOMPARE(f.budgetDump(), before);
}

VANTREL_TEST(BudgetGridTest);
#include "tst_budgetgrid.moc"
