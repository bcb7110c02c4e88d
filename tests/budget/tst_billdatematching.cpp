// Pairing budget dates with bill dates: exact dates of the account first, then the
// nearest bill date of any account within four days.
#include "BudgetStores.h"
#include "TestRegistry.h"
#include "budget/MatchBillDates.h"

#include <QTest>

using namespace testing;

namespace {

using Dates = QList<Date>;

// A row of the table: budget dates (ascending) | bill dates of the budget's account | bill
// dates of another account | the bill dates expected; each date "mm-dd" of 2023.
struct Case {
    Dates budget, account, other, expected;
};

Case fetchCase() {
    QFETCH(QString, row);
    QList<Dates> parts;
    for (const QString& part : row.split(QLatin1Char('|'))) {
        parts.append(Dates());
        for (const QString& md : part.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            parts.last() << Date::fromIso(QStringLiteral("2023-") + md);
    }
    return {parts.value(0), parts.value(1), parts.value(2), parts.value(3)};
}

} // namespace

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
    QTest::addColumn<QString>("row");
    QTest::newRow("exact") << "01-15 | 01-15 | | 01-15";
    QTest::newRow("four days is near enough") << "02-19 | 02-15 | | 02-15";
    QTest::newRow("four days before, across a month end") << "02-25 | 03-01 | | 03-01";
    QTest::newRow("five days off keeps its date") << "03-20 | 03-15 | | 03-20";
    QTest::newRow("near date of another account") << "04-12 | | 04-10 | 04-10";
    QTest::newRow("exact date is not offered again") << "01-15 01-17 | 01-15 | 01-15 | 01-15 01-17";
    QTest::newRow("next nearest after a taken date") << "01-15 01-16 | 01-15 01-19 | | 01-15 01-19";
    QTest::newRow("one bill date for two budget dates") << "02-13 02-17 | 02-15 | | 02-15 02-15";
    QTest::newRow("equally near takes the earlier") << "06-12 | 06-14 | 06-10 | 06-10";
}

void BillDateMatchingTest::matching() {
    const Case c = fetchCase();
    std::vector<clsBudgetCostEntry> entries;
    for (const Date& date : c.budget) // a stale bill date: every pass must set it
        entries.push_back({{}, {}, {}, {}, date, Date(1999, 1, 1)});
    std::set<Date> any(c.other.begin(), c.other.end());
    any.insert(c.account.begin(), c.account.end());
    matchBillDates(entries, std::set<Date>(c.account.begin(), c.account.end()), any);
    Dates billDates, budgetDates;
    for (const clsBudgetCostEntry& e : entries) {
        billDates << e.BillDate;
        budgetDates << e.SelectedDate;
    }
    QCOMPARE(billDates, c.expected);
    QCOMPARE(budgetDates, c.budget);
}

// The same cases with the dates in a trend store, read through a master's load.
void BillDateMatchingTest::throughTheStore() {
    const Case c = fetchCase();
    BudgetStores s;
    for (const Date& date : c.account)
        s.trendRow(Account, date, QStringLiteral("0100"));
    for (const Date& date : c.other)
        s.trendRow(QStringLiteral("ACC2"), date, QStringLiteral("0300"));
    const int id = s.master(QStringLiteral("M"));
    for (const Date& date : c.budget)
        s.entry(id, date);
    clsBudget b(s.budgetDb, s.trendDb);
    b.LoadBudget(id);
    QCOMPARE(b.EntryCount(), int(c.expected.size()));
    for (int i = 0; i < c.expected.size(); ++i)
        QCOMPARE(b.Entry(i + 1).BillDate, c.expected[i]);
}

// A row without an account counts for any account; a date stored with a time is its day;
// an entry without a date gets no bill date.
void BillDateMatchingTest::awkwardStoreRows() {
    BudgetStores s;
    s.trendDb.exec(QStringLiteral("INSERT INTO TblSummaryTrend (BillDate, BillAccount) VALUES ('2023-03-03', "
                                  "NULL), ('2023-05-05 10:30:00', 'A1')"));
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
