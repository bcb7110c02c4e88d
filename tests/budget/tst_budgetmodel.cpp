// The budget object: its status codes and their order, its entries, and saving as one
// transaction.
#include "BudgetStores.h"
#include "TestRegistry.h"
#include "budget/BudgetErrors.h"
#include "budget/BudgetStatus.h"
#include "budget/clsBudget.h"

#include <QTest>

using namespace testing;

namespace {

const QString Account = QStringLiteral("ACC1");

Date d(int y, unsigned m, unsigned day) {
    return Date(y, m, day);
}

struct Amounts {
    Money usage, recurring, oneOff, adjustments;
};

Amounts amountsOf(const clsBudgetCostEntry& e) {
    return {e.Usage, e.Recurring, e.OneOff, e.Adjustments};
}

bool operator==(const Amounts& a, const Amounts& b) {
    return a.usage == b.usage && a.recurring == b.recurring && a.oneOff == b.oneOff &&
           a.adjustments == b.adjustments;
}

} // namespace

class BudgetModelTest : public QObject {
    Q_OBJECT
private slots:
    void costCentreSaveStatusesInTheirOrder_data();
    void costCentreSaveStatusesInTheirOrder();
    void masterSaveStatusesInTheirOrder_data();
    void masterSaveStatusesInTheirOrder();
    void titlesCompareWithoutCase();
    void addDateRefusals();
    void addDateKeepsDatesAscending();
    void addDateReadsTheGivenFormat();
    void deleteDate_data();
    void deleteDate();
    void deletingTheOnlyEntryIsASubscriptFailure();
    void entryOutsideTheLiveOnesIsASubscriptFailure();
    void nameKeepsFiftyCharacters();
    void newMasterIsStoredAsWritten();
    void masterWithoutChildrenLoadsItsOwnRows();
    void masterWithChildrenLoadsTheirSums();
    void childMissingADateDropsItFromTheMaster();
    void createFromMasterTakesDatesWithZeroAmounts();
    void secondBudgetForACostCentreIsRefused();
    void failedSaveLeavesTheStoreAsItWas();
    void failedFirstSaveWritesNothing();
    void saveOverALoadedBudgetReplacesItsEntries();
    void saveAsNewMakesAnotherRow();
    void loadingAMissingIdFails();
    void namesHoldingQuotes();
    void childListsOfAMaster();
};

void BudgetModelTest::costCentreSaveStatusesInTheirOrder_data() {
    QTest::addColumn<bool>("titleTaken");
    QTest::addColumn<bool>("withDates");
    QTest::addColumn<bool>("costCentreTaken");
    QTest::addColumn<int>("status");
    QTest::newRow("all well") << false << true << false << 0;
    QTest::newRow("no dates") << false << false << false << 6;
    QTest::newRow("cost centre taken") << false << true << true << 5;
    QTest::newRow("title before dates") << true << false << false << 4;
    QTest::newRow("title before cost centre") << true << true << true << 4;
    QTest::newRow("dates before cost centre") << false << false << true << 6;
}

// A new cost-centre budget under a master whose one child is "Taken" for "Sales"; the
// dates of the family are those of that child.
void BudgetModelTest::costCentreSaveStatusesInTheirOrder() {
    QFETCH(bool, titleTaken);
    QFETCH(bool, withDates);
    QFETCH(bool, costCentreTaken);
    QFETCH(int, status);
    BudgetStores s;
    const int masterId = s.master(QStringLiteral("M"), Account, 1);
    const int takenId = s.child(masterId, QStringLiteral("Taken"), Account, 1, QStringLiteral("Sales"));
    if (withDates)
        s.entry(takenId, d(2023, 1, 15), money("5"));

    clsBudget b(s.budgetDb, s.trendDb);
    QCOMPARE(b.CreateFromMaster(masterId, titleTaken ? QStringLiteral("Taken") : QStringLiteral("New"),
                                costCentreTaken ? QStringLiteral("Sales") : QStringLiteral("Marketing")),
             0);
    QCOMPARE(b.EntryCount(), withDates ? 1 : 0);
    const QString before = s.budgetDump();
    QCOMPARE(b.SaveBudget(false), status);
    if (status == 0) {
        QVERIFY(b.ID() > takenId);
        QCOMPARE(s.entryRows(b.ID()), 1);
    } else {
        QCOMPARE(b.ID(), -1);
        QCOMPARE(s.budgetDump(), before);
    }
}

void BudgetModelTest::masterSaveStatusesInTheirOrder_data() {
    QTest::addColumn<bool>("titleTaken");
    QTest::addColumn<bool>("withDates");
    QTest::addColumn<int>("status");
    QTest::newRow("all well") << false << true << 0;
    QTest::newRow("no dates") << false << false << 6;
    QTest::newRow("title taken") << true << true << 4;
    QTest::newRow("title before dates") << true << false << 4;
}

void BudgetModelTest::masterSaveStatusesInTheirOrder() {
    QFETCH(bool, titleTaken);
    QFETCH(bool, withDates);
    QFETCH(int, status);
    BudgetStores s;
    // Master titles are unique across the store, whatever the account.
    s.master(QStringLiteral("Existing"), QStringLiteral("OTHER"), 2);
    clsBudget b(s.budgetDb, s.trendDb);
    b.CreateMaster(Account, 1);
    b.setName(titleTaken ? QStringLiteral("Existing") : QStringLiteral("Fresh"));
    if (withDates)
        QCOMPARE(b.AddDate(d(2023, 1, 15), {}, {}, {}, {}), 0);
    QCOMPARE(b.SaveBudget(false), status);
}

// The store has always matched titles and cost centres without regard to case.
void BudgetModelTest::titlesCompareWithoutCase() {
    BudgetStores s;
    const int masterId = s.master(QStringLiteral("Budget 2023"), Account, 1);
    const int child = s.child(masterId, QStringLiteral("North"), Account, 1, QStringLiteral("Sales"));
    s.entry(child, d(2023, 1, 15));
    clsBudget m(s.budgetDb, s.trendDb);
    m.CreateMaster(Account, 1);
    m.setName(QStringLiteral("BUDGET 2023"));
    m.AddDate(d(2023, 1, 15), {}, {}, {}, {});
    QCOMPARE(m.SaveBudget(false), 4);
    clsBudget c(s.budgetDb, s.trendDb);
    c.CreateFromMaster(masterId, QStringLiteral("south"), QStringLiteral("SALES"));
    QCOMPARE(c.SaveBudget(false), 5);
    c.setName(QStringLiteral("NORTH"));
    QCOMPARE(c.SaveBudget(false), 4);
}

void BudgetModelTest::addDateRefusals() {
    BudgetStores s;
    clsBudget b(s.budgetDb, s.trendDb);
    // A cleared budget is a cost-centre budget: dates come from its master.
    b.Clear();
    QCOMPARE(b.AddDate(d(2023, 1, 1), {}, {}, {}, {}), 3);
    QCOMPARE(b.EntryCount(), 0);

    b.CreateMaster(Account, 1);
    for (int month = 1; month <= 12; ++month)
        QCOMPARE(b.AddDate(d(2023, unsigned(month), 15), {}, {}, {}, {}), 0);
    QCOMPARE(b.AddDate(d(2024, 1, 15), {}, {}, {}, {}), 3);
    QCOMPARE(b.EntryCount(), 12);
    QCOMPARE(b.Entry(12).SelectedDate, d(2023, 12, 15));

    b.CreateMaster(Account, 1);
    QCOMPARE(b.AddDate(QStringLiteral("31/02/2023"), QStringLiteral("dd/mm/yyyy"), {}, {}, {}, {}), 3);
    QCOMPARE(b.AddDate(Date(), {}, {}, {}, {}), 3);
    QCOMPARE(b.EntryCount(), 0);
}

void BudgetModelTest::addDateKeepsDatesAscending() {
    BudgetStores s;
    clsBudget b(s.budgetDb, s.trendDb);
    b.CreateMaster(Account, 1);
    const QList<Date> added = {d(2023, 2, 1), d(2023, 4, 1), d(2023, 3, 1), d(2023, 6, 1), d(2023, 5, 1)};
    for (int i = 0; i < added.size(); ++i)
        b.AddDate(added[i], Money::fromPounds(i + 1), {}, {}, {});
    // A sixth date earlier than all moves to the front with its amounts.
    b.AddDate(d(2022, 12, 1), Money::fromPounds(6), {}, {}, {});
    const QList<Date> expectedDates = {d(2022, 12, 1), d(2023, 2, 1), d(2023, 3, 1),
                                       d(2023, 4, 1),  d(2023, 5, 1), d(2023, 6, 1)};
    const QList<int> expectedPounds = {6, 1, 3, 2, 5, 4};
    QCOMPARE(b.EntryCount(), 6);
    for (int i = 1; i <= 6; ++i) {
        QCOMPARE(b.Entry(i).SelectedDate, expectedDates[i - 1]);
        QCOMPARE(b.Entry(i).Usage, Money::fromPounds(expectedPounds[i - 1]));
    }
    // Two entries of one date are allowed.
    QCOMPARE(b.AddDate(d(2023, 3, 1), {}, {}, {}, {}), 0);
    QCOMPARE(b.EntryCount(), 7);
}

void BudgetModelTest::addDateReadsTheGivenFormat() {
    BudgetStores s;
    clsBudget b(s.budgetDb, s.trendDb);
    b.CreateMaster(Account, 1);
    QCOMPARE(b.AddDate(QStringLiteral("31/01/2012"), QStringLiteral("dd/mm/yyyy"), money("1.5"), money("2"),
                       money("-3"), money("0.0004")),
             0);
    QCOMPARE(b.AddDate(QStringLiteral("20120215"), QStringLiteral("yyyymmdd"), {}, {}, {}, {}), 0);
    QCOMPARE(b.Entry(1).SelectedDate, d(2012, 1, 31));
    QCOMPARE(b.Entry(2).SelectedDate, d(2012, 2, 15));
    QCOMPARE(b.Entry(1).OneOff, money("-3"));
    QCOMPARE(b.Entry(1).Adjustments.raw(), 4);
    QVERIFY(!b.Entry(1).BillDate.isValid()); // only a load pairs bill dates
}

void BudgetModelTest::deleteDate_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("status");
    QTest::addColumn<QList<int>>("daysLeft"); // days of January left, in order
    QTest::newRow("first") << 1 << 0 << QList<int>{2, 3};
    QTest::newRow("middle") << 2 << 0 << QList<int>{1, 3};
    QTest::newRow("last") << 3 << 0 << QList<int>{1, 2};
    QTest::newRow("zero") << 0 << 3 << QList<int>{1, 2, 3};
    QTest::newRow("past the count") << 4 << 3 << QList<int>{1, 2, 3};
}

void BudgetModelTest::deleteDate() {
    QFETCH(int, index);
    QFETCH(int, status);
    QFETCH(QList<int>, daysLeft);
    BudgetStores s;
    clsBudget b(s.budgetDb, s.trendDb);
    b.CreateMaster(Account, 1);
    for (unsigned day : {3u, 1u, 2u})
        b.AddDate(d(2023, 1, day), Money::fromPounds(day), {}, {}, {});
    QCOMPARE(b.DeleteDate(index), status);
    QCOMPARE(b.EntryCount(), int(daysLeft.size()));
    for (int i = 0; i < daysLeft.size(); ++i) {
        QCOMPARE(b.Entry(i + 1).SelectedDate, d(2023, 1, unsigned(daysLeft[i])));
        QCOMPARE(b.Entry(i + 1).Usage, Money::fromPounds(daysLeft[i])); // amounts travel with their date
    }
}

void BudgetModelTest::deletingTheOnlyEntryIsASubscriptFailure() {
    BudgetStores s;
    clsBudget b(s.budgetDb, s.trendDb);
    b.CreateMaster(Account, 1);
    b.AddDate(d(2023, 1, 15), money("7"), {}, {}, {});
    QVERIFY_THROWS_EXCEPTION(BudgetSubscriptError, b.DeleteDate(1));
    QCOMPARE(b.EntryCount(), 1);
    QCOMPARE(b.Entry(1).Usage, money("7"));

    // A cost-centre budget refuses before any subscript is looked at.
    clsBudget c(s.budgetDb, s.trendDb);
    QCOMPARE(c.DeleteDate(1), 3);
}

void BudgetModelTest::entryOutsideTheLiveOnesIsASubscriptFailure() {
    BudgetStores s;
    clsBudget b(s.budgetDb, s.trendDb);
    QVERIFY_THROWS_EXCEPTION(BudgetSubscriptError, b.Entry(1));
    b.CreateMaster(Account, 1);
    b.AddDate(d(2023, 1, 15), {}, {}, {}, {});
    b.AddDate(d(2023, 2, 15), {}, {}, {}, {});
    QVERIFY_THROWS_EXCEPTION(BudgetSubscriptError, b.Entry(0));
    QVERIFY_THROWS_EXCEPTION(BudgetSubscriptError, b.Entry(3));
    QVERIFY_THROWS_EXCEPTION(BudgetSubscriptError, b.setEntry(3, clsBudgetCostEntry()));
}

void BudgetModelTest::nameKeepsFiftyCharacters() {
    BudgetStores s;
    const QString sixty = QStringLiteral("0123456789").repeated(6);
    clsBudget b(s.budgetDb, s.trendDb);
    b.CreateMaster(Account, 1);
    b.setName(sixty);
    QCOMPARE(b.Name(), sixty.left(50));
    b.AddDate(d(2023, 1, 15), {}, {}, {}, {});
    QCOMPARE(b.SaveBudget(false), 0);
    Statement st(s.budgetDb, QStringLiteral("SELECT Title FROM tblBudget WHERE BudgetID = ?"));
    st.bind(1, b.ID());
    QVERIFY(st.step());
    QCOMPARE(st.text(0).size(), 50);

    clsBudget c(s.budgetDb, s.trendDb);
    c.CreateFromMaster(b.ID(), sixty, QStringLiteral("Sales"));
    QCOMPARE(c.Name(), sixty.left(50));
}

void BudgetModelTest::newMasterIsStoredAsWritten() {
    BudgetStores s;
    clsBudget b(s.budgetDb, s.trendDb);
    b.CreateMaster(Account, 3);
    b.setName(QStringLiteral("Plan"));
    b.AddDate(d(2023, 2, 15), money("2"), money("0.5"), {}, money("-1"));
    b.AddDate(d(2023, 1, 15), money("1"), {}, {}, {});
    QCOMPARE(b.SaveBudget(false), 0);
    QCOMPARE(b.ID(), 1);
    Statement row(s.budgetDb,
                  QStringLiteral("SELECT Title, BillAccount, CCLevel, CCName, MasterID, BudgetType, "
                                 "Created FROM tblBudget"));
    QVERIFY(row.step());
    QCOMPARE(row.text(0), QStringLiteral("Plan"));
    QCOMPARE(row.text(1), Account);
    QCOMPARE(row.integer(2), 3);
    QCOMPARE(row.text(3), QString());
    QCOMPARE(row.integer(4), -1);
    QCOMPARE(row.integer(5), -1);
    QCOMPARE(row.date(6), Date::today());
    Statement entries(s.budgetDb, QStringLiteral("SELECT SelectedDate, Usage, Recurring, OneOff, Adjustments "
                                                 "FROM tblBudgetEntry ORDER BY DateID"));
    QVERIFY(entries.step());
    QCOMPARE(entries.text(0), QStringLiteral("2023-01-15"));
    QCOMPARE(entries.int64(1), 10000);
    QVERIFY(entries.step());
    QCOMPARE(entries.text(0), QStringLiteral("2023-02-15"));
    QCOMPARE(entries.int64(1), 20000);
    QCOMPARE(entries.int64(2), 5000);
    QCOMPARE(entries.int64(3), 0);
    QCOMPARE(entries.int64(4), -10000);
    QVERIFY(!entries.step());
}

void BudgetModelTest::masterWithoutChildrenLoadsItsOwnRows() {
    BudgetStores s;
    const int masterId = s.master(QStringLiteral("Whole"), Account, 0);
    s.entry(masterId, d(2023, 2, 15), money("20"), money("2"));
    s.entry(masterId, d(2023, 1, 15), money("10"), money("1"), money("0.1"), money("0.01"));
    clsBudget b(s.budgetDb, s.trendDb);
    QCOMPARE(b.LoadBudget(masterId), 0);
    QVERIFY(b.IsMaster());
    QCOMPARE(b.CCLevel(), 0);
    QCOMPARE(b.EntryCount(), 2);
    QCOMPARE(b.Entry(1).SelectedDate, d(2023, 1, 15));
    QVERIFY(amountsOf(b.Entry(1)) == (Amounts{money("10"), money("1"), money("0.1"), money("0.01")}));
    QVERIFY(amountsOf(b.Entry(2)) == (Amounts{money("20"), money("2"), {}, {}}));
}

// The sums below were added up by hand.
void BudgetModelTest::masterWithChildrenLoadsTheirSums() {
    BudgetStores s;
    const int masterId = s.master(QStringLiteral("M"), Account, 1);
    // The master's own rows stop counting once it has children.
    s.entry(masterId, d(2023, 1, 15), money("1000"));
    s.entry(masterId, d(2023, 2, 15), money("1000"));
    const int a = s.child(masterId, QStringLiteral("A"), Account, 1, QStringLiteral("Sales"));
    const int b = s.child(masterId, QStringLiteral("B"), Account, 1, QStringLiteral("Support"));
    s.entry(a, d(2023, 2, 15), money("20.25"), money("3"), money("-1.5"), money("0.0001"));
    s.entry(a, d(2023, 1, 15), money("10.10"), money("2"), {}, {});
    s.entry(b, d(2023, 1, 15), money("5.05"), money("4"), money("7"), money("-2"));
    s.entry(b, d(2023, 2, 15), money("0.75"), {}, money("1.5"), money("0.0002"));
    // Another master's child does not count.
    const int other = s.master(QStringLiteral("Other"), Account, 1);
    s.entry(s.child(other, QStringLiteral("X"), Account, 1, QStringLiteral("Sales")), d(2023, 1, 15),
            money("99"));

    clsBudget m(s.budgetDb, s.trendDb);
    m.LoadBudget(masterId);
    QCOMPARE(m.EntryCount(), 2);
    QCOMPARE(m.Entry(1).SelectedDate, d(2023, 1, 15));
    QVERIFY(amountsOf(m.Entry(1)) == (Amounts{money("15.15"), money("6"), money("7"), money("-2")}));
    QCOMPARE(m.Entry(2).SelectedDate, d(2023, 2, 15));
    QVERIFY(amountsOf(m.Entry(2)) == (Amounts{money("21"), money("3"), {}, money("0.0003")}));

    // A child loads its own rows only.
    clsBudget c(s.budgetDb, s.trendDb);
    c.LoadBudget(b);
    QVERIFY(!c.IsMaster());
    QCOMPARE(c.MasterID(), masterId);
    QCOMPARE(c.CostCentre(), QStringLiteral("Support"));
    QCOMPARE(c.EntryCount(), 2);
    QCOMPARE(c.Entry(2).Usage, money("0.75"));
}

void BudgetModelTest::childMissingADateDropsItFromTheMaster() {
    BudgetStores s;
    const int masterId = s.master(QStringLiteral("M"), Account, 1);
    s.entry(masterId, d(2023, 3, 15));
    const int a = s.child(masterId, QStringLiteral("A"), Account, 1, QStringLiteral("Sales"));
    s.entry(a, d(2023, 1, 15), money("1"));
    s.entry(a, d(2023, 2, 15), money("2"));
    // Two children on one date load as one summed row.
    const int b = s.child(masterId, QStringLiteral("B"), Account, 1, QStringLiteral("Support"));
    s.entry(b, d(2023, 2, 15), money("3"));
    clsBudget m(s.budgetDb, s.trendDb);
    m.LoadBudget(masterId);
    QCOMPARE(m.EntryCount(), 2);
    QCOMPARE(m.Entry(1).Usage, money("1"));
    QCOMPARE(m.Entry(2).SelectedDate, d(2023, 2, 15));
    QCOMPARE(m.Entry(2).Usage, money("5"));
}

void BudgetModelTest::createFromMasterTakesDatesWithZeroAmounts() {
    BudgetStores s;
    s.trendRow(Account, d(2023, 1, 14), QStringLiteral("0100"));
    const int masterId = s.master(QStringLiteral("M"), Account, 2);
    const int a = s.child(masterId, QStringLiteral("A"), Account, 2, QStringLiteral("Sales"));
    s.entry(a, d(2023, 1, 15), money("10"), money("1"), money("2"), money("3"));
    s.entry(a, d(2023, 2, 15), money("20"));
    clsBudget c(s.budgetDb, s.trendDb);
    QCOMPARE(c.CreateFromMaster(masterId, QStringLiteral("New"), QStringLiteral("Support")), 0);
    QCOMPARE(c.ID(), -1);
    QCOMPARE(c.MasterID(), masterId);
    QVERIFY(!c.IsMaster());
    QCOMPARE(c.BillAccount(), Account);
    QCOMPARE(c.CCLevel(), 2);
    QCOMPARE(c.CostCentre(), QStringLiteral("Support"));
    QCOMPARE(c.Name(), QStringLiteral("New"));
    QCOMPARE(c.EntryCount(), 2);
    for (int i = 1; i <= 2; ++i)
        QVERIFY(amountsOf(c.Entry(i)) == Amounts());
    QCOMPARE(c.Entry(2).SelectedDate, d(2023, 2, 15));
    // Bill dates stay as the master's load paired them.
    QCOMPARE(c.Entry(1).BillDate, d(2023, 1, 14));
    QCOMPARE(c.Entry(2).BillDate, d(2023, 2, 15));
}

void BudgetModelTest::secondBudgetForACostCentreIsRefused() {
    BudgetStores s;
    const int masterId = s.master(QStringLiteral("M"), Account, 1);
    s.entry(masterId, d(2023, 1, 15));
    clsBudget first(s.budgetDb, s.trendDb);
    first.CreateFromMaster(masterId, QStringLiteral("Sales budget"), QStringLiteral("Sales"));
    QCOMPARE(first.SaveBudget(false), 0);
    clsBudget second(s.budgetDb, s.trendDb);
    second.CreateFromMaster(masterId, QStringLiteral("Sales again"), QStringLiteral("Sales"));
    QCOMPARE(second.SaveBudget(false), 5);
    QCOMPARE(costCentreSaveMessage(5),
             QStringLiteral("A budget for the selected cost centre already allocated, please try again."));
    // Once saved, a cost-centre budget cannot be saved through here again: it finds itself.
    QCOMPARE(first.SaveBudget(false), 5);
    // Under another master the same cost centre is free.
    const int otherMaster = s.master(QStringLiteral("N"), Account, 1);
    s.entry(otherMaster, d(2023, 1, 15));
    clsBudget third(s.budgetDb, s.trendDb);
    third.CreateFromMaster(otherMaster, QStringLiteral("Sales budget"), QStringLiteral("Sales"));
    QCOMPARE(third.SaveBudget(false), 0);
}

// A trigger fails the third entry's insert, after the row was written and the old
// entries deleted.
void BudgetModelTest::failedSaveLeavesTheStoreAsItWas() {
    BudgetStores s;
    clsBudget b(s.budgetDb, s.trendDb);
    b.CreateMaster(Account, 0);
    b.setName(QStringLiteral("Whole"));
    for (unsigned month : {1u, 2u, 3u})
        b.AddDate(d(2023, month, 15), money("1"), {}, {}, {});
    QCOMPARE(b.SaveBudget(false), 0);
    const int id = b.ID();
    s.budgetDb.execScript(
        QStringLiteral("CREATE TRIGGER fail BEFORE INSERT ON tblBudgetEntry "
                       "WHEN NEW.Usage = 6660000 BEGIN SELECT RAISE(ABORT, 'forced'); END;"));
    const QString before = s.budgetDump();

    clsBudget edit(s.budgetDb, s.trendDb);
    edit.LoadBudget(id);
    edit.setName(QStringLiteral("Renamed"));
    edit.Entry(1).Usage = money("2");
    edit.Entry(3).Usage = money("666");
    QVERIFY_THROWS_EXCEPTION(DbError, edit.SaveBudget(false));
    QCOMPARE(s.budgetDump(), before);
    QCOMPARE(s.entryRows(id), 3);
    QVERIFY(!s.budgetDb.inTransaction());
    QCOMPARE(edit.ID(), id);
}

void BudgetModelTest::failedFirstSaveWritesNothing() {
    BudgetStores s;
    s.budgetDb.execScript(
        QStringLiteral("CREATE TRIGGER fail BEFORE INSERT ON tblBudgetEntry "
                       "WHEN NEW.SelectedDate = '2023-02-15' BEGIN SELECT RAISE(ABORT, 'x'); END;"));
    clsBudget b(s.budgetDb, s.trendDb);
    b.CreateMaster(Account, 1);
    b.setName(QStringLiteral("New"));
    b.AddDate(d(2023, 1, 15), {}, {}, {}, {});
    b.AddDate(d(2023, 2, 15), {}, {}, {}, {});
    QVERIFY_THROWS_EXCEPTION(DbError, b.SaveBudget(false));
    QCOMPARE(b.ID(), -1);
    QCOMPARE(queryInt(s.budgetDb, QStringLiteral("SELECT COUNT(*) FROM tblBudget")), 0);
    QCOMPARE(queryInt(s.budgetDb, QStringLiteral("SELECT COUNT(*) FROM tblBudgetEntry")), 0);
    // The store still works, and the object can save once the cause is gone.
    s.budgetDb.execScript(QStringLiteral("DROP TRIGGER fail"));
    QCOMPARE(b.SaveBudget(false), 0);
    QCOMPARE(s.entryRows(b.ID()), 2);
}

// As the whole-bill amounts are saved: the master's row is edited, its entries replaced.
void BudgetModelTest::saveOverALoadedBudgetReplacesItsEntries() {
    BudgetStores s;
    const int id = s.master(QStringLiteral("Whole"), Account, 0);
    s.entry(id, d(2023, 1, 15));
    s.entry(id, d(2023, 2, 15));
    clsBudget b(s.budgetDb, s.trendDb);
    b.LoadBudget(id);
    b.Entry(2).Adjustments = money("-4.5");
    QCOMPARE(b.SaveBudget(false), 0);
    QCOMPARE(b.ID(), id);
    QCOMPARE(queryInt(s.budgetDb, QStringLiteral("SELECT COUNT(*) FROM tblBudget")), 1);
    QCOMPARE(s.entryRows(id), 2);
    QCOMPARE(
        queryInt(s.budgetDb,
                 QStringLiteral("SELECT Adjustments FROM tblBudgetEntry WHERE SelectedDate = '2023-02-15'")),
        -45000);
    // A budget whose row has gone gets a new one.
    s.budgetDb.exec(QStringLiteral("DELETE FROM tblBudget WHERE BudgetID = ?"), id);
    QCOMPARE(b.SaveBudget(false), 0);
    QVERIFY(b.ID() != id);
    QCOMPARE(s.budgetRows(b.ID()), 1);
}

void BudgetModelTest::saveAsNewMakesAnotherRow() {
    BudgetStores s;
    clsBudget b(s.budgetDb, s.trendDb);
    b.CreateMaster(Account, 1);
    b.setName(QStringLiteral("One"));
    b.AddDate(d(2023, 1, 15), {}, {}, {}, {});
    QCOMPARE(b.SaveBudget(false), 0);
    const int first = b.ID();
    b.setName(QStringLiteral("Two"));
    QCOMPARE(b.SaveBudget(true), 0);
    QVERIFY(b.ID() != first);
    QCOMPARE(queryInt(s.budgetDb, QStringLiteral("SELECT COUNT(*) FROM tblBudget")), 2);
    QCOMPARE(s.entryRows(first), 1);
    QCOMPARE(s.entryRows(b.ID()), 1);
}

void BudgetModelTest::loadingAMissingIdFails() {
    BudgetStores s;
    clsBudget b(s.budgetDb, s.trendDb);
    QVERIFY_THROWS_EXCEPTION(BudgetNotFoundError, b.LoadBudget(42));
    // A cost-centre budget under a master that is not there fails the same way.
    QVERIFY_THROWS_EXCEPTION(BudgetNotFoundError, b.CreateFromMaster(7, QString(), QString()));
}

void BudgetModelTest::namesHoldingQuotes() {
    BudgetStores s;
    const QString masterTitle = QStringLiteral("O'Brien's \"plan\"");
    const QString costCentre = QStringLiteral("R&D 'North'");
    clsBudget m(s.budgetDb, s.trendDb);
    m.CreateMaster(QStringLiteral("ACC'9"), 1);
    m.setName(masterTitle);
    m.AddDate(d(2023, 1, 15), {}, {}, {}, {});
    QCOMPARE(m.SaveBudget(false), 0);
    clsBudget c(s.budgetDb, s.trendDb);
    c.CreateFromMaster(m.ID(), QStringLiteral("Q'1"), costCentre);
    QCOMPARE(c.SaveBudget(false), 0);
    clsBudget again(s.budgetDb, s.trendDb);
    again.CreateFromMaster(m.ID(), QStringLiteral("Q'2"), costCentre);
    QCOMPARE(again.SaveBudget(false), 5);
    again.setName(QStringLiteral("Q'1"));
    QCOMPARE(again.SaveBudget(false), 4);

    clsBudget loaded(s.budgetDb, s.trendDb);
    loaded.LoadBudget(c.ID());
    QCOMPARE(loaded.Name(), QStringLiteral("Q'1"));
    QCOMPARE(loaded.CostCentre(), costCentre);
    QCOMPARE(loaded.BillAccount(), QStringLiteral("ACC'9"));
    loaded.LoadBudget(m.ID());
    QCOMPARE(loaded.Name(), masterTitle);
    QCOMPARE(loaded.GetChildCCs(), QStringList{costCentre});
}

void BudgetModelTest::childListsOfAMaster() {
    BudgetStores s;
    const int masterId = s.master(QStringLiteral("M"), Account, 1);
    const int a = s.child(masterId, QStringLiteral("A"), Account, 1, QStringLiteral("Sales"));
    const int other = s.master(QStringLiteral("N"), Account, 1);
    s.child(other, QStringLiteral("X"), Account, 1, QStringLiteral("Elsewhere"));
    const int b = s.child(masterId, QStringLiteral("B"), Account, 1, QStringLiteral("Support"));
    // Two budgets of one cost centre can only come from outside the model; it is named once.
    const int c = s.child(masterId, QStringLiteral("C"), Account, 1, QStringLiteral("Sales"));
    clsBudget m(s.budgetDb, s.trendDb);
    m.LoadBudget(masterId);
    QCOMPARE(m.GetChildIDs(), (QList<int>{a, b, c}));
    QCOMPARE(m.GetChildCCs(), (QStringList{QStringLiteral("Sales"), QStringLiteral("Support")}));
    // Not a master, or never saved: nothing.
    clsBudget child(s.budgetDb, s.trendDb);
    child.LoadBudget(a);
    QVERIFY(child.GetChildIDs().isEmpty());
    QVERIFY(child.GetChildCCs().isEmpty());
    clsBudget fresh(s.budgetDb, s.trendDb);
    fresh.CreateMaster(Account, 1);
    QVERIFY(fresh.GetChildIDs().isEmpty());
}

VANTREL_TEST(BudgetModelTest);
#include "tst_budgetmodel.moc"
