// The budget list, and the edits that reach a whole family of budgets: rename, delete
// and the master's dates.
#include "BudgetStores.h"
#include "TestRegistry.h"
#include "budget/BudgetDelete.h"
#include "budget/BudgetList.h"
#include "budget/BudgetRename.h"
#include "budget/MasterDatesEdit.h"

#include <QTest>

using namespace testing;

namespace {

const QString Account = QStringLiteral("ACC1");

Date d(unsigned month, unsigned day) {
    return Date(2023, month, day);
}

// The dates and usage of one budget's rows, "yyyy-mm-dd=usage" in date and row order.
QStringList rowsOf(BudgetStores& s, int id) {
    QStringList rows;
    Statement st(s.budgetDb,
                 QStringLiteral("SELECT SelectedDate, Usage FROM tblBudgetEntry WHERE BudgetID = ? "
                                "ORDER BY SelectedDate, DateID"));
    st.bind(1, id);
    while (st.step())
        rows << st.text(0) + QLatin1Char('=') + QString::number(st.int64(1) / 10000);
    return rows;
}

QString titleOf(BudgetStores& s, int id) {
    Statement st(s.budgetDb, QStringLiteral("SELECT Title FROM tblBudget WHERE BudgetID = ?"));
    st.bind(1, id);
    return st.step() ? st.text(0) : QStringLiteral("<gone>");
}

} // namespace

class BudgetFamilyTest : public QObject {
    Q_OBJECT
private slots:
    void listShowsMastersWithTheirChildren();
    void listRowCells();
    void renamedTitle_data();
    void renamedTitle();
    void renameInTheStore();
    void renameAllowsATitleInUse();
    void deleteMasterTakesItsFamily();
    void deleteChildLeavesTheRest();
    void deleteMissingBudget();
    void masterDatesEdit();
    void masterDatesMovedOntoADateInUse();
    void masterDatesEditRefusals();
};

void BudgetFamilyTest::listShowsMastersWithTheirChildren() {
    BudgetStores s;
    const int zulu = s.master(QStringLiteral("Zulu"), Account, 1);
    const int alpha = s.master(QStringLiteral("Alpha"), QStringLiteral("ACC2"), 2);
    s.child(zulu, QStringLiteral("Aardvark"), Account, 1, QStringLiteral("Sales"));
    s.master(QStringLiteral("beta"), Account, 0);
    s.child(alpha, QStringLiteral("Mid"), QStringLiteral("ACC2"), 2, QStringLiteral("Support"));
    s.child(999, QStringLiteral("Lost"), Account, 1, QStringLiteral("Gone"));
    QStringList names;
    for (const BudgetListRow& row : budgetListRows(s.budgetDb))
        names << budgetListName(row);
    // Without regard to case "beta" stands between "Alpha" and "Zulu"; an orphan's name
    // starts with ".".
    QCOMPARE(names,
             (QStringList{QStringLiteral(".Lost"), QStringLiteral("Alpha"), QStringLiteral("Alpha.Mid"),
                          QStringLiteral("beta"), QStringLiteral("Zulu"), QStringLiteral("Zulu.Aardvark")}));
}

void BudgetFamilyTest::listRowCells() {
    BudgetStores s;
    const int m = s.master(QStringLiteral("Plan"), Account, 3);
    const int c = s.child(m, QStringLiteral("North"), Account, 3, QStringLiteral("Sales & 'Co'"));
    s.entry(c, d(3, 15));
    s.entry(c, d(1, 15));
    s.entry(c, d(2, 15));
    const QList<BudgetListRow> rows = budgetListRows(s.budgetDb);
    QCOMPARE(rows.size(), 2);
    QCOMPARE(budgetListHeadings(), (QStringList{QStringLiteral("Name"), QStringLiteral("Bill Account"),
                                                QStringLiteral("Creation Date"), QStringLiteral("Date Count"),
                                                QStringLiteral("Start Date"), QStringLiteral("End Date"),
                                                QStringLiteral("Filter")}));
    QVERIFY(rows[0].isMaster());
    QCOMPARE(rows[0].familyMasterId(), m);
    QCOMPARE(budgetListCells(rows[0]),
             (QStringList{QStringLiteral("Plan"), Account, QStringLiteral("01/01/2023"), QStringLiteral("0"),
                          QString(), QString(), QStringLiteral("CC Level=3")}));
    QVERIFY(!rows[1].isMaster());
    QCOMPARE(rows[1].familyMasterId(), m);
    QCOMPARE(budgetListCells(rows[1]),
             (QStringList{QStringLiteral("Plan.North"), Account, QStringLiteral("02/01/2023"),
                          QStringLiteral("3"), QStringLiteral("15/01/2023"), QStringLiteral("15/03/2023"),
                          QStringLiteral("Sales & 'Co'")}));
}

void BudgetFamilyTest::renamedTitle_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("isChild");
    QTest::addColumn<QString>("master"); // null: no master row
    QTest::addColumn<QString>("stored");
    const QString none;
    QTest::newRow("master") << "New plan" << false << none << "New plan";
    QTest::newRow("quotes removed") << "O'Brien" << false << none << "OBrien";
    QTest::newRow("child prefix removed") << "Alpha.New" << true << "Alpha"
                                          << "New";
    QTest::newRow("child without the prefix") << "New" << true << "Alpha"
                                              << "New";
    QTest::newRow("prefix removed wherever it stands") << "Alpha.NewAlpha.er" << true << "Alpha"
                                                       << "Newer";
    QTest::newRow("a master's prefix stays on a master") << "Alpha.New" << false << none << "Alpha.New";
    QTest::newRow("quoted master title") << "O'Brien.Q'1" << true << "O'Brien"
                                         << "Q1";
    QTest::newRow("orphan keeps its title") << ".Lost" << true << none << QString();
    QTest::newRow("cut to fifty") << QStringLiteral("x").repeated(55) << false << none
                                  << QStringLiteral("x").repeated(50);
}

void BudgetFamilyTest::renamedTitle() {
    QFETCH(QString, typed);
    QFETCH(bool, isChild);
    QFETCH(QString, master);
    QFETCH(QString, stored);
    const std::optional<QString> masterTitle =
        master.isNull() ? std::nullopt : std::optional<QString>(master);
    QCOMPARE(::renamedTitle(typed, isChild, masterTitle).value_or(QString()), stored);
}

void BudgetFamilyTest::renameInTheStore() {
    BudgetStores s;
    const int alpha = s.master(QStringLiteral("Alpha"), Account, 1);
    const int child = s.child(alpha, QStringLiteral("Old"), Account, 1, QStringLiteral("Sales"));
    const int orphan = s.child(999, QStringLiteral("Lost"), Account, 1, QStringLiteral("Sales"));
    BudgetRenameResult r = renameBudget(s.budgetDb, child, QStringLiteral("Alpha.New"));
    QCOMPARE(r.status, 0);
    QCOMPARE(r.title, QStringLiteral("New"));
    QCOMPARE(titleOf(s, child), QStringLiteral("New"));
    r = renameBudget(s.budgetDb, alpha, QStringLiteral("O'Brien"));
    QCOMPARE(r.status, 0);
    QCOMPARE(titleOf(s, alpha), QStringLiteral("OBrien"));
    // The list now shows the child under the new master title, and that prefix goes.
    r = renameBudget(s.budgetDb, child, QStringLiteral("OBrien.Newer"));
    QCOMPARE(titleOf(s, child), QStringLiteral("Newer"));
    r = renameBudget(s.budgetDb, orphan, QStringLiteral(".Found"));
    QCOMPARE(titleOf(s, orphan), QStringLiteral("Lost"));
    QCOMPARE(renameBudget(s.budgetDb, 12345, QStringLiteral("x")).status, 3);
}

void BudgetFamilyTest::renameAllowsATitleInUse() {
    BudgetStores s;
    const int alpha = s.master(QStringLiteral("Alpha"), Account, 1);
    const int beta = s.master(QStringLiteral("Beta"), Account, 1);
    const int north = s.child(alpha, QStringLiteral("North"), Account, 1, QStringLiteral("N"));
    s.child(alpha, QStringLiteral("South"), Account, 1, QStringLiteral("S"));
    QCOMPARE(renameBudget(s.budgetDb, north, QStringLiteral("Alpha.South")).status, 0);
    QCOMPARE(titleOf(s, north), QStringLiteral("South"));
    QCOMPARE(renameBudget(s.budgetDb, beta, QStringLiteral("alpha")).status, 0);
    QCOMPARE(titleOf(s, beta), QStringLiteral("alpha"));
}

void BudgetFamilyTest::deleteMasterTakesItsFamily() {
    BudgetStores s;
    const int master = s.master(QStringLiteral("M"), Account, 1);
    s.entry(master, d(1, 15));
    const int a = s.child(master, QStringLiteral("A"), Account, 1, QStringLiteral("Sales"));
    const int b = s.child(master, QStringLiteral("B"), Account, 1, QStringLiteral("Support"));
    for (int id : {a, b})
        for (unsigned month : {1u, 2u})
            s.entry(id, d(month, 15));
    const int other = s.master(QStringLiteral("N"), Account, 1);
    const int otherChild = s.child(other, QStringLiteral("C"), Account, 1, QStringLiteral("Sales"));
    s.entry(otherChild, d(1, 15));

    const BudgetDeleteResult r = deleteBudget(s.budgetDb, master);
    QVERIFY(r.found);
    QVERIFY(r.wasMaster);
    QCOMPARE(r.budgetsDeleted, 3);
    QCOMPARE(r.entriesDeleted, 5);
    QCOMPARE(queryInt(s.budgetDb,
                      QStringLiteral("SELECT COUNT(*) FROM tblBudget WHERE BudgetID IN (?, ?, ?) "
                                     "OR MasterID = ?"),
                      master, a, b, master),
             0);
    QCOMPARE(queryInt(s.budgetDb,
                      QStringLiteral("SELECT COUNT(*) FROM tblBudgetEntry WHERE BudgetID IN (?, ?, ?)"),
                      master, a, b),
             0);
    QCOMPARE(s.budgetRows(other), 1);
    QCOMPARE(s.budgetRows(otherChild), 1);
    QCOMPARE(s.entryRows(otherChild), 1);
}

void BudgetFamilyTest::deleteChildLeavesTheRest() {
    BudgetStores s;
    const int master = s.master(QStringLiteral("M"), Account, 1);
    const int a = s.child(master, QStringLiteral("A"), Account, 1, QStringLiteral("Sales"));
    const int b = s.child(master, QStringLiteral("B"), Account, 1, QStringLiteral("Support"));
    s.entry(a, d(1, 15));
    s.entry(b, d(1, 15));
    const BudgetDeleteResult r = deleteBudget(s.budgetDb, a);
    QVERIFY(r.found);
    QVERIFY(!r.wasMaster);
    QCOMPARE(r.budgetsDeleted, 1);
    QCOMPARE(s.budgetRows(a), 0);
    QCOMPARE(s.entryRows(a), 0);
    QCOMPARE(s.budgetRows(master), 1);
    QCOMPARE(s.entryRows(b), 1);
}

void BudgetFamilyTest::deleteMissingBudget() {
    BudgetStores s;
    s.master(QStringLiteral("M"), Account, 1);
    const QString before = s.budgetDump();
    QVERIFY(!deleteBudget(s.budgetDb, 77).found);
    QCOMPARE(s.budgetDump(), before);
}

// Master and child hold 15 Jan, 15 Feb, 15 Mar (child usage 1, 2, 3).
void BudgetFamilyTest::masterDatesEdit() {
    BudgetStores s;
    const int master = s.master(QStringLiteral("M"), Account, 1);
    const int child = s.child(master, QStringLiteral("A"), Account, 1, QStringLiteral("Sales"));
    const int other = s.master(QStringLiteral("N"), Account, 1);
    for (unsigned month : {1u, 2u, 3u}) {
        s.entry(master, d(month, 15));
        s.entry(child, d(month, 15), Money::fromPounds(month));
        s.entry(other, d(month, 15));
    }
    // Period 2 moves to the 20th, period 3 is no longer ticked.
    QCOMPARE(editMasterDates(s.budgetDb, master, {d(1, 15), d(2, 20), Date()}), 0);
    QCOMPARE(rowsOf(s, child), (QStringList{QStringLiteral("2023-01-15=1"), QStringLiteral("2023-02-20=2")}));
    QCOMPARE(rowsOf(s, master),
             (QStringList{QStringLiteral("2023-01-15=0"), QStringLiteral("2023-02-20=0")}));
    // Two new periods come with zero amounts in every budget of the family.
    QList<Date> periods = {d(1, 15), d(2, 20), d(4, 15), d(5, 15)};
    while (periods.size() < 12)
        periods.append(Date());
    QCOMPARE(editMasterDates(s.budgetDb, master, periods), 0);
    QCOMPARE(rowsOf(s, child), (QStringList{QStringLiteral("2023-01-15=1"), QStringLiteral("2023-02-20=2"),
                                            QStringLiteral("2023-04-15=0"), QStringLiteral("2023-05-15=0")}));
    QCOMPARE(s.entryRows(master), 4);
    // Another master is untouched.
    QCOMPARE(rowsOf(s, other), (QStringList{QStringLiteral("2023-01-15=0"), QStringLiteral("2023-02-15=0"),
                                            QStringLiteral("2023-03-15=0")}));
}

// Slots apply one after the other: moving 15 Jan onto 15 Feb and then 15 Feb on to
// 15 Mar carries both rows along.
void BudgetFamilyTest::masterDatesMovedOntoADateInUse() {
    BudgetStores s;
    const int master = s.master(QStringLiteral("M"), Account, 1);
    const int child = s.child(master, QStringLiteral("A"), Account, 1, QStringLiteral("Sales"));
    s.entry(child, d(1, 15), Money::fromPounds(1));
    s.entry(child, d(2, 15), Money::fromPounds(2));
    QCOMPARE(editMasterDates(s.budgetDb, master, {d(2, 15), d(3, 15)}), 0);
    QCOMPARE(rowsOf(s, child), (QStringList{QStringLiteral("2023-03-15=1"), QStringLiteral("2023-03-15=2")}));
}

void BudgetFamilyTest::masterDatesEditRefusals() {
    BudgetStores s;
    const int master = s.master(QStringLiteral("M"), Account, 1);
    const int child = s.child(master, QStringLiteral("A"), Account, 1, QStringLiteral("Sales"));
    s.entry(child, d(1, 15));
    const QString before = s.budgetDump();
    QCOMPARE(editMasterDates(s.budgetDb, child, {d(2, 15)}), 3);
    QCOMPARE(editMasterDates(s.budgetDb, 555, {d(2, 15)}), 3);
    QCOMPARE(editMasterDates(s.budgetDb, master, QList<Date>(13, d(2, 15))), 3);
    QCOMPARE(s.budgetDump(), before);
    // A failure part way leaves every slot as it was.
    s.budgetDb.execScript(QStringLiteral("CREATE TRIGGER fail BEFORE INSERT ON tblBudgetEntry "
                                         "BEGIN SELECT RAISE(ABORT, 'forced'); END;"));
    QVERIFY_THROWS_EXCEPTION(DbError, editMasterDates(s.budgetDb, master, {d(1, 20), d(2, 15)}));
    QCOMPARE(s.budgetDump(), before);
}

VANTREL_TEST(BudgetFamilyTest);
#include "tst_budgetfamily.moc"
