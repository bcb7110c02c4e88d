// The budget object: the checks of a save and their order, a master's dates and sums, saving
// as one transaction, and a master's dates edited across its family.
#include "BudgetStores.h"
#include "TestRegistry.h"
#include "budget/BudgetErrors.h"
#include "budget/BudgetRename.h"
#include "budget/MasterDatesEdit.h"

#include <QTest>

using namespace testing;

class BudgetModelTest : public QObject {
    Q_OBJECT
private slots:
    void saveChecks_data();
    void saveChecks();
    void datesOfAMaster();
    void aMasterShowsTheSumsOfItsChildren();
    void savesAndFailedSaves();
    void masterDatesEdit();
    void renaming();
};

// Names with quotes throughout: master "M" has one child "Q'1" for "R&D 'North'", whose
// dates are the family's; master "O'Brien" of another account has a date of its own.
void BudgetModelTest::saveChecks_data() {
    QTest::addColumn<QString>("under"); // null: a new master
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("withDates");
    QTest::addColumn<QString>("costCentre");
    QTest::addColumn<int>("status");
    const QString none, m = QStringLiteral("M"), other = QStringLiteral("O'Brien"),
                        taken = QStringLiteral("R&D 'North'");
    QTest::newRow("master") << none << "Fresh" << true << none << 0;
    QTest::newRow("master without dates") << none << "Fresh" << false << none << 6;
    QTest::newRow("master title of another account, in another case")
        << none << "O'BRIEN" << true << none << 4;
    QTest::newRow("master title before dates") << none << "O'Brien" << false << none << 4;
    QTest::newRow("a child's title is free for a master") << none << "Q'1" << true << none << 0;
    QTest::newRow("cost centre") << m << "New" << true << "Sales" << 0;
    QTest::newRow("cost centre without dates") << m << "New" << false << "Sales" << 6;
    QTest::newRow("cost centre taken, in another case") << m << "New" << true << "r&d 'NORTH'" << 5;
    QTest::newRow("title taken, in another case") << m << "q'1" << true << "Sales" << 4;
    QTest::newRow("title before dates") << m << "Q'1" << false << taken << 4;
    QTest::newRow("dates before cost centre") << m << "New" << false << taken << 6;
    QTest::newRow("a master's title is free under another") << m << "O'Brien" << true << "Sales" << 0;
    QTest::newRow("cost centre taken under another master") << other << "New" << true << taken << 0;
}

void BudgetModelTest::saveChecks() {
    QFETCH(QString, under);
    QFETCH(QString, title);
    QFETCH(bool, withDates);
    QFETCH(QString, costCentre);
    QFETCH(int, status);
    BudgetStores s;
    const int m = s.master(QStringLiteral("M"));
    const int child = s.child(m, QStringLiteral("Q'1"), QStringLiteral("R&D 'North'"));
    const int other = s.master(QStringLiteral("O'Brien"), 2, QStringLiteral("ACC'2"));
    s.entry(other, d(1, 15));
    clsBudget b(s.budgetDb, s.trendDb);
    if (under.isNull()) {
        b.CreateMaster(Account, 1);
        b.setName(title);
        if (withDates)
            QCOMPARE(b.AddDate(d(1, 15), {}, {}, {}, {}), 0);
    } else {
        if (withDates)
            s.entry(child, d(1, 15), money("5"));
        QCOMPARE(b.CreateFromMaster(under == QLatin1String("M") ? m : other, title, costCentre), 0);
    }
    const QString before = s.budgetDump();
    QCOMPARE(b.SaveBudget(false), status);
    if (status != 0) {
        QCOMPARE(b.ID(), -1);
        QCOMPARE(s.budgetDump(), before);
        return;
    }
    clsBudget saved(s.budgetDb, s.trendDb); // a new cost-centre budget's amounts are 0
    saved.LoadBudget(b.ID());
    QCOMPARE(QStringList({saved.Name(), saved.CostCentre()}) + entriesOf(saved),
             (QStringList{title, costCentre, "2023-01-15:0/0/0/0"}));
    // Once saved, a cost-centre budget finds its own cost centre taken.
    QCOMPARE(b.SaveBudget(false), under.isNull() ? 0 : 5);
}

// Dates stay ascending and carry their amounts; only a master takes dates, twelve at most.
void BudgetModelTest::datesOfAMaster() {
    BudgetStores s;
    clsBudget b(s.budgetDb, s.trendDb);
    b.Clear(); // a cleared budget is a cost-centre budget
    QCOMPARE(b.AddDate(d(1, 1), {}, {}, {}, {}), 3);
    b.CreateMaster(Account, 1);
    for (unsigned month : {4u, 2u, 3u, 1u, 3u}) // one date twice is allowed
        QCOMPARE(b.AddDate(d(month, 15), Money::fromPounds(month), {}, {}, {}), 0);
    QCOMPARE(b.AddDate(QStringLiteral("31/05/2023"), QStringLiteral("dd/mm/yyyy"), money("1.5"), money("2"),
                       money("-3"), money("0.0004")),
             0);
    QCOMPARE(entriesOf(b),
             (QStringList{"2023-01-15:1/0/0/0", "2023-02-15:2/0/0/0", "2023-03-15:3/0/0/0",
                          "2023-03-15:3/0/0/0", "2023-04-15:4/0/0/0", "2023-05-31:1.5/2/-3/0.0004"}));
    QCOMPARE(b.AddDate(QStringLiteral("31/02/2023"), QStringLiteral("dd/mm/yyyy"), {}, {}, {}, {}), 3);
    while (b.EntryCount() < 12)
        QCOMPARE(b.AddDate(d(12, 1), {}, {}, {}, {}), 0);
    QCOMPARE(b.AddDate(d(12, 2), {}, {}, {}, {}), 3);
    QVERIFY_THROWS_EXCEPTION(BudgetSubscriptError, b.Entry(0));
    QVERIFY_THROWS_EXCEPTION(BudgetSubscriptError, b.setEntry(13, clsBudgetCostEntry()));
}

// Sums worked by hand. A master's own rows stop counting once it has children; a date of
// one child only still shows; another master's child does not count.
void BudgetModelTest::aMasterShowsTheSumsOfItsChildren() {
    BudgetStores s;
    const int m = s.master(QStringLiteral("M"));
    s.entry(m, d(1, 15), money("1000"));
    s.entry(m, d(3, 15), money("1000"));
    const int a = s.child(m, QStringLiteral("A"), QStringLiteral("Sales"));
    const int b = s.child(m, QStringLiteral("B"), QStringLiteral("O'Hara"));
    s.entry(a, d(2, 15), money("20.25"), money("3"), money("-1.5"), money("0.0001"));
    s.entry(a, d(1, 15), money("10.10"), money("2"));
    s.entry(b, d(1, 15), money("5.05"), money("4"), money("7"), money("-2"));
    s.entry(b, d(2, 15), money("0.75"), {}, money("1.5"), money("0.0002"));
    s.entry(b, d(4, 15), money("1"));
    s.entry(s.child(s.master(QStringLiteral("N")), QStringLiteral("X"), QStringLiteral("Sales")), d(1, 15),
            money("99"));
    // Two budgets of one cost centre can only come from outside the model; it is named once.
    s.child(m, QStringLiteral("C"), QStringLiteral("Sales"));
    const int whole = s.master(QStringLiteral("Whole"), 0);
    s.entry(whole, d(2, 15), money("20"), money("2"));
    s.entry(whole, d(1, 15), money("10"), money("1"), money("0.1"), money("0.01"));
    clsBudget budget(s.budgetDb, s.trendDb);
    budget.LoadBudget(m);
    QCOMPARE(entriesOf(budget),
             (QStringList{"2023-01-15:15.15/6/7/-2", "2023-02-15:21/3/0/0.0003", "2023-04-15:1/0/0/0"}));
    QCOMPARE(budget.GetChildCCs(), (QStringList{"Sales", "O'Hara"}));
    budget.LoadBudget(whole); // no children: its own rows
    QCOMPARE(entriesOf(budget), (QStringList{"2023-01-15:10/1/0.1/0.01", "2023-02-15:20/2/0/0"}));
    budget.LoadBudget(b); // a child: its own rows, and no children
    QCOMPARE(entriesOf(budget),
             (QStringList{"2023-01-15:5.05/4/7/-2", "2023-02-15:0.75/0/1.5/0.0002", "2023-04-15:1/0/0/0"}));
    QVERIFY(budget.GetChildCCs().isEmpty());
}

// Saving again replaces a budget's entries. A trigger fails an entry's insert, after the
// budget's row was written and its old entries deleted: the store stays as it was.
void BudgetModelTest::savesAndFailedSaves() {
    BudgetStores s;
    s.trendRow(Account, d(1, 14), QStringLiteral("0100"));
    s.budgetDb.execScript(QStringLiteral("CREATE TRIGGER fail BEFORE INSERT ON tblBudgetEntry WHEN "
                                         "NEW.Usage = 6660000 BEGIN SELECT RAISE(ABORT, 'forced'); END;"));
    clsBudget b(s.budgetDb, s.trendDb);
    b.CreateMaster(Account, 3);
    b.setName(QStringLiteral("Plan"));
    for (unsigned month : {1u, 2u, 3u})
        b.AddDate(d(month, 15), money(month == 2 ? "666" : "1"), {}, {}, {});
    QVERIFY_THROWS_EXCEPTION(DbError, b.SaveBudget(false));
    QCOMPARE(b.ID(), -1);
    QCOMPARE(s.budgetDump(), QString());
    b.Entry(2).Usage = money("2");
    QCOMPARE(b.SaveBudget(false), 0); // the store still works
    QCOMPARE(queryInt(s.budgetDb, QStringLiteral("SELECT COUNT(*) FROM tblBudget WHERE Created = ?"),
                      Date::today()),
             1);
    clsBudget edit(s.budgetDb, s.trendDb);
    edit.LoadBudget(b.ID());
    QCOMPARE(edit.Entry(1).BillDate, d(1, 14));
    edit.Entry(2).Adjustments = money("-4.5");
    QCOMPARE(edit.SaveBudget(false), 0);
    QCOMPARE(s.entries(b.ID()),
             (QStringList{"2023-01-15:1/0/0/0", "2023-02-15:2/0/0/-4.5", "2023-03-15:1/0/0/0"}));
    const QString before = s.budgetDump();
    edit.setName(QStringLiteral("Renamed"));
    edit.Entry(1).Usage = money("2");
    edit.Entry(3).Usage = money("666");
    QVERIFY_THROWS_EXCEPTION(DbError, edit.SaveBudget(false));
    QCOMPARE(s.budgetDump(), before);
    QVERIFY(!s.budgetDb.inTransaction());
    QCOMPARE(edit.ID(), b.ID());
    // A budget whose row has gone is written anew.
    s.budgetDb.exec(QStringLiteral("DELETE FROM tblBudget"));
    edit.Entry(3).Usage = money("3");
    QCOMPARE(edit.SaveBudget(false), 0);
    QCOMPARE(queryInt(s.budgetDb, QStringLiteral("SELECT COUNT(*) FROM tblBudget")), 1);
    QCOMPARE(s.entries(edit.ID()).size(), 3);
    QVERIFY_THROWS_EXCEPTION(BudgetNotFoundError, edit.LoadBudget(42));
    QVERIFY_THROWS_EXCEPTION(BudgetNotFoundError, edit.CreateFromMaster(42, QString(), QString()));
}

// Master and child hold 15 Jan, 15 Feb, 15 Mar (child usage 1, 2, 3); slots apply one
// after the other.
void BudgetModelTest::masterDatesEdit() {
    BudgetStores s;
    const int m = s.master(QStringLiteral("M"));
    const int child = s.child(m, QStringLiteral("A"), QStringLiteral("Sales"));
    const int other = s.master(QStringLiteral("N"));
    for (unsigned month : {1u, 2u, 3u}) {
        s.entry(m, d(month, 15));
        s.entry(child, d(month, 15), Money::fromPounds(month));
        s.entry(other, d(month, 15));
    }
    QString before = s.budgetDump();
    for (int notAMaster : {child, 555})
        QCOMPARE(editMasterDates(s.budgetDb, notAMaster, {d(2, 15)}), 3);
    QCOMPARE(editMasterDates(s.budgetDb, m, QList<Date>(13, d(2, 15))), 3);
    QCOMPARE(s.budgetDump(), before);
    // Period 2 moves to the 20th, period 3 is no longer ticked, two new ones come with zeros.
    QCOMPARE(editMasterDates(s.budgetDb, m, {d(1, 15), d(2, 20), Date(), d(4, 15), d(5, 15)}), 0);
    QCOMPARE(s.entries(child), (QStringList{"2023-01-15:1/0/0/0", "2023-02-20:2/0/0/0", "2023-04-15:0/0/0/0",
                                            "2023-05-15:0/0/0/0"}));
    QCOMPARE(s.entries(m).size(), 4);
    QCOMPARE(s.entries(other).size(), 3);
    // 15 Jan onto 20 Feb, then 20 Feb on to 15 Apr, carries both rows along.
    QCOMPARE(editMasterDates(s.budgetDb, m, {d(2, 20), d(4, 15), d(4, 15), d(5, 15)}), 0);
    QCOMPARE(s.entries(child), (QStringList{"2023-04-15:1/0/0/0", "2023-04-15:2/0/0/0", "2023-04-15:0/0/0/0",
                                            "2023-05-15:0/0/0/0"}));
    // A failure part way leaves every slot as it was.
    before = s.budgetDump();
    s.budgetDb.execScript(QStringLiteral("CREATE TRIGGER fail BEFORE INSERT ON tblBudgetEntry "
                                         "BEGIN SELECT RAISE(ABORT, 'forced'); END;"));
    QVERIFY_THROWS_EXCEPTION(DbError,
                             editMasterDates(s.budgetDb, m, {d(1, 20), d(2, 15), d(3, 1), d(4, 1), d(5, 1)}));
    QCOMPARE(s.budgetDump(), before);
}

// A child's name is typed with its master's prefix, which the stored title loses wherever it
// stands, as it loses quotes; a title in use is no bar; a child whose master is gone is refused.
void BudgetModelTest::renaming() {
    BudgetStores s;
    const int alpha = s.master(QStringLiteral("Alpha's"));
    const int child = s.child(alpha, QStringLiteral("Old"), QStringLiteral("Sales"));
    s.child(alpha, QStringLiteral("Taken"), QStringLiteral("Support"));
    const int orphan = s.child(999, QStringLiteral("Lost"), QStringLiteral("Sales"));
    clsBudget b(s.budgetDb, s.trendDb);
    const auto rename = [&](int id, const QString& typed) {
        const int status = renameBudget(s.budgetDb, id, typed).status;
        b.LoadBudget(id);
        return QString::number(status) + QLatin1Char(' ') + b.Name();
    };
    QCOMPARE(rename(child, QStringLiteral("Alphas.NewAlphas.er")), QStringLiteral("0 Newer"));
    QCOMPARE(rename(child, QStringLiteral("Alpha's.Taken")), QStringLiteral("0 Taken"));
    QCOMPARE(rename(alpha, QStringLiteral("Alpha.O'Neill")), QStringLiteral("0 Alpha.ONeill"));
    QCOMPARE(rename(alpha, QString(55, QLatin1Char('x'))),
             QStringLiteral("0 ") + QString(50, QLatin1Char('x')));
    QCOMPARE(rename(orphan, QStringLiteral(".Found")), QStringLiteral("3 Lost"));
    QCOMPARE(renameBudget(s.budgetDb, 12345, QStringLiteral("x")).status, 3);
}

VANTREL_TEST(BudgetModelTest);
#include "tst_budgetmodel.moc"
