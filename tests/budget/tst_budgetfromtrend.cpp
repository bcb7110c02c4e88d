// First amounts of a budget from the trend store: the sums of a bill, the percent rules,
// the carrying of a period without a trend entry, and the rounding.
#include "BudgetStores.h"
#include "TestRegistry.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "budget/BudgetFromTrend.h"
#include "budget/clsBudget.h"
#include "data/ReferenceData.h"
#include "data/Schema.h"

#include <QTest>

using namespace testing;

namespace {

const Date T1(2022, 1, 15);
const Date T2(2022, 2, 15);

// "T1:10" is trend date T1 with 10 %, "-:0.0" no trend entry with 0.0 %.
QList<PeriodBasis> periodsOf(const QStringList& codes) {
    QList<PeriodBasis> periods;
    for (const QString& code : codes) {
        const QString date = code.section(QLatin1Char(':'), 0, 0);
        PeriodBasis p;
        p.trendDate = date == QLatin1String("T1") ? T1 : date == QLatin1String("T2") ? T2 : Date();
        p.percent = code.section(QLatin1Char(':'), 1);
        periods.append(p);
    }
    return periods;
}

// "usage/recurring/oneOff/adjustments" in plain decimals.
QString text(const BudgetAmounts& a) {
    auto plain = [](Money m) {
        QString t = m.toPlainString();
        while (t.endsWith(QLatin1Char('0')))
            t.chop(1);
        if (t.endsWith(QLatin1Char('.')))
            t.chop(1);
        return t;
    };
    return QStringList{plain(a.usage), plain(a.recurring), plain(a.oneOff), plain(a.adjustments)}.join(
        QLatin1Char('/'));
}

// The bill of 15 Jan 2023 of ACC1: three services under two cost centres, and rows of
// another account and another date that must not count.
void fillTrendStore(BudgetStores& s) {
    const Date jan(2023, 1, 15);
    s.trendRow(QStringLiteral("ACC1"), jan, QStringLiteral("S1"), money("10"), money("5"), money("1"),
               money("0.5"));
    s.trendRow(QStringLiteral("ACC1"), jan, QStringLiteral("S2"), money("20.25"), {}, money("-2"), {});
    s.trendRow(QStringLiteral("ACC1"), jan, QStringLiteral("S3"), money("1.2345"), money("3"), {}, {});
    s.trendRow(QStringLiteral("ACC2"), jan, QStringLiteral("S1"), money("999"));
    s.trendRow(QStringLiteral("ACC1"), Date(2023, 2, 15), QStringLiteral("S1"), money("7"));
    s.costCentre(QStringLiteral("ACC1"), QStringLiteral("S1"), QStringLiteral("Sales"),
                 QStringLiteral("North"));
    s.costCentre(QStringLiteral("ACC1"), QStringLiteral("S2"), QStringLiteral("Sales"),
                 QStringLiteral("South"));
    s.costCentre(QStringLiteral("ACC1"), QStringLiteral("S3"), QStringLiteral("R&D 'North'"));
    s.costCentre(QStringLiteral("ACC1"), QStringLiteral("S4"), QStringLiteral("  "));
    s.costCentre(QStringLiteral("ACC2"), QStringLiteral("S1"), QStringLiteral("Other"));
}

// An "AC01" account: the central store keeps its rows under "VL4321AC" (a row under the full
// account is never copied), and selection writes them into the project under the full one.
const QString Ac01 = QStringLiteral("VL4321AC01");

struct Ac01Selection {
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};
    BudgetStores s;
    Ac01Selection() {
        ctx.costCentreDb = Database::openMemory();
        ctx.costCentreDb.execScript(schemaText(QStringLiteral("costcentres")));
        // Account, number, levels 1 and 2, usage on the bill of 15 Jan 2023.
        for (const char* row :
             {"VL4321AC|0100|Corporate Services|North|10", "VL4321AC|0200|CORPORATE SERVICES|South|2.5",
              "VL4321AC|0300|Operations|North|100", "VL4321AC01|0400|Ghost|Ghost|1000"}) {
            const QStringList f = QString::fromLatin1(row).split(QLatin1Char('|'));
            ctx.costCentreDb.exec(QStringLiteral("INSERT INTO TblCC (VeloraAccount, TelNo, CostCentre1, "
                                                 "CostCentre2) VALUES (?, ?, ?, ?)"),
                                  f[0], f[1], f[2], f[3]);
            s.trendRow(Ac01, Date(2023, 1, 15), f[1], money(qPrintable(f[4])));
        }
        ctx.projectDb = Database::openMemory();
        ctx.projectDb.execScript(schemaText(QStringLiteral("project")));
        ctx.projectDb.exec(QStringLiteral("INSERT INTO Tbl50 (VeloraAccount) VALUES (?)"), Ac01);
        ctx.billAccount = Ac01;
        LoadCostCentres(ctx);
    }
};

} // namespace

class BudgetFromTrendTest : public QObject {
    Q_OBJECT
private slots:
    void derivation_data();
    void derivation();
    void zeroMultiplierAsksNoTrend();
    void percentChecks_data();
    void percentChecks();
    void trendAmounts_data();
    void trendAmounts();
    void costCentreChoices();
    void ac01AccountChoices();
    void ac01AccountAmounts_data();
    void ac01AccountAmounts();
    void defaultTrendDates();
    void costCentreBudgetFromTrend();
    void wholeBillMasterFromTrend();
    void refusedPercentChangesNothing();
};

void BudgetFromTrendTest::derivation_data() {
    QTest::addColumn<QStringList>("periods");
    QTest::addColumn<QStringList>("expected");
    // The trend gives T1 = 100/50/-10/1.2343 and T2 = 200/0/0/0; products worked by hand.
    QTest::newRow("0 % keeps the amount exactly")
        << QStringList{"T1:0.0"} << QStringList{"100/50/-10/1.2343"};
    QTest::newRow("10 %") << QStringList{"T1:10"} << QStringList{"110/55/-11/1.3577"};
    QTest::newRow("half to even, down") << QStringList{"T1:50"} << QStringList{"150/75/-15/1.8514"};
    QTest::newRow("half to even, up") << QStringList{"T1:-50"} << QStringList{"50/25/-5/0.6172"};
    QTest::newRow("-100 % gives zeros, carried on")
        << QStringList{"T1:-100", "-:0.0", "-:50"} << QStringList{"0/0/0/0", "0/0/0/0", "0/0/0/0"};
    QTest::newRow("first period without a trend entry")
        << QStringList{"-:10", "T1:0"} << QStringList{"0/0/0/0", "100/50/-10/1.2343"};
    QTest::newRow("carry is unscaled, then scaled by its own percent")
        << QStringList{"T1:10", "-:0.0", "-:-50"}
        << QStringList{"110/55/-11/1.3577", "100/50/-10/1.2343", "50/25/-5/0.6172"};
    QTest::newRow("1000 % is eleven times") << QStringList{"T2:1000"} << QStringList{"2200/0/0/0"};
    QTest::newRow("-1000 % turns the sign")
        << QStringList{"T1:-1000"} << QStringList{"-900/-450/90/-11.1087"};
    QTest::newRow("a later trend entry ends the carry")
        << QStringList{"T1:0", "-:0", "T2:0"}
        << QStringList{"100/50/-10/1.2343", "100/50/-10/1.2343", "200/0/0/0"};
}

void BudgetFromTrendTest::derivation() {
    QFETCH(QStringList, periods);
    QFETCH(QStringList, expected);
    const TrendAmountSource source = [](const Date& date) {
        if (date == T1)
            return BudgetAmounts{money("100"), money("50"), money("-10"), money("1.2343")};
        if (date == T2)
            return BudgetAmounts{money("200"), {}, {}, {}};
        return BudgetAmounts{};
    };
    QStringList got;
    for (const BudgetAmounts& a : deriveBudgetAmounts(periodsOf(periods), source))
        got << text(a);
    QCOMPARE(got, expected);
}

void BudgetFromTrendTest::zeroMultiplierAsksNoTrend() {
    int asked = 0;
    const TrendAmountSource source = [&](const Date&) {
        ++asked;
        return BudgetAmounts{money("1"), {}, {}, {}};
    };
    deriveBudgetAmounts(periodsOf({"T1:-100", "T2:-100.0"}), source);
    QCOMPARE(asked, 0);
    deriveBudgetAmounts(periodsOf({"T1:0", "-:0", "T2:5"}), source);
    QCOMPARE(asked, 2);
}

void BudgetFromTrendTest::percentChecks_data() {
    QTest::addColumn<QStringList>("percents");
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("notNumeric");
    QTest::newRow("1000 passes") << QStringList{"1000"} << -1 << false;
    QTest::newRow("-1000 passes") << QStringList{"-1000"} << -1 << false;
    QTest::newRow("blanks around") << QStringList{" 12.5 "} << -1 << false;
    QTest::newRow("1000.1 refused") << QStringList{"1000.1"} << 0 << false;
    QTest::newRow("-1000.1 refused") << QStringList{"-1000.1"} << 0 << false;
    QTest::newRow("empty is no number") << QStringList{""} << 0 << true;
    QTest::newRow("letters") << QStringList{"0.0", "5", "abc"} << 2 << true;
    QTest::newRow("first refusal counts") << QStringList{"20", "1001", ""} << 1 << false;
}

void BudgetFromTrendTest::percentChecks() {
    QFETCH(QStringList, percents);
    QFETCH(int, index);
    QFETCH(bool, notNumeric);
    QList<PeriodBasis> periods;
    for (const QString& p : percents)
        periods.append(PeriodBasis{T1, p});
    const PercentCheck check = checkPercents(periods);
    QCOMPARE(check.index, index);
    QCOMPARE(check.ok(), index < 0);
    if (index >= 0)
        QCOMPARE(check.notNumeric, notNumeric);
}

void BudgetFromTrendTest::trendAmounts_data() {
    QTest::addColumn<QString>("account");
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("costCentre");
    QTest::addColumn<Date>("date");
    QTest::addColumn<QString>("expected");
    const Date jan(2023, 1, 15);
    const QString whole = QStringLiteral("31.4845/8/-1/0.5");
    QTest::newRow("whole bill") << "ACC1" << 0 << "" << jan << whole;
    QTest::newRow("level 1") << "ACC1" << 1 << "Sales" << jan << "30.25/5/-1/0.5";
    QTest::newRow("quoted cost centre") << "ACC1" << 1 << "R&D 'North'" << jan << "1.2345/3/0/0";
    QTest::newRow("level 2") << "ACC1" << 2 << "North" << jan << "10/5/1/0.5";
    QTest::newRow("cost centre without services") << "ACC1" << 1 << "Nowhere" << jan << whole;
    QTest::newRow("no cost centre selected") << "ACC1" << 1 << "No Cost Centre Selected" << jan << whole;
    QTest::newRow("level the store lacks") << "ACC1" << 6 << "Sales" << jan << whole;
    QTest::newRow("no rows at the date") << "ACC1" << 1 << "Sales" << Date(2023, 3, 15) << "0/0/0/0";
    QTest::newRow("another account") << "ACC2" << 1 << "Other" << jan << "999/0/0/0";
    QTest::newRow("another month") << "ACC1" << 2 << "North" << Date(2023, 2, 15) << "7/0/0/0";
}

void BudgetFromTrendTest::trendAmounts() {
    QFETCH(QString, account);
    QFETCH(int, level);
    QFETCH(QString, costCentre);
    QFETCH(Date, date);
    QFETCH(QString, expected);
    BudgetStores s;
    fillTrendStore(s);
    QCOMPARE(text(GetTrendAmounts(s.trendDb, s.projectDb, account, level, costCentre, date)), expected);
}

void BudgetFromTrendTest::costCentreChoices() {
    BudgetStores s;
    fillTrendStore(s);
    QCOMPARE(::costCentreChoices(s.projectDb, QStringLiteral("ACC1"), 1),
             (QStringList{QStringLiteral("R&D 'North'"), QStringLiteral("Sales")}));
    QCOMPARE(::costCentreChoices(s.projectDb, QStringLiteral("ACC1"), 2),
             (QStringList{QStringLiteral("North"), QStringLiteral("South")}));
    QVERIFY(::costCentreChoices(s.projectDb, QStringLiteral("ACC1"), 0).isEmpty());
    QVERIFY(::costCentreChoices(s.projectDb, QStringLiteral("ACC1"), 6).isEmpty());
    QCOMPARE(trendEntryDates(s.trendDb, QStringLiteral("ACC1")),
             (QList<Date>{Date(2023, 1, 15), Date(2023, 2, 15)}));
}

void BudgetFromTrendTest::ac01AccountChoices() {
    Ac01Selection a;
    QCOMPARE(::costCentreChoices(a.ctx.projectDb, Ac01, 1),
             (QStringList{"Corporate Services", "Operations"}));
}

void BudgetFromTrendTest::ac01AccountAmounts_data() {
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("costCentre");
    QTest::addColumn<QString>("usage");
    QTest::newRow("both spellings of one centre") << 1 << QStringLiteral("Corporate Services") << "12.5";
    QTest::newRow("matched in another case") << 1 << QStringLiteral("corporate services") << "12.5";
    QTest::newRow("one service") << 1 << QStringLiteral("Operations") << "100";
    QTest::newRow("level 2") << 2 << QStringLiteral("north") << "110";
    QTest::newRow("central row of the full account") << 1 << QStringLiteral("Ghost") << "1112.5";
}

void BudgetFromTrendTest::ac01AccountAmounts() {
    QFETCH(int, level);
    QFETCH(QString, costCentre);
    QFETCH(QString, usage);
    Ac01Selection a;
    QCOMPARE(text(GetTrendAmounts(a.s.trendDb, a.ctx.projectDb, Ac01, level, costCentre, Date(2023, 1, 15))),
             usage + QStringLiteral("/0/0/0"));
}

void BudgetFromTrendTest::defaultTrendDates() {
    const QList<Date> bills = {Date(2022, 1, 20), Date(2022, 2, 15), Date(2022, 2, 28), Date(2022, 4, 1)};
    QCOMPARE(defaultTrendDate(bills, Date(2023, 1, 15)), Date(2022, 1, 20));
    QCOMPARE(defaultTrendDate(bills, Date(2023, 2, 1)), Date(2022, 2, 15));
    QCOMPARE(defaultTrendDate(bills, Date(2023, 4, 30)), Date(2022, 4, 1));
    QVERIFY(!defaultTrendDate(bills, Date(2023, 3, 15)).isValid());
    QVERIFY(!defaultTrendDate(bills, Date(2022, 1, 20)).isValid());
}

// Sales is S1 + S2 = 30.25/5/-1/0.5; 10 % of it is 33.275/5.5/-1.1/0.55.
void BudgetFromTrendTest::costCentreBudgetFromTrend() {
    BudgetStores s;
    fillTrendStore(s);
    const int master = s.master(QStringLiteral("M"), QStringLiteral("ACC1"), 1);
    s.entry(master, Date(2024, 1, 15));
    s.entry(master, Date(2024, 2, 15));
    clsBudget b(s.budgetDb, s.trendDb);
    b.CreateFromMaster(master, QStringLiteral("Sales 2024"), QStringLiteral("Sales"));
    PeriodBasis first{Date(2023, 1, 15), QStringLiteral("10")};
    QVERIFY(fillBudgetFromTrend(b, {first}, s.trendDb, s.projectDb).ok());
    QCOMPARE(b.SaveBudget(false), 0);
    Statement st(s.budgetDb, QStringLiteral("SELECT SelectedDate, Usage, Recurring, OneOff, Adjustments "
                                            "FROM tblBudgetEntry WHERE BudgetID = ? ORDER BY SelectedDate"));
    st.bind(1, b.ID());
    QVERIFY(st.step());
    QCOMPARE(st.text(0), QStringLiteral("2024-01-15"));
    QCOMPARE(st.int64(1), 332750);
    QCOMPARE(st.int64(2), 55000);
    QCOMPARE(st.int64(3), -11000);
    QCOMPARE(st.int64(4), 5500);
    // The second period had no basis: it carries the first one's plain amounts.
    QVERIFY(st.step());
    QCOMPARE(st.int64(1), 302500);
    QCOMPARE(st.int64(4), 5000);
    QVERIFY(!st.step());
}

void BudgetFromTrendTest::wholeBillMasterFromTrend() {
    BudgetStores s;
    fillTrendStore(s);
    const int master = s.master(QStringLiteral("Whole"), QStringLiteral("ACC1"), 0);
    s.entry(master, Date(2024, 1, 15));
    clsBudget b(s.budgetDb, s.trendDb);
    b.LoadBudget(master);
    QVERIFY(fillBudgetFromTrend(b, {PeriodBasis{Date(2023, 1, 15), QStringLiteral("0.0")}}, s.trendDb,
                                s.projectDb)
                .ok());
    QCOMPARE(b.SaveBudget(false), 0);
    QCOMPARE(b.ID(), master);
    QCOMPARE(s.entryRows(master), 1);
    QCOMPARE(
        queryInt(s.budgetDb, QStringLiteral("SELECT Usage FROM tblBudgetEntry WHERE BudgetID = ?"), master),
        314845);
}

void BudgetFromTrendTest::refusedPercentChangesNothing() {
    BudgetStores s;
    fillTrendStore(s);
    const int master = s.master(QStringLiteral("Whole"), QStringLiteral("ACC1"), 0);
    s.entry(master, Date(2024, 1, 15), money("3"));
    s.entry(master, Date(2024, 2, 15), money("4"));
    clsBudget b(s.budgetDb, s.trendDb);
    b.LoadBudget(master);
    const PercentCheck check =
        fillBudgetFromTrend(b, periodsOf({"T1:5", "T1:1000.1"}), s.trendDb, s.projectDb);
    QCOMPARE(check.index, 1);
    QCOMPARE(b.Entry(1).Usage, money("3"));
    QCOMPARE(b.Entry(2).Usage, money("4"));
}

VANTREL_TEST(BudgetFromTrendTest);
#include "tst_budgetfromtrend.moc"
