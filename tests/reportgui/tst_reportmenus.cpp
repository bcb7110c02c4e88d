#include "ReportGuiHelpers.h"
#include "TestRegistry.h"
#include "data/Schema.h"
#include "output/frmReport3.h"
#include "reports/frmBudgetReports.h"
#include "reports/frmTrendReports.h"

#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

namespace {

QStringList itemsOf(const QComboBox* list) {
    QStringList items;
    for (int i = 0; i < list->count(); ++i)
        items << list->itemText(i);
    return items;
}

// Picks an item as the user does, so the list tells of the choice.
void choose(QComboBox* list, int index) {
    list->setCurrentIndex(index);
    emit list->activated(index);
}

// Every report builder replaced by one that notes what it was asked and whether the menu
// was disabled meanwhile, and answers `status` (a shown report opens in the grid window).
struct FakeBuilders {
    ReportParams asked, shown;
    bool enabledDuringRun = true;
    FakeBuilders(int status, const QWidget* menuPart) {
        for (int number = ReportNumber::First; number <= ReportNumber::Last; ++number)
            setReportBuilder(number, [=, this](ReportContext&, const ReportParams& params) {
                asked = params;
                enabledDuringRun = menuPart->isEnabled();
                Report report;
                report.params = params;
                report.form = ReportForm::Grid;
                if (status != ReportStatus::Shown)
                    return ReportResult{status, std::nullopt};
                whenModal<frmReport3>([this](frmReport3* w) { shown = w->report().params; });
                return ReportResult{status, report};
            });
    }
};

// A budget store of a level-1 master "Beta" with two cost-centre budgets, a level-2 master
// without any, a whole-bill master "alpha", and a budget of another account.
struct BudgetMenu {
    TrendFixture f;
    QMap<QString, int> ids;
    std::unique_ptr<frmBudgetReports> form;
    int add(const char* title, int level, int master = -1, const char* account = "ACC1") {
        f.ctx.budgetDb.exec("INSERT INTO tblBudget (Title, BillAccount, CCLevel, MasterID, BudgetType) "
                            "VALUES (?, ?, ?, ?, ?)",
                            title, account, level, master, master == -1 ? -1 : 0);
        return int(f.ctx.budgetDb.lastInsertRowId());
    }
    explicit BudgetMenu(bool project = true) {
        f.ctx.budgetDb = Database::openMemory();
        f.ctx.budgetDb.execScript(schemaText("budgets"));
        ids["Beta"] = add("Beta", 1);
        ids["Beta.South"] = add("South", 1, ids["Beta"]);
        ids["Beta.north"] = add("north", 1, ids["Beta"]);
        ids["alpha"] = add("alpha", 0);
        add("Gamma", 2);
        add("Aardvark", 0, -1, "ACC2");
        if (project)
            selectProject(f);
        form = std::make_unique<frmBudgetReports>(f.ctx);
        form->show();
    }
    // An unknown text chooses the first item.
    void choose(const QString& text) {
        form->budgetList()->setCurrentIndex(std::max(0, form->budgetList()->findText(text)));
    }
};

} // namespace

// The menus of the trend and of the budget reports.
class ReportMenusTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { resetReports(); }

    void trendListsFollowTheStoreTheLevelAndTheProject() {
        TrendFixture f;
        f.number("0100", {"sales", "North"});
        f.number("0200", {"Finance", "North"});
        f.number("0300", {"Ops", ""});
        f.number("0400", {QVariant(), "South"});
        f.number("0500", {"Finance", "South"});
        for (const char* number : {"0200", "0050", "0200"})
            f.add(Date(2012, 3, 31), number, {});
        frmTrendReports form(f.ctx);
        const auto enabled = [&] {
            QList<bool> on;
            for (int i = 0; i < 4; ++i)
                on << form.trendButton(i)->isEnabled() << form.topButton(i)->isEnabled();
            return on;
        };
        QCOMPARE(enabled(), QList<bool>(8, false));
        QCOMPARE(itemsOf(form.serviceList()).mid(1), (QStringList{"0050", "0200"}));
        // Distinct, empty and missing ones left out, in alphabetical order whatever the case.
        const QList<std::pair<int, QStringList>> levels = {
            {2, {"North", "South"}}, {0, {}}, {1, {"Finance", "Ops", "sales"}}};
        for (const auto& [level, centres] : levels) {
            choose(form.costCentreLevelList(), level);
            QCOMPARE(itemsOf(form.costCentreList()).mid(1), centres);
        }
        // A project change enables the buttons and starts every list again.
        choose(form.accumulatedLevelList(), 3);
        choose(form.serviceList(), 1);
        f.add(Date(2012, 3, 31), "0999", {});
        selectProject(f);
        form.projectChanged();
        QCOMPARE(enabled(), QList<bool>(8, true));
        QCOMPARE(form.costCentreLevelList()->currentIndex() + form.accumulatedLevelList()->currentIndex(), 0);
        QCOMPARE(form.costCentreList()->count(), 1);
        QCOMPARE(itemsOf(form.serviceList()).last(), QStringLiteral("0999"));
        QCOMPARE(form.serviceList()->currentIndex(), 0);
        QVERIFY(form.filterOption(0)->isChecked());
        // A project that cannot feed trends keeps them off.
        f.ctx.trendEnabled = false;
        form.projectChanged();
        QCOMPARE(enabled(), QList<bool>(8, false));
    }

    void trendButtons_data() {
        QTest::addColumn<QString>("choice"); // steps apart by ';'
        QTest::addColumn<int>("button");     // 0 to 3 the trend reports, 10 to 13 the top 10s
        QTest::addColumn<int>("status");
        QTest::addColumn<ReportParams>("started"); // empty: refused before any report ran
        QTest::addColumn<QString>("message");
        using namespace TrendReportsText;
        const int shown = ReportStatus::Shown, noData = ReportStatus::NoData, error = ReportStatus::Error;
        QTest::newRow("no project") << "no project" << 0 << noData << ReportParams{} << SelectProject;
        QTest::newRow("no project, top 10")
            << "no project" << 11 << noData << ReportParams{} << SelectProject;
        QTest::newRow("service option, no number")
            << "option 1" << 2 << noData << ReportParams{} << SelectService;
        QTest::newRow("total, whole bill") << "" << 0 << shown << totalChargesParams(0, "") << QString();
        QTest::newRow("service trend of a centre")
            << "level 2;centre North" << 1 << noData << serviceParams(2, "North") << NoRecords;
        QTest::newRow("usage of a number")
            << "service 0200" << 2 << error << individualChargesParams(6, "0200", 1) << Failed;
        // The option follows the list chosen last.
        QTest::newRow("a number, then a level")
            << "service 0200;level 2" << 3 << 0 << individualChargesParams(2, "", 2) << NotAvailable;
        QTest::newRow("a centre, then a number") << "level 2;centre North;service 0100" << 0 << noData
                                                 << totalChargesParams(6, "0100") << NoRecords;
        QTest::newRow("top 10 by total") << "" << 10 << noData << top10Params(1, "", 5) << NoRecords;
        QTest::newRow("top 10 by telemarketing, level 3")
            << "accumulated 3" << 13 << shown << top10Params(3, "", 6) << QString();
    }
    void trendButtons() {
        QFETCH(QString, choice);
        QFETCH(int, button);
        QFETCH(int, status);
        QFETCH(ReportParams, started);
        QFETCH(QString, message);
        TrendFixture f;
        fillThreeBills(f);
        selectProject(f);
        frmTrendReports form(f.ctx);
        form.show();
        for (const QString& step : choice.split(';', Qt::SkipEmptyParts)) {
            const QString what = step.section(' ', 0, 0), value = step.section(' ', 1);
            if (what == QLatin1String("no"))
                f.ctx.projectPath.clear();
            else if (what == QLatin1String("option"))
                form.filterOption(value.toInt())->setChecked(true);
            else if (what == QLatin1String("level"))
                choose(form.costCentreLevelList(), value.toInt());
            else if (what == QLatin1String("accumulated"))
                choose(form.accumulatedLevelList(), value.toInt() - 1);
            else if (what == QLatin1String("centre"))
                choose(form.costCentreList(), form.costCentreList()->findText(value));
            else
                choose(form.serviceList(), form.serviceList()->findText(value));
        }
        FakeBuilders builders(status, form.trendButton(0));
        // A level left from an earlier report: a fresh start forgets it, a refused one does not.
        form.session().reportStack.Push(totalChargesParams(0, QString()));

        (button < 10 ? form.trendButton(button) : form.topButton(button - 10))->click();
        QCOMPARE(builders.asked, started);
        QCOMPARE(builders.shown, status == ReportStatus::Shown ? started : ReportParams{});
        QCOMPARE(f.dialogs.texts(), message.isEmpty() ? QStringList{} : QStringList{message});
        if (!message.isEmpty())
            QCOMPARE(f.dialogs.messages.back().icon,
                     message == TrendReportsText::Failed ? MessageIcon::Critical : MessageIcon::Information);
        QCOMPARE(form.session().reportStack.Count(), started.isEmpty() ? 1 : 0);
        QCOMPARE(builders.enabledDuringRun, started.isEmpty());
        QVERIFY(form.trendButton(0)->isEnabled());
    }

    // The buttons a choice enables, and what a click on one starts or says.
    void budgetButtons_data() {
        QTest::addColumn<bool>("project");
        QTest::addColumn<QString>("budget");
        QTest::addColumn<bool>("costCentres"); // the financial and top-10 reports enabled
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("status");
        QTest::addColumn<QVariantList>("started"); // number, budget, view; empty: nothing ran
        QTest::addColumn<QString>("message");
        using namespace BudgetReportsText;
        const QString periodic = "cmdMonthlyDeviationReport", accumulative = "cmdAccumulativeDeviations";
        QTest::newRow("no project") << false << "Beta" << false << periodic + "0" << 2 << QVariantList{}
                                    << SelectProject;
        QTest::newRow("first item") << true << "" << false << periodic + "0" << 2 << QVariantList{}
                                    << SelectBudget;
        QTest::newRow("level master, periodic usage")
            << true << "Beta" << true << periodic + "1" << 2 << QVariantList{6, "Beta", 1} << NoRecords;
        QTest::newRow("whole bill, accumulative total")
            << true << "alpha" << false << accumulative + "0" << 3 << QVariantList{7, "alpha", 5} << Failed;
        QTest::newRow("cost-centre budget, financial, status 5")
            << true << "Beta.north" << true << "cmdFinancial" << 5 << QVariantList{10, "Beta.north"}
            << WholeBill;
        QTest::newRow("financial shown")
            << true << "Beta" << true << "cmdFinancial" << 1 << QVariantList{10, "Beta"} << QString();
    }
    void budgetButtons() {
        QFETCH(bool, project);
        QFETCH(QString, budget);
        QFETCH(bool, costCentres);
        QFETCH(QString, button);
        QFETCH(int, status);
        QFETCH(QVariantList, started);
        QFETCH(QString, message);
        BudgetMenu m(project);
        // A project's budgets by master title whatever the case, each master before its children.
        const QStringList listed =
            project ? QStringList{"alpha", "Beta", "Beta.north", "Beta.South"} : QStringList{};
        QCOMPARE(itemsOf(m.form->budgetList()).mid(1), listed);
        for (int i = 0; i < listed.size(); ++i)
            QCOMPARE(m.form->budgetList()->itemData(i + 1).toInt(), m.ids[listed[i]]);
        m.choose(budget);
        for (int i = 0; i < frmBudgetReports::ChargeButtons; ++i) {
            QCOMPARE(m.form->periodicButton(i)->isEnabled(), project);
            QCOMPARE(m.form->accumulativeButton(i)->isEnabled(), project);
        }
        QCOMPARE(m.form->financialButton()->isEnabled(), costCentres);
        QCOMPARE(m.form->top10Button()->isEnabled(), costCentres);
        auto* frame = m.form->findChild<QGroupBox*>(QStringLiteral("frameReports"));
        FakeBuilders builders(status, frame);
        m.form->session().reportStack.Push(QVariantList{ReportNumber::TotalCharges, 0, QString()});

        emit m.form->findChild<QPushButton*>(button)->clicked();
        QCOMPARE(m.f.dialogs.texts(), message.isEmpty() ? QStringList{} : QStringList{message});
        ReportParams expected;
        if (!started.isEmpty())
            expected = ReportParams{started[0], m.ids[started[1].toString()]} + started.mid(2);
        QCOMPARE(builders.asked, expected);
        QCOMPARE(builders.shown, status == 1 ? expected : QVariantList{});
        QCOMPARE(m.form->session().reportStack.Count(), started.isEmpty() ? 1 : 0);
        QCOMPARE(builders.enabledDuringRun, started.isEmpty());
        QVERIFY(frame->isEnabled());
    }
};

VANTREL_TEST(ReportMenusTest);
#include "tst_reportmenus.moc"
