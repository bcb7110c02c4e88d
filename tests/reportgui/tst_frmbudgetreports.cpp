#include "ReportGuiHelpers.h"
#include "TestRegistry.h"
#include "data/Schema.h"
#include "output/frmReport3.h"
#include "reports/frmBudgetReports.h"

#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <QTest>

namespace {

// A level-1 master "Beta" with two cost-centre budgets, a level-2 master without any, a
// whole-bill master "alpha", and a budget of another account.
struct Menu {
    TrendFixture f;
    QMap<QString, int> ids;
    std::unique_ptr<frmBudgetReports> form;

    int add(const char* title, int level, int master = -1, const char* account = "ACC1") {
        f.ctx.budgetDb.exec("INSERT INTO tblBudget (Title, BillAccount, CCLevel, MasterID, BudgetType) "
                            "VALUES (?, ?, ?, ?, ?)",
                            title, account, level, master, master == -1 ? -1 : 0);
        return int(f.ctx.budgetDb.lastInsertRowId());
    }
    Menu() {
        f.ctx.budgetDb = Database::openMemory();
        f.ctx.budgetDb.execScript(schemaText("budgets"));
        ids["Beta"] = add("Beta", 1);
        ids["Beta.South"] = add("South", 1, ids["Beta"]);
        ids["Beta.north"] = add("north", 1, ids["Beta"]);
        ids["alpha"] = add("alpha", 0);
        add("Gamma", 2);
        add("Aardvark", 0, -1, "ACC2");
        selectProject(f);
        form = std::make_unique<frmBudgetReports>(f.ctx);
        form->show();
    }
    // An unknown text chooses the first item.
    void choose(const QString& text) {
        form->budgetList()->setCurrentIndex(std::max(0, int(form->budgetList()->findText(text))));
    }
};

} // namespace

class FrmBudgetReportsTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup();
    void listHoldsTheAccountsBudgets();
    void buttonsFollowTheBudget_data();
    void buttonsFollowTheBudget();
    void buttonClicks_data();
    void buttonClicks();
};

void FrmBudgetReportsTest::cleanup() {
    for (int number = ReportNumber::MonthlyDeviation; number <= ReportNumber::Last; ++number)
        setReportBuilder(number, {});
}

void FrmBudgetReportsTest::listHoldsTheAccountsBudgets() {
    Menu m;
    QComboBox* list = m.form->budgetList();
    // By master title whatever the case, each master before its children.
    const QStringList expected = {"alpha", "Beta", "Beta.north", "Beta.South"};
    QCOMPARE(list->count(), expected.size() + 1);
    for (int i = 0; i < expected.size(); ++i) {
        QCOMPARE(list->itemText(i + 1), expected[i]);
        QCOMPARE(list->itemData(i + 1).toInt(), m.ids[expected[i]]);
    }
    QCOMPARE(list->currentIndex(), 0);
}

void FrmBudgetReportsTest::buttonsFollowTheBudget_data() {
    QTest::addColumn<QString>("budget");
    QTest::addColumn<bool>("costCentres");
    QTest::newRow("whole bill") << "alpha" << false;
    QTest::newRow("level master") << "Beta" << true;
    QTest::newRow("cost-centre budget") << "Beta.South" << true;
}

void FrmBudgetReportsTest::buttonsFollowTheBudget() {
    QFETCH(QString, budget);
    QFETCH(bool, costCentres);
    Menu m;
    m.choose(budget);
    for (int i = 0; i < frmBudgetReports::ChargeButtons; ++i)
        QVERIFY(m.form->periodicButton(i)->isEnabled() && m.form->accumulativeButton(i)->isEnabled());
    QCOMPARE(m.form->financialButton()->isEnabled(), costCentres);
    QCOMPARE(m.form->top10Button()->isEnabled(), costCentres);
}

void FrmBudgetReportsTest::buttonClicks_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("budget");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QVariantList>("started"); // number, budget, view; empty: nothing ran
    const QString noRecords = QStringLiteral("No records found, unable to display report.");
    const QString failed = QStringLiteral("Error creating the report.");
    QTest::newRow("first item") << "cmdMonthlyDeviationReport0"
                                << "" << 1 << "Please select a budget." << QVariantList{};
    QTest::newRow("periodic usage") << "cmdMonthlyDeviationReport1"
                                    << "Beta" << 2 << noRecords << QVariantList{6, "Beta", 1};
    QTest::newRow("accumulative total") << "cmdAccumulativeDeviations0"
                                        << "alpha" << 3 << failed << QVariantList{7, "alpha", 5};
    QTest::newRow("financial, status 5")
        << "cmdFinancial"
        << "Beta.north" << 5 << "Whole bill budgets are not compatible with this report."
        << QVariantList{10, "Beta.north"};
    QTest::newRow("financial shown") << "cmdFinancial"
                                     << "Beta" << 1 << "" << QVariantList{10, "Beta"};
    QTest::newRow("by cost centre") << "cmdCCDeviation3"
                                    << "Beta" << 1 << "" << QVariantList{};
}

void FrmBudgetReportsTest::buttonClicks() {
    QFETCH(QString, button);
    QFETCH(QString, budget);
    QFETCH(int, status);
    QFETCH(QString, message);
    QFETCH(QVariantList, started);
    Menu m;
    m.choose(budget);
    auto* frame = m.form->findChild<QGroupBox*>(QStringLiteral("frameReports"));
    ReportParams asked;
    bool enabledDuringRun = true;
    for (int number = ReportNumber::MonthlyDeviation; number <= ReportNumber::Last; ++number)
        setReportBuilder(number, [&](ReportContext&, const ReportParams& p) {
            asked = p;
            enabledDuringRun = frame->isEnabled();
            Report report;
            report.params = p;
            report.form = ReportForm::Grid;
            return ReportResult{status, status == 1 ? std::optional(report) : std::nullopt};
        });
    QVariantList shownParams;
    if (status == 1 && !started.isEmpty())
        whenModal<frmReport3>([&](frmReport3* w) { shownParams = w->report().params; });
    // A level left from an earlier report: a fresh start forgets it, a refused one does not.
    m.form->session().reportStack.Push(QVariantList{ReportNumber::TotalCharges, 0, QString()});

    emit m.form->findChild<QPushButton*>(button)->clicked();

    QCOMPARE(m.f.dialogs.texts(), message.isEmpty() ? QStringList{} : QStringList{message});
    ReportParams expected;
    if (!started.isEmpty())
        expected = ReportParams{started[0], m.ids[started[1].toString()]} + started.mid(2);
    QCOMPARE(asked, expected);
    QCOMPARE(shownParams, status == 1 ? expected : QVariantList{});
    QCOMPARE(m.form->session().reportStack.Count(), started.isEmpty() ? 1 : 0);
    QCOMPARE(enabledDuringRun, started.isEmpty());
    QVERIFY(frame->isEnabled());
}

VANTREL_TEST(FrmBudgetReportsTest);
#include "tst_frmbudgetreports.moc"
