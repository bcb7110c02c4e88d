// First amounts of a budget from the trend store: the sums of a bill, the percent rules,
// the carrying of a period without a trend entry, and the rounding.
#include "BudgetStores.h"
#include "TestRegistry.h"
#include "budget/BudgetFromTrend.h"

#include <QTest>

using namespace testing;

namespace {

// "T1:10 -:0.0" is trend date T1 (15 Jan 2022) with 10 %, then no trend entry with 0.0 %.
QList<PeriodBasis> periodsOf(const QString& codes) {
    QList<PeriodBasis> periods;
    for (const QString& code : codes.split(QLatin1Char(' '))) {
        const int month = code.startsWith(QLatin1Char('T')) ? code.mid(1, 1).toInt() : 0;
        periods.append({month ? d(unsigned(month), 15, 2022) : Date(), code.section(QLatin1Char(':'), 1)});
    }
    return periods;
}

// The bill of 15 Jan 2023 of ACC1: three services under two cost centres, and rows of
// another account and another date that must not count.
void fillTrendStore(BudgetStores& s) {
    const Date jan(2023, 1, 15);
    s.trendRow(Account, jan, QStringLiteral("S1"), money("10"), money("5"), money("1"), money("0.5"));
    s.trendRow(Account, jan, QStringLiteral("S2"), money("20.25"), {}, money("-2"), {});
    s.trendRow(Account, jan, QStringLiteral("S3"), money("1.2345"), money("3"), {}, {});
    s.trendRow(QStringLiteral("ACC2"), jan, QStringLiteral("S1"), money("999"));
    s.trendRow(Account, d(2, 15), QStringLiteral("S1"), money("7"));
    s.costCentre(Account, QStringLiteral("S1"), QStringLiteral("Sales"), QStringLiteral("North"));
    s.costCentre(Account, QStringLiteral("S2"), QStringLiteral("Sales"), QStringLiteral("South"));
    s.costCentre(Account, QStringLiteral("S3"), QStringLiteral("R&D 'North'"));
    s.costCentre(Account, QStringLiteral("S4"), QStringLiteral("  "));
    s.costCentre(Account, QStringLiteral("S5"), QStringLiteral("SALES"), QStringLiteral("north"));
    s.costCentre(QStringLiteral("ACC2"), QStringLiteral("S3"), QStringLiteral("Sales"));
}

} // namespace

class BudgetFromTrendTest : public QObject {
    Q_OBJECT
private slots:
    void derivation_data();
    void derivation();
    void trendAmounts_data();
    void trendAmounts();
    void choicesAndDefaultDates();
    void percentsIntoABudget();
};

// Periods, then "->", then the amounts each period gets. The trend gives
// T1 = 100/50/-10/1.2343 and T2 = 200/0/0/0; products worked by hand.
void BudgetFromTrendTest::derivation_data() {
    QTest::addColumn<QString>("periods");
    QTest::newRow("half to even, down") << "T1:50 -> 150/75/-15/1.8514";
    QTest::newRow("half to even, up") << "T1:-50 -> 50/25/-5/0.6172";
    QTest::newRow("-100 % gives zeros, carried on") << "T1:-100 -:0.0 -:50 -> 0/0/0/0 0/0/0/0 0/0/0/0";
    QTest::newRow("first period without a trend entry") << "-:10 T1:0 -> 0/0/0/0 100/50/-10/1.2343";
    QTest::newRow("carry is unscaled, then scaled by its own percent")
        << "T1:10 -:0.0 -:-50 -> 110/55/-11/1.3577 100/50/-10/1.2343 50/25/-5/0.6172";
    QTest::newRow("a later trend entry ends the carry")
        << "T1:0 -:0 T2:0 -> 100/50/-10/1.2343 100/50/-10/1.2343 200/0/0/0";
}

void BudgetFromTrendTest::derivation() {
    QFETCH(QString, periods);
    const TrendAmountSource source = [](const Date& date) {
        if (date == d(1, 15, 2022))
            return BudgetAmounts{money("100"), money("50"), money("-10"), money("1.2343")};
        return BudgetAmounts{date == d(2, 15, 2022) ? money("200") : Money(), {}, {}, {}};
    };
    QStringList got;
    for (const BudgetAmounts& a :
         deriveBudgetAmounts(periodsOf(periods.section(QStringLiteral(" -> "), 0, 0)), source))
        got << amounts(a.usage, a.recurring, a.oneOff, a.adjustments);
    QCOMPARE(got.join(QLatin1Char(' ')), periods.section(QStringLiteral(" -> "), 1));
}

// By the services of a cost centre, or the whole bill where there are none.
void BudgetFromTrendTest::trendAmounts_data() {
    QTest::addColumn<QString>("costCentre");
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("expected");
    const QString whole = QStringLiteral("31.4845/8/-1/0.5");
    QTest::newRow("whole bill") << "" << 0 << whole;
    QTest::newRow("level 1") << "Sales" << 1 << "30.25/5/-1/0.5";
    QTest::newRow("matched in another case") << "sales" << 1 << "30.25/5/-1/0.5";
    QTest::newRow("quoted cost centre") << "R&D 'North'" << 1 << "1.2345/3/0/0";
    QTest::newRow("level 2") << "North" << 2 << "10/5/1/0.5";
    QTest::newRow("cost centre without services") << "Nowhere" << 1 << whole;
    QTest::newRow("no cost centre selected") << "No Cost Centre Selected" << 1 << whole;
    QTest::newRow("level the store lacks") << "Sales" << 6 << whole;
}

void BudgetFromTrendTest::trendAmounts() {
    QFETCH(QString, costCentre);
    QFETCH(int, level);
    QFETCH(QString, expected);
    BudgetStores s;
    fillTrendStore(s);
    const BudgetAmounts a = GetTrendAmounts(s.trendDb, s.projectDb, Account, level, costCentre, d(1, 15));
    QCOMPARE(amounts(a.usage, a.recurring, a.oneOff, a.adjustments), expected);
}

// The form's lists of cost centres and first trend dates; further cases there.
void BudgetFromTrendTest::choicesAndDefaultDates() {
    BudgetStores s;
    fillTrendStore(s);
    // Blank names are left out; names that differ in case only are one.
    QCOMPARE(costCentreChoices(s.projectDb, Account, 1), (QStringList{"R&D 'North'", "Sales"}));
    // The first bill of the same month a year before, whatever its day.
    const QList<Date> bills = {d(1, 20, 2022), d(2, 15, 2022), d(2, 28, 2022)};
    QCOMPARE(defaultTrendDate(bills, d(2, 1)), d(2, 15, 2022));
}

// The first percent refused is named and nothing changes. Sales is S1 + S2 = 30.25/5/-1/0.5.
void BudgetFromTrendTest::percentsIntoABudget() {
    BudgetStores s;
    fillTrendStore(s);
    const int master = s.master(QStringLiteral("M"));
    for (unsigned month : {1u, 2u, 3u})
        s.entry(master, d(month, 15, 2024));
    clsBudget b(s.budgetDb, s.trendDb);
    b.CreateFromMaster(master, QStringLiteral("Sales 2024"), QStringLiteral("Sales"));
    const auto fill = [&](const QStringList& percents) {
        QList<PeriodBasis> periods;
        for (const QString& p : percents)
            periods.append({d(1, 15), p});
        const PercentCheck c = fillBudgetFromTrend(b, periods, s.trendDb, s.projectDb);
        return c.ok() ? QStringLiteral("ok") : QStringLiteral("%1 %2").arg(c.index).arg(c.notNumeric);
    };
    QCOMPARE(fill({"20", "abc", "1001"}), QStringLiteral("1 1"));
    QCOMPARE(fill({"5", "-1000.1"}), QStringLiteral("1 0"));
    QCOMPARE(fill({""}), QStringLiteral("0 1"));
    QCOMPARE(entriesOf(b), (QStringList{"2024-01-15:0/0/0/0", "2024-02-15:0/0/0/0", "2024-03-15:0/0/0/0"}));
    // Periods beyond the list carry the one before, unscaled; blanks around a percent are
    // no fault. -100, 1000 and -1000 are tried through the cost-centre form.
    QCOMPARE(fill({" 10 "}), QStringLiteral("ok"));
    QCOMPARE(entriesOf(b), (QStringList{"2024-01-15:33.275/5.5/-1.1/0.55", "2024-02-15:30.25/5/-1/0.5",
                                        "2024-03-15:30.25/5/-1/0.5"}));
}

VANTREL_TEST(BudgetFromTrendTest);
#include "tst_budgetfromtrend.moc"
