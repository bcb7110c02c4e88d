// Pairing budget dates with bill dates: exact dates of the account first, then the
// nearest bill date of any account within four days.
#include "BudgetStores.h"
#include "TestRegistry.h"
#include "budget/MatchBillDates.h"

#include <QTest>

using namespace testing;

using Dates = QList<Date>;
Q_DECLARE_METATYPE(Dates)

class BillDateMatchingTest : public QObject {
    Q_OBJECT
private slots:
    void matching_data();
    void matching();
    void throughTheStore_data() { matching_data(); }
    void throughTheStore();
    void awkwardStoreRows();
};

void BillDateMatchingTest::matching_data() {
    QTest::addColumn<Dates>("budgetDates");  // ascending
    QTest::addColumn<Dates>("accountDates"); // bill dates of the budget's account
    QTest::addColumn<Dates>("otherDates");   // bill dates of another account
    QTest::addColumn<Dates>("expected");
    QTest::newRow("exact") << Dates{d(1, 15)} << Dates{d(1, 15)} << Dates{} << Dates{d(1, 15)};
    QTest::newRow("four days is near enough")
        << Dates{d(2, 19)} << Dates{d(2, 15)} << Dates{} << Dates{d(2, 15)};
    QTest::newRow("four days before, across a month end")
        << Dates{d(2, 25)} << Dates{d(3, 1)} << Dates{} << Dates{d(3, 1)};
    QTest::newRow("five days off keeps its date")
        << Dates{d(3, 20)} << Dates{d(3, 15)} << Dates{} << Dates{d(3, 20)};
    QTest::newRow("near date of another account")
        << Dates{d(4, 12)} << Dates{} << Dates{d(4, 10)} << Dates{d(4, 10)};
    QTest::newRow("exact date is not offered again")
        << Dates{d(1, 15), d(1, 17)} << Dates{d(1, 15)} << Dates{d(1, 15)} << Dates{d(1, 15), d(1, 17)};
    QTest::newRow("next nearest after a taken date")
        << Dates{d(1, 15), d(1, 16)} << Dates{d(1, 15), d(1, 19)} << Dates{} << Dates{d(1, 15), d(1, 19)};
    QTest::newRow("one bill date for two budget dates")
        << Dates{d(2, 13), d(2, 17)} << Dates{d(2, 15)} << Dates{} << Dates{d(2, 15), d(2, 15)};
    QTest::newRow("nearest of another account first")
        << Dates{d(5, 3)} << Dates{d(5, 6)} << Dates{d(5, 2)} << Dates{d(5, 2)};
    QTest::newRow("equally near takes the earlier")
        << Dates{d(6, 12)} << Dates{d(6, 10), d(6, 14)} << Dates{} << Dates{d(6, 10)};
}

void BillDateMatchingTest::matching() {
    QFETCH(Dates, budgetDates);
    QFETCH(Dates, accountDates);
    QFETCH(Dates, otherDates);
    QFETCH(Dates, expected);
    std::vector<clsBudgetCostEntry> entries(std::size_t(budgetDates.size()));
    for (int i = 0; i < budgetDates.size(); ++i) {
        entries[std::size_t(i)].SelectedDate = budgetDates[i];
        entries[std::size_t(i)].BillDate = Date(1999, 1, 1); // stale: every pass must set it
    }
    const std::set<Date> account(accountDates.begin(), accountDates.end());
    std::set<Date> any(otherDates.begin(), otherDates.end());
    any.insert(account.begin(), account.end());
    matchBillDates(entries, account, any);
    for (int i = 0; i < expected.size(); ++i) {
        QCOMPARE(entries[std::size_t(i)].BillDate, expected[i]);
        QCOMPARE(entries[std::size_t(i)].SelectedDate, budgetDates[i]);
    }
}

// The same cases with the dates in a trend store, read through a master's load.
void BillDateMatchingTest::throughTheStore() {
    QFETCH(Dates, budgetDates);
    QFETCH(Dates, accountDates);
    QFETCH(Dates, otherDates);
    QFETCH(Dates, expected);
    BudgetStores s;
    for (const Date& date : accountDates) {
        s.trendRow(Account, date, QStringLiteral("0100"));
        s.trendRow(Account, date, QStringLiteral("0200"));
    }
    for (const Date& date : otherDates)
        s.trendRow(QStringLiteral("ACC2"), date, QStringLiteral("0300"));
    const int id = s.master(QStringLiteral("M"));
    for (const Date& date : budgetDates)
        s.entry(id, date);
    clsBudget b(s.budgetDb, s.trendDb);
    b.LoadBudget(id);
    QCOMPARE(b.EntryCount(), int(expected.size()));
    for (int i = 0; i < expected.size(); ++i)
        QCOMPARE(b.Entry(i + 1).BillDate, expected[i]);
}

// A row without an account counts for any account; a date stored with a time is its day;
// an entry without a date gets no bill date.
void BillDateMatchingTest::awkwardStoreRows() {
    BudgetStores s;
    s.trendDb.exec(QStringLiteral("INSERT INTO TblSummaryTrend (BillDate, BillAccount) VALUES ('2023-03-03', "
                                  "NULL), ('2023-05-05 10:30:00', 'A1'), ('2023-07-01', 'A1')"));
    std::vector<clsBudgetCostEntry> entries(4);
    entries[1].SelectedDate = d(3, 1);
    entries[2].SelectedDate = d(5, 5);
    entries[3].SelectedDate = d(5, 8);
    MatchBillDates(s.trendDb, QStringLiteral("A1"), entries);
    QVERIFY(!entries[0].BillDate.isValid());
    QCOMPARE(entries[1].BillDate, d(3, 3));
    QCOMPARE(entries[2].BillDate, d(5, 5));
    QCOMPARE(entries[3].BillDate, d(5, 8)); // 5 May is taken by the exact match
    MatchBillDates(s.trendDb, QStringLiteral("A2"), entries);
    QCOMPARE(entries[3].BillDate, d(5, 5));
}

VANTREL_TEST(BillDateMatchingTest);
#include "tst_billdatematching.moc"
