// Pairing budget dates with bill dates: exact dates of the account first, then the
// nearest bill date of any account within four days.
#include "BudgetStores.h"
#include "TestRegistry.h"
#include "budget/MatchBillDates.h"
#include "budget/clsBudget.h"

#include <QTest>

using namespace testing;

using Dates = QList<Date>;
Q_DECLARE_METATYPE(Dates)

namespace {

Date d(unsigned month, unsigned day) {
    return Date(2023, month, day);
}

} // namespace

class BillDateMatchingTest : public QObject {
    Q_OBJECT
private slots:
    void matching_data();
    void matching();
    void throughTheStore_data() { matching_data(); }
    void throughTheStore();
    void entriesWithoutDates();
    void storeAgreesWithPlainQueries();
};

void BillDateMatchingTest::matching_data() {
    QTest::addColumn<Dates>("budgetDates");  // ascending
    QTest::addColumn<Dates>("accountDates"); // bill dates of the budget's account
    QTest::addColumn<Dates>("otherDates");   // bill dates of another account
    QTest::addColumn<Dates>("expected");
    QTest::newRow("exact") << Dates{d(1, 15)} << Dates{d(1, 15)} << Dates{} << Dates{d(1, 15)};
    QTest::newRow("three days after") << Dates{d(2, 18)} << Dates{d(2, 15)} << Dates{} << Dates{d(2, 15)};
    QTest::newRow("three days before") << Dates{d(2, 12)} << Dates{d(2, 15)} << Dates{} << Dates{d(2, 15)};
    QTest::newRow("four days is near enough")
        << Dates{d(2, 19)} << Dates{d(2, 15)} << Dates{} << Dates{d(2, 15)};
    QTest::newRow("five days off keeps its date")
        << Dates{d(3, 20)} << Dates{d(3, 15)} << Dates{} << Dates{d(3, 20)};
    QTest::newRow("five days before keeps its date")
        << Dates{d(3, 10)} << Dates{d(3, 15)} << Dates{} << Dates{d(3, 10)};
    QTest::newRow("across a month end") << Dates{d(3, 2)} << Dates{d(2, 27)} << Dates{} << Dates{d(2, 27)};
    QTest::newRow("near date of another account")
        << Dates{d(4, 12)} << Dates{} << Dates{d(4, 10)} << Dates{d(4, 10)};
    QTest::newRow("same date of another account")
        << Dates{d(4, 10)} << Dates{} << Dates{d(4, 10)} << Dates{d(4, 10)};
    QTest::newRow("exact date is not offered again")
        << Dates{d(1, 15), d(1, 17)} << Dates{d(1, 15)} << Dates{} << Dates{d(1, 15), d(1, 17)};
    QTest::newRow("exact date is not offered through another account")
        << Dates{d(1, 15), d(1, 17)} << Dates{d(1, 15)} << Dates{d(1, 15)} << Dates{d(1, 15), d(1, 17)};
    QTest::newRow("next nearest after a taken date")
        << Dates{d(1, 15), d(1, 16)} << Dates{d(1, 15), d(1, 19)} << Dates{} << Dates{d(1, 15), d(1, 19)};
    QTest::newRow("one bill date for two budget dates")
        << Dates{d(2, 13), d(2, 17)} << Dates{d(2, 15)} << Dates{} << Dates{d(2, 15), d(2, 15)};
    QTest::newRow("nearest first") << Dates{d(5, 3)} << Dates{d(5, 1), d(5, 4)} << Dates{} << Dates{d(5, 4)};
    QTest::newRow("nearest of another account first")
        << Dates{d(5, 3)} << Dates{d(5, 6)} << Dates{d(5, 2)} << Dates{d(5, 2)};
    QTest::newRow("equally near takes the earlier")
        << Dates{d(6, 12)} << Dates{d(6, 10), d(6, 14)} << Dates{} << Dates{d(6, 10)};
    QTest::newRow("a year of mixed cases")
        << Dates{d(1, 15), d(1, 19), d(2, 18), d(3, 20), d(4, 12)} << Dates{d(1, 15), d(2, 15), d(3, 15)}
        << Dates{d(4, 10)} << Dates{d(1, 15), d(1, 19), d(2, 15), d(3, 20), d(4, 10)};
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
        s.trendRow(QStringLiteral("ACC1"), date, QStringLiteral("0100"));
        s.trendRow(QStringLiteral("ACC1"), date, QStringLiteral("0200"));
    }
    for (const Date& date : otherDates)
        s.trendRow(QStringLiteral("ACC2"), date, QStringLiteral("0300"));
    const int id = s.master(QStringLiteral("M"), QStringLiteral("ACC1"), 1);
    for (const Date& date : budgetDates)
        s.entry(id, date);
    clsBudget b(s.budgetDb, s.trendDb);
    b.LoadBudget(id);
    QCOMPARE(b.EntryCount(), int(expected.size()));
    for (int i = 0; i < expected.size(); ++i)
        QCOMPARE(b.Entry(i + 1).BillDate, expected[i]);
}

void BillDateMatchingTest::entriesWithoutDates() {
    BudgetStores s;
    s.trendRow(QStringLiteral("ACC1"), d(1, 15), QStringLiteral("0100"));
    std::vector<clsBudgetCostEntry> entries(2);
    entries[1].SelectedDate = d(1, 16);
    MatchBillDates(s.trendDb, QStringLiteral("ACC1"), entries);
    QVERIFY(!entries[0].BillDate.isValid());
    QCOMPARE(entries[1].BillDate, d(1, 15));
    std::vector<clsBudgetCostEntry> none(1);
    MatchBillDates(s.trendDb, QStringLiteral("ACC1"), none);
    QVERIFY(!none[0].BillDate.isValid());
}

// Many accounts, dates with and without a time, a row without an account: the dates the
// store gives the matching must be those that two plain queries give.
void BillDateMatchingTest::storeAgreesWithPlainQueries() {
    BudgetStores s;
    unsigned seed = 7;
    auto next = [&seed](unsigned range) {
        seed = seed * 1103515245u + 12345u;
        return (seed >> 16) % range;
    };
    for (int row = 0; row < 400; ++row) {
        const QString account = QStringLiteral("A%1").arg(next(6));
        const Date date = Date(2023, 1, 1).addDays(next(200));
        s.trendRow(account, date, QStringLiteral("S%1").arg(row));
    }
    s.trendDb.exec(QStringLiteral("INSERT INTO TblSummaryTrend (BillDate, BillAccount) VALUES (?, NULL)"),
                   Date(2023, 3, 3));
    s.trendDb.exec(QStringLiteral(
        "INSERT INTO TblSummaryTrend (BillDate, BillAccount) VALUES ('2023-05-05 10:30:00', 'A1')"));
    std::set<Date> any;
    std::set<Date> ofA1;
    Statement st(s.trendDb, QStringLiteral("SELECT BillDate, BillAccount FROM TblSummaryTrend"));
    while (st.step()) {
        any.insert(st.date(0));
        if (st.text(1) == QLatin1String("A1"))
            ofA1.insert(st.date(0));
    }
    for (int start = 0; start < 200; start += 17) {
        std::vector<clsBudgetCostEntry> fromStore;
        for (int i = 0; i < 12; ++i) {
            clsBudgetCostEntry e;
            e.SelectedDate = Date(2023, 1, 1).addDays(start + i * 9 + int(next(5)));
            fromStore.push_back(e);
        }
        std::vector<clsBudgetCostEntry> plain = fromStore;
        MatchBillDates(s.trendDb, QStringLiteral("A1"), fromStore);
        matchBillDates(plain, ofA1, any);
        for (std::size_t i = 0; i < plain.size(); ++i)
            QCOMPARE(fromStore[i].BillDate, plain[i].BillDate);
    }
    // The row without an account and the row with a time are both found.
    std::vector<clsBudgetCostEntry> edges(2);
    edges[0].SelectedDate = Date(2023, 3, 1);
    edges[1].SelectedDate = Date(2023, 5, 8);
    s.trendDb.exec(QStringLiteral("DELETE FROM TblSummaryTrend WHERE BillAccount IS NOT NULL AND BillDate "
                                  "BETWEEN '2023-02-20' AND '2023-03-10'"));
    s.trendDb.exec(
        QStringLiteral("DELETE FROM TblSummaryTrend WHERE BillDate BETWEEN '2023-05-01' AND '2023-05-13' "
                       "AND BillDate NOT LIKE '% %'"));
    MatchBillDates(s.trendDb, QStringLiteral("A2"), edges);
    QCOMPARE(edges[0].BillDate, Date(2023, 3, 3));
    QCOMPARE(edges[1].BillDate, Date(2023, 5, 5));
}

VANTREL_TEST(BillDateMatchingTest);
#include "tst_billdatematching.moc"
