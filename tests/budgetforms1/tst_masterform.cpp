// The master budget form: its start, the month cascade, the tick rule, creation with its
// messages, and the editing of a master's dates across its family.
#include "FormStores.h"
#include "TestRegistry.h"
#include "app/HelpTopics.h"
#include "budget/BudgetStatus.h"
#include "budget/clsBudget.h"
#include "budget/frmBudgetAddMaster.h"
#include "ui/ClickableLabel.h"
#include "ui/HelpWindow.h"
#include "ui/HoverHints.h"
#include "ui/uctFooter.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

using namespace testing;

namespace {

QString shown(const QDateEdit* picker) {
    return picker->date().toString(QStringLiteral("dd/MM/yyyy"));
}

// The twelve pickers as shown, from `first` on.
QStringList shownDates(const frmBudgetAddMaster& form, int first = 0) {
    QStringList dates;
    for (int i = first; i < frmBudgetAddMaster::PeriodCount; ++i)
        dates << shown(form.periodDate(i));
    return dates;
}

// "1" for a ticked period, "0" for an unticked one, periods 1 to 12.
QString ticks(const frmBudgetAddMaster& form) {
    QString t;
    for (int i = 0; i < frmBudgetAddMaster::PeriodCount; ++i)
        t += form.periodCheck(i)->isChecked() ? QLatin1Char('1') : QLatin1Char('0');
    return t;
}

QString enabledPickers(const frmBudgetAddMaster& form) {
    QString t;
    for (int i = 0; i < frmBudgetAddMaster::PeriodCount; ++i)
        t += form.periodDate(i)->isEnabled() ? QLatin1Char('1') : QLatin1Char('0');
    return t;
}

// Periods 1 to `count` from the first date on, by month.
void choosePeriods(frmBudgetAddMaster& form, const QDate& first, int count) {
    form.periodDate(0)->setDate(first);
    if (count < frmBudgetAddMaster::PeriodCount)
        form.periodCheck(count)->setChecked(false);
}

int createMaster(FormStores& s, const QString& title, int level, const QDate& first, int count) {
    frmBudgetAddMaster form(s.ctx);
    form.titleBox()->setText(title);
    form.levelList()->setCurrentIndex(level);
    choosePeriods(form, first, count);
    ModalDriver driver;
    driver.close("frmBudgetAddSlave");
    form.cmdCreate_Click();
    return s.idOfTitle(title);
}

// A cost-centre budget written through the model, with its own amounts per date.
int addChild(FormStores& s, int masterId, const QString& costCentre, const QList<Money>& usage) {
    clsBudget child(s.ctx.budgetDb, s.ctx.trendDb);
    child.CreateFromMaster(masterId, costCentre + QStringLiteral(" budget"), costCentre);
    for (int i = 0; i < usage.size(); ++i)
        child.Entry(i + 1).Usage = usage[i];
    if (child.SaveBudget(false) != BudgetStatus::Ok)
        return -1;
    return child.ID();
}

} // namespace

class MasterFormTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup();
    void captionsLevelsAndHints();
    void firstPeriodStartsAtTheLatestBill_data();
    void firstPeriodStartsAtTheLatestBill();
    void cascadeByCalendarMonth_data();
    void cascadeByCalendarMonth();
    void tickRuleKeepsAnUnbrokenRun();
    void noPeriodIsRefused();
    void levelMasterIsCreated();
    void emptyTitleIsAllowedOnce();
    void takenTitleKeepsTheFormOpen();
    void cancelWritesNothing();
    void helpOpensTheBudgetTopic();
    void editShowsTheMasterLocked();
    void editMovesAndDropsDatesAcrossTheFamily();
    void editAddsADateToEveryBudgetOfTheFamily();
};

void MasterFormTest::cleanup() {
    for (QWidget* w : QApplication::topLevelWidgets())
        w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void MasterFormTest::captionsLevelsAndHints() {
    FormStores s;
    frmBudgetAddMaster form(s.ctx);
    QCOMPARE(form.windowTitle(), QStringLiteral("Add Master Budget"));
    QVERIFY(!form.windowIcon().isNull());
    QVERIFY(
        form.noteLabel()->text().startsWith(QStringLiteral("Welcome to creating a budget, first of all")));
    QVERIFY(form.noteLabel()->text().endsWith(
        QStringLiteral("\"Period dates\" should be set to correspond to billing periods i.e. Monthly or "
                       "Quarterly.")));
    QCOMPARE(form.matchLabel()->text(),
             QStringLiteral("Budgeted dates must match billing dates within four days"));
    QCOMPARE(form.matchLabel()->palette().color(QPalette::WindowText), QColor(255, 90, 75));

    const QStringList levels{"Whole Bill", "Level 1", "Level 2", "Level 3", "Level 4", "Level 5"};
    QCOMPARE(form.levelList()->count(), levels.size());
    for (int i = 0; i < levels.size(); ++i) {
        QCOMPARE(form.levelList()->itemText(i), levels[i]);
        QCOMPARE(form.levelList()->itemData(i).toInt(), i);
    }
    QCOMPARE(form.levelList()->currentIndex(), 0);
    for (int i = 0; i < frmBudgetAddMaster::PeriodCount; ++i) {
        QCOMPARE(form.periodLabel(i)->text(), QStringLiteral("Period %1").arg(i + 1));
        QCOMPARE(form.periodCheck(i)->text(), QStringLiteral("Enabled"));
        QCOMPARE(form.periodDate(i)->displayFormat(), QStringLiteral("dd/MM/yyyy"));
        QVERIFY(form.periodDate(i)->calendarPopup());
    }
    QCOMPARE(form.createButton()->text(), QStringLiteral("Create Budget"));
    QCOMPARE(hintOf(form.createButton()), QStringLiteral("Create master budget"));
    QCOMPARE(hintOf(form.titleBox()), QStringLiteral("Enter the name for this budget"));
    QCOMPARE(hintOf(form.helpButton()), QStringLiteral("Show Help"));
    QCOMPARE(form.footer()->ExitButtonText(), QStringLiteral("Cancel"));
    QCOMPARE(form.footer()->ExitToolTipText(), QStringLiteral("Exit without saving"));
    // Create and Help are the strip's buttons.
    QCOMPARE(form.footer()->registeredCount(), 2);
    QCOMPARE(form.footer()->registeredButton(0), form.createButton());
    QCOMPARE(form.footer()->registeredButton(1), form.helpButton());
}

void MasterFormTest::firstPeriodStartsAtTheLatestBill_data() {
    QTest::addColumn<bool>("withTrend");
    QTest::addColumn<QDate>("first");
    QTest::addColumn<QDate>("last");
    // Bills of 15/01 and 15/03/2022 for the account, and a later one of another account.
    QTest::newRow("latest bill") << true << QDate(2022, 3, 15) << QDate(2023, 2, 15);
    const QDate today = QDate::currentDate();
    QTest::newRow("no trend: today") << false << today << Date::fromQDate(today).addMonths(11).toQDate();
}

void MasterFormTest::firstPeriodStartsAtTheLatestBill() {
    QFETCH(bool, withTrend);
    QFETCH(QDate, first);
    QFETCH(QDate, last);
    FormStores s;
    s.trendRow(QStringLiteral("ACC2"), Date(2022, 9, 30), QStringLiteral("0100"), cash("1"));
    if (withTrend) {
        s.trendRow(QStringLiteral("ACC1"), Date(2022, 1, 15), QStringLiteral("0100"), cash("1"));
        s.trendRow(QStringLiteral("ACC1"), Date(2022, 3, 15), QStringLiteral("0100"), cash("1"));
    }
    frmBudgetAddMaster form(s.ctx);
    QCOMPARE(form.periodDate(0)->date(), first);
    QCOMPARE(form.periodDate(11)->date(), last);
    QCOMPARE(ticks(form), QStringLiteral("111111111111"));
    QCOMPARE(enabledPickers(form), QStringLiteral("111111111111"));
}

void MasterFormTest::cascadeByCalendarMonth_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QStringList>("expected"); // the pickers from `row` on
    QTest::newRow("31 January slides to the end of February and stays")
        << 0 << QDate(2023, 1, 31)
        << QStringList{"31/01/2023", "28/02/2023", "28/03/2023", "28/04/2023", "28/05/2023", "28/06/2023",
                       "28/07/2023", "28/08/2023", "28/09/2023", "28/10/2023", "28/11/2023", "28/12/2023"};
    QTest::newRow("leap year: the 29th")
        << 0 << QDate(2024, 1, 31)
        << QStringList{"31/01/2024", "29/02/2024", "29/03/2024", "29/04/2024", "29/05/2024", "29/06/2024",
                       "29/07/2024", "29/08/2024", "29/09/2024", "29/10/2024", "29/11/2024", "29/12/2024"};
    QTest::newRow("the 31st meets a 30-day month first")
        << 0 << QDate(2023, 8, 31)
        << QStringList{"31/08/2023", "30/09/2023", "30/10/2023", "30/11/2023", "30/12/2023", "30/01/2024",
                       "29/02/2024", "29/03/2024", "29/04/2024", "29/05/2024", "29/06/2024", "29/07/2024"};
    QTest::newRow("from a middle row, across the year")
        << 5 << QDate(2023, 11, 30) << QStringList{"30/11/2023", "30/12/2023", "30/01/2024", "29/02/2024",
                                                   "29/03/2024", "29/04/2024", "29/05/2024"};
    QTest::newRow("the last row alone") << 11 << QDate(2030, 6, 1) << QStringList{"01/06/2030"};
}

void MasterFormTest::cascadeByCalendarMonth() {
    QFETCH(int, row);
    QFETCH(QDate, date);
    QFETCH(QStringList, expected);
    FormStores s;
    s.trendRow(QStringLiteral("ACC1"), Date(2022, 3, 15), QStringLiteral("0100"), cash("1"));
    frmBudgetAddMaster form(s.ctx);
    const QStringList before = shownDates(form);
    form.periodDate(row)->setDate(date);
    QCOMPARE(shownDates(form, row), expected);
    // The rows above the changed one keep their dates.
    QCOMPARE(shownDates(form).mid(0, row), before.mid(0, row));
}

void MasterFormTest::tickRuleKeepsAnUnbrokenRun() {
    FormStores s;
    frmBudgetAddMaster form(s.ctx);
    QCOMPARE(ticks(form), QStringLiteral("111111111111"));
    form.periodCheck(4)->click();
    QCOMPARE(ticks(form), QStringLiteral("111100000000"));
    QCOMPARE(enabledPickers(form), QStringLiteral("111100000000"));
    form.periodCheck(2)->click();
    QCOMPARE(ticks(form), QStringLiteral("110000000000"));
    form.periodCheck(2)->click();
    QCOMPARE(ticks(form), QStringLiteral("111000000000"));
    form.periodCheck(6)->click();
    QCOMPARE(ticks(form), QStringLiteral("111111100000"));
    QCOMPARE(enabledPickers(form), QStringLiteral("111111100000"));
    form.periodCheck(0)->click();
    QCOMPARE(ticks(form), QStringLiteral("000000000000"));
    QCOMPARE(enabledPickers(form), QStringLiteral("000000000000"));
    form.periodCheck(11)->click();
    QCOMPARE(ticks(form), QStringLiteral("111111111111"));
}

void MasterFormTest::noPeriodIsRefused() {
    FormStores s;
    frmBudgetAddMaster form(s.ctx);
    form.periodCheck(0)->click();
    QSignalSpy accepted(&form, &QDialog::accepted);
    form.cmdCreate_Click();
    QCOMPARE(s.dialogs.texts(), QStringList{"Please select at least one period"});
    QCOMPARE(s.dialogs.messages.back().icon, MessageIcon::Information);
    QCOMPARE(accepted.count(), 0);
    QCOMPARE(s.budgetCount(), 0);
}

void MasterFormTest::levelMasterIsCreated() {
    FormStores s;
    frmBudgetAddMaster form(s.ctx);
    const QString title = QStringLiteral("Level 'A' \"2023\"");
    form.titleBox()->setText(title);
    form.levelList()->setCurrentIndex(2);
    choosePeriods(form, QDate(2023, 1, 20), 3);
    ModalDriver driver;
    driver.close("frmBudgetAddSlave");
    QSignalSpy accepted(&form, &QDialog::accepted);
    form.cmdCreate_Click();
    QCOMPARE(accepted.count(), 1);
    QVERIFY(s.dialogs.messages.empty());
    // A level master waits for its cost-centre budgets: nothing more opens.
    QCOMPARE(driver.seen("frmBudgetAddSlave"), 0);
    const int id = s.idOfTitle(title);
    QVERIFY(id > 0);
    QCOMPARE(s.ctx.lastBudgetId, id);
    QCOMPARE(s.header(id), title + QStringLiteral("|ACC1|2||-1|-1"));
    QCOMPARE(s.entries(id), (QStringList{"2023-01-20:0/0/0/0", "2023-02-20:0/0/0/0", "2023-03-20:0/0/0/0"}));
}

void MasterFormTest::emptyTitleIsAllowedOnce() {
    FormStores s;
    QVERIFY(createMaster(s, QString(), 1, QDate(2023, 4, 1), 2) > 0);
    QVERIFY(s.dialogs.messages.empty());
    // The second empty title is a title in use.
    createMaster(s, QString(), 1, QDate(2023, 4, 1), 2);
    QCOMPARE(s.dialogs.texts(), QStringList{"The selected budget name already exists."});
    QCOMPARE(s.budgetCount(), 1);
}

void MasterFormTest::takenTitleKeepsTheFormOpen() {
    FormStores s;
    const int first = createMaster(s, QStringLiteral("Taken"), 1, QDate(2023, 4, 1), 2);
    QVERIFY(first > 0);
    s.ctx.lastBudgetId = -1;

    frmBudgetAddMaster form(s.ctx);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    // Titles compare without regard to case.
    form.titleBox()->setText(QStringLiteral("TAKEN"));
    form.levelList()->setCurrentIndex(3);
    QSignalSpy accepted(&form, &QDialog::accepted);
    form.cmdCreate_Click();
    QCOMPARE(s.dialogs.texts(), QStringList{"The selected budget name already exists."});
    QCOMPARE(s.dialogs.messages.back().icon, MessageIcon::Information);
    QCOMPARE(accepted.count(), 0);
    QVERIFY(form.isVisible());
    QCOMPARE(QApplication::focusWidget(), form.titleBox());
    QCOMPARE(s.budgetCount(), 1);
    QCOMPARE(s.ctx.lastBudgetId, -1);
}

void MasterFormTest::cancelWritesNothing() {
    FormStores s;
    frmBudgetAddMaster form(s.ctx);
    form.titleBox()->setText(QStringLiteral("Never"));
    QSignalSpy rejected(&form, &QDialog::rejected);
    emit form.footer()->ButtonClicked(uctFooter::ExitButton);
    QCOMPARE(rejected.count(), 1);
    QCOMPARE(s.budgetCount(), 0);
}

void MasterFormTest::helpOpensTheBudgetTopic() {
    FormStores s;
    frmBudgetAddMaster form(s.ctx);
    emit form.helpButton()->clicked();
    HelpWindow* help = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* h = qobject_cast<HelpWindow*>(w); h && h->isVisible())
            help = h;
    QVERIFY(help);
    QCOMPARE(help->topic(), HelpTopic::BudgetForms);
}

void MasterFormTest::editShowsTheMasterLocked() {
    FormStores s;
    const int id = createMaster(s, QStringLiteral("Locked"), 3, QDate(2023, 1, 31), 3);
    QVERIFY(id > 0);
    frmBudgetAddMaster form(s.ctx);
    form.SetupForEdit(id);
    QVERIFY(form.isEditing());
    QCOMPARE(form.windowTitle(), QStringLiteral("Edit Master Budget"));
    QCOMPARE(
        form.noteLabel()->text(),
        QStringLiteral("Note: Any changes made will be reflected in the relevant cost centre budgets (new "
                       "dates will acquire a budgeted cost based on the previous periods entry)."));
    QCOMPARE(form.createButton()->text(), QStringLiteral("Save Changes"));
    QCOMPARE(hintOf(form.createButton()), QStringLiteral("Save the master budget changes"));
    QCOMPARE(form.titleBox()->text(), QStringLiteral("Locked"));
    QVERIFY(form.titleBox()->isReadOnly());
    QCOMPARE(form.levelList()->currentText(), QStringLiteral("Level 3"));
    QVERIFY(!form.levelList()->isEnabled());
    QCOMPARE(ticks(form), QStringLiteral("111000000000"));
    // The stored dates, then the months after the last of them.
    QCOMPARE(shownDates(form).mid(0, 5),
             (QStringList{"31/01/2023", "28/02/2023", "28/03/2023", "28/04/2023", "28/05/2023"}));
    // While editing, a changed date moves alone.
    form.periodDate(0)->setDate(QDate(2023, 1, 15));
    QCOMPARE(shownDates(form).mid(0, 3), (QStringList{"15/01/2023", "28/02/2023", "28/03/2023"}));
}

void MasterFormTest::editMovesAndDropsDatesAcrossTheFamily() {
    FormStores s;
    const int master = createMaster(s, QStringLiteral("Family 'One'"), 1, QDate(2023, 1, 20), 3);
    const int north = addChild(s, master, QStringLiteral("North"), {cash("1.5"), cash("2.5"), cash("3.5")});
    const int south = addChild(s, master, QStringLiteral("O'Neill"), {cash("10"), cash("20"), cash("30")});
    QVERIFY(north > 0 && south > 0);

    frmBudgetAddMaster form(s.ctx);
    form.SetupForEdit(master);
    form.periodDate(1)->setDate(QDate(2023, 2, 22));
    form.periodCheck(2)->click();
    QSignalSpy accepted(&form, &QDialog::accepted);
    form.cmdCreate_Click();
    QCOMPARE(accepted.count(), 1);
    QVERIFY(s.dialogs.messages.empty());
    // The moved date keeps its amounts; the unticked one is gone from every budget.
    QCOMPARE(s.entries(north), (QStringList{"2023-01-20:1.5/0/0/0", "2023-02-22:2.5/0/0/0"}));
    QCOMPARE(s.entries(south), (QStringList{"2023-01-20:10/0/0/0", "2023-02-22:20/0/0/0"}));
    QCOMPARE(s.entries(master), (QStringList{"2023-01-20:0/0/0/0", "2023-02-22:0/0/0/0"}));
}

void MasterFormTest::editAddsADateToEveryBudgetOfTheFamily() {
    FormStores s;
    const int master = createMaster(s, QStringLiteral("Family Two"), 1, QDate(2023, 1, 20), 2);
    const int child = addChild(s, master, QStringLiteral("North"), {cash("4"), cash("5")});
    QVERIFY(child > 0);

    frmBudgetAddMaster form(s.ctx);
    form.SetupForEdit(master);
    QCOMPARE(shown(form.periodDate(2)), QStringLiteral("20/03/2023"));
    form.periodCheck(3)->click();
    QCOMPARE(ticks(form), QStringLiteral("111100000000"));
    form.cmdCreate_Click();
    QCOMPARE(s.entries(child), (QStringList{"2023-01-20:4/0/0/0", "2023-02-20:5/0/0/0", "2023-03-20:0/0/0/0",
                                            "2023-04-20:0/0/0/0"}));
    QCOMPARE(s.entries(master).size(), 4);
    // Nothing else was touched.
    QCOMPARE(s.budgetCount(), 2);
}

VANTREL_TEST(MasterFormTest);
#include "tst_masterform.moc"
