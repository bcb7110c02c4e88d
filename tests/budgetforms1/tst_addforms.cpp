// The forms that make a budget: the master form (periods, creation, editing its dates) and
// the cost-centre form in its two modes. Amounts are worked by hand from the trend rows below.
#include "FormStores.h"
#include "TestRegistry.h"
#include "budget/BudgetStatus.h"
#include "budget/clsBudget.h"
#include "budget/frmBudgetAddMaster.h"
#include "budget/frmBudgetAddSlave.h"
#include "ui/uctFooter.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

using namespace testing;

namespace {

const QString Acc = QStringLiteral("ACC1");

// Three bills of ACC1. Whole bill, usage/recurring/one-off/adjustments:
//   15/01/2022  33.4567/5/1/0.5       (0100: 10/5/1/0.5, 0200: 20.1234, 0300: 3.3333)
//   15/02/2022  19.3457/5/-2/0.0003   (0100: 12.3456/5/-2/0.0003, 0200: 7.0001)
//   15/03/2022  8/2/0/0               (0100 only)
// Cost centres of level 1: 0100 "Sales", 0200 "O'Brien & Co". ACC2's bill must not count.
void fillStores(FormStores& s) {
    const Date jan(2022, 1, 15), feb(2022, 2, 15), mar(2022, 3, 15);
    s.trendRow(Acc, jan, QStringLiteral("0100"), cash("10"), cash("5"), cash("1"), cash("0.5"));
    s.trendRow(Acc, jan, QStringLiteral("0200"), cash("20.1234"));
    s.trendRow(Acc, jan, QStringLiteral("0300"), cash("3.3333"));
    s.trendRow(Acc, feb, QStringLiteral("0100"), cash("12.3456"), cash("5"), cash("-2"), cash("0.0003"));
    s.trendRow(Acc, feb, QStringLiteral("0200"), cash("7.0001"));
    s.trendRow(Acc, mar, QStringLiteral("0100"), cash("8"), cash("2"));
    s.trendRow(QStringLiteral("ACC2"), Date(2022, 6, 15), QStringLiteral("0100"), cash("999"));
    s.costCentre(Acc, QStringLiteral("0100"), QStringLiteral("Sales"));
    s.costCentre(Acc, QStringLiteral("0200"), QStringLiteral("O'Brien & Co"));
}

// A master of ACC1 with periods on the 20th from January 2023 on.
int master(FormStores& s, const QString& title, int level, int periods) {
    const int id = s.budget(title, Acc, level);
    for (int month = 1; month <= periods; ++month)
        s.entry(id, Date(2023, month, 20));
    return id;
}

QString shownDates(const frmBudgetAddMaster& form, int first = 0) {
    QStringList dates;
    for (int i = first; i < frmBudgetAddMaster::PeriodCount; ++i)
        dates << form.periodDate(i)->date().toString(QStringLiteral("dd/MM/yyyy"));
    return dates.join(QLatin1Char(' '));
}

// "1" per ticked period, "0" per unticked one; then "|" and the enabled pickers if they differ.
QString ticks(const frmBudgetAddMaster& form) {
    QString ticked, enabled;
    for (int i = 0; i < frmBudgetAddMaster::PeriodCount; ++i) {
        ticked += form.periodCheck(i)->isChecked() ? QLatin1Char('1') : QLatin1Char('0');
        enabled += form.periodDate(i)->isEnabled() ? QLatin1Char('1') : QLatin1Char('0');
    }
    return ticked == enabled ? ticked : ticked + QLatin1Char('|') + enabled;
}

// The period rows in use as "budget date=trend entry x percent".
QStringList periodRows(const frmBudgetAddSlave& form) {
    QStringList rows;
    for (int i = 0; i < frmBudgetAddSlave::PeriodCount; ++i) {
        if (!form.percentBox(i)->isHidden())
            rows << form.periodLabel(i)->text() + QLatin1Char('=') + form.trendList(i)->currentText() +
                        QLatin1Char('x') + form.percentBox(i)->text();
    }
    return rows;
}

const QStringList FourRows{"20/01/2023=15/01/2022x0.0", "20/02/2023=15/02/2022x0.0",
                           "20/03/2023=15/03/2022x0.0", "20/04/2023=No Trend Entryx0.0"};

// Clicks Create with the editor that a successful save opens closed again at once.
void create(frmBudgetAddSlave& form, ModalDriver& driver, const QString& costCentre = {},
            const QString& title = {}) {
    if (!costCentre.isEmpty())
        form.costCentreList()->setCurrentIndex(form.costCentreList()->findText(costCentre));
    if (!title.isEmpty())
        form.titleBox()->setText(title);
    driver.when("frmBudgetEdit");
    form.cmdCreate_Click();
}

} // namespace

class MasterFormTest : public QObject {
    Q_OBJECT
private slots:
    void periodDatesAndTicks();
    void createAndItsRefusals();
    void editSavesTheDatesAcrossTheFamily();
};

void MasterFormTest::periodDatesAndTicks() {
    FormStores s;
    s.trendRow(QStringLiteral("ACC2"), Date(2022, 9, 30), QStringLiteral("0100"), cash("1")); // not ours
    const QString today = QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy"));
    QCOMPARE(shownDates(frmBudgetAddMaster(s.ctx)).left(10), today);
    s.trendRow(Acc, Date(2022, 3, 15), QStringLiteral("0100"), cash("1"));
    s.trendRow(Acc, Date(2022, 1, 15), QStringLiteral("0100"), cash("1"));
    frmBudgetAddMaster form(s.ctx);
    QCOMPARE(shownDates(form).left(11) + shownDates(form, 10),
             QStringLiteral("15/03/2022 15/01/2023 15/02/2023"));
    // The 31st meets a 30-day month, then a leap February, and keeps the day it came to.
    form.periodDate(0)->setDate(QDate(2023, 8, 31));
    const QString fromAugust = shownDates(form);
    QCOMPARE(fromAugust, QStringLiteral("31/08/2023 30/09/2023 30/10/2023 30/11/2023 30/12/2023 30/01/2024 "
                                        "29/02/2024 29/03/2024 29/04/2024 29/05/2024 29/06/2024 29/07/2024"));
    form.periodDate(5)->setDate(QDate(2025, 1, 31)); // from a middle row on; the rows above stay
    QCOMPARE(shownDates(form), fromAugust.left(55) + "31/01/2025 28/02/2025 28/03/2025 28/04/2025 "
                                                     "28/05/2025 28/06/2025 28/07/2025");
    QCOMPARE(ticks(form), QStringLiteral("111111111111"));
    // An untick unticks every later period, a tick ticks every earlier one.
    const QList<std::pair<int, QString>> steps{{4, "111100000000"}, {2, "110000000000"},
                                               {2, "111000000000"}, {6, "111111100000"},
                                               {0, "000000000000"}, {11, "111111111111"}};
    for (const auto& [period, expected] : steps) {
        form.periodCheck(period)->click();
        QCOMPARE(ticks(form), expected);
    }
}

void MasterFormTest::createAndItsRefusals() {
    FormStores s;
    master(s, QStringLiteral("Taken"), 1, 1);
    frmBudgetAddMaster form(s.ctx);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QSignalSpy accepted(&form, &QDialog::accepted);
    ModalDriver driver; // a level master waits for its cost-centre budgets: nothing more opens
    driver.when("frmBudgetAddSlave");
    form.periodDate(0)->setDate(QDate(2023, 1, 20));
    form.levelList()->setCurrentIndex(2);
    form.periodCheck(0)->click();
    form.cmdCreate_Click();
    form.periodCheck(2)->click();
    form.titleBox()->setText(QStringLiteral("TAKEN")); // titles compare without regard to case
    form.levelList()->setFocus();
    form.cmdCreate_Click();
    QCOMPARE(s.dialogs.texts(), (QStringList{BudgetText::SelectPeriod, BudgetText::MasterNameExists}));
    QCOMPARE(QApplication::focusWidget(), form.titleBox());
    QCOMPARE(accepted.count(), 0);
    QCOMPARE(s.budgetCount(), 1);
    QCOMPARE(s.ctx.lastBudgetId, -1);

    const QString title = QStringLiteral("Level 'A' \"2023\"");
    form.titleBox()->setText(title);
    form.cmdCreate_Click();
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(s.dialogs.messages.size(), size_t(2));
    QCOMPARE(driver.seen("frmBudgetAddSlave"), 0);
    const int id = s.idOfTitle(title);
    QCOMPARE(s.ctx.lastBudgetId, id);
    QCOMPARE(s.header(id), title + QStringLiteral("|ACC1|2||-1|-1"));
    QCOMPARE(s.entries(id), (QStringList{"2023-01-20:0/0/0/0", "2023-02-20:0/0/0/0", "2023-03-20:0/0/0/0"}));

    frmBudgetAddMaster cancelled(s.ctx);
    cancelled.titleBox()->setText(QStringLiteral("Never"));
    QSignalSpy rejected(&cancelled, &QDialog::rejected);
    emit cancelled.footer()->ButtonClicked(uctFooter::ExitButton);
    QCOMPARE(rejected.count(), 1);
    QCOMPARE(s.budgetCount(), 2);
}

void MasterFormTest::editSavesTheDatesAcrossTheFamily() {
    FormStores s;
    const int id = master(s, QStringLiteral("Family"), 3, 3);
    clsBudget child(s.ctx.budgetDb, s.ctx.trendDb);
    child.CreateFromMaster(id, QStringLiteral("North budget"), QStringLiteral("North"));
    for (int i = 1; i <= 3; ++i)
        child.Entry(i).Usage = Money::fromPounds(i);
    QCOMPARE(child.SaveBudget(false), BudgetStatus::Ok);

    frmBudgetAddMaster form(s.ctx);
    form.SetupForEdit(id);
    // Neither title nor level may change; the unused periods go on from the last date.
    QVERIFY(form.titleBox()->isReadOnly());
    QVERIFY(!form.levelList()->isEnabled());
    QCOMPARE(ticks(form), QStringLiteral("111000000000"));
    QCOMPARE(shownDates(form).left(43), QStringLiteral("20/01/2023 20/02/2023 20/03/2023 20/04/2023"));
    form.periodDate(1)->setDate(QDate(2023, 2, 22)); // while editing, a changed date moves alone
    QCOMPARE(shownDates(form).left(43), QStringLiteral("20/01/2023 22/02/2023 20/03/2023 20/04/2023"));
    form.periodCheck(3)->click();
    form.cmdCreate_Click();
    QVERIFY(s.dialogs.messages.empty());
    // The moved date keeps its amounts; the new one comes with zeros.
    QCOMPARE(s.entries(child.ID()), (QStringList{"2023-01-20:1/0/0/0", "2023-02-22:2/0/0/0",
                                                 "2023-03-20:3/0/0/0", "2023-04-20:0/0/0/0"}));
}

class SlaveFormTest : public QObject {
    Q_OBJECT
private slots:
    void wholeBillMasterThroughBothForms_data();
    void wholeBillMasterThroughBothForms();
    void costCentreBudgetsUnderALevelMaster();
};

void SlaveFormTest::wholeBillMasterThroughBothForms_data() {
    QTest::addColumn<bool>("blank");
    QTest::addColumn<QStringList>("entries");
    // +50 %: 19.3457 x 1.5 = 29.01855 and 0.0003 x 1.5 = 0.00045 round half to even. -50 % of
    // March; April has no bill a year before: March carried unscaled, then +25 %.
    QTest::newRow("amounts from the trend")
        << false
        << QStringList{"2023-01-20:33.4567/5/1/0.5", "2023-02-20:29.0186/7.5/-3/0.0004", "2023-03-20:4/1/0/0",
                       "2023-04-20:10/2.5/0/0"};
    QTest::newRow("create as blank") << true
                                     << QStringList{"2023-01-20:0/0/0/0", "2023-02-20:0/0/0/0",
                                                    "2023-03-20:0/0/0/0", "2023-04-20:0/0/0/0"};
}

void SlaveFormTest::wholeBillMasterThroughBothForms() {
    QFETCH(bool, blank);
    QFETCH(QStringList, entries);
    FormStores s;
    fillStores(s);
    frmBudgetAddMaster masterForm(s.ctx); // the level is the whole bill unless chosen
    const QString title = QStringLiteral("Whole 'Bill' \"2023\"");
    masterForm.titleBox()->setText(title);
    masterForm.periodDate(0)->setDate(QDate(2023, 1, 20));
    masterForm.periodCheck(4)->click();
    QStringList rows;
    bool wholeBillMode = false; // the master's title, locked, and no cost centre to choose
    ModalDriver driver;
    driver.when("frmBudgetAddSlave", [&](QWidget* w) {
        auto* form = qobject_cast<frmBudgetAddSlave*>(w);
        rows = periodRows(*form);
        wholeBillMode = form->titleBox()->isReadOnly() && form->titleBox()->text() == title &&
                        form->costCentreList()->isHidden();
        form->percentBox(1)->setText(QStringLiteral("50"));
        form->percentBox(2)->setText(QStringLiteral("-50"));
        form->percentBox(3)->setText(QStringLiteral("25"));
        if (blank)
            emit form->footer()->ButtonClicked(uctFooter::ExitButton);
        else
            form->cmdCreate_Click();
    });
    driver.when("frmBudgetEdit");
    masterForm.cmdCreate_Click();
    QCOMPARE(driver.seen("frmBudgetAddSlave"), 1);
    QCOMPARE(driver.seen("frmBudgetEdit"), blank ? 0 : 1);
    QVERIFY2(s.dialogs.messages.empty(), qPrintable(s.dialogs.texts().join(QLatin1Char('\n'))));
    QVERIFY(wholeBillMode);
    QCOMPARE(rows, FourRows);
    const int id = s.idOfTitle(title);
    QCOMPARE(s.ctx.lastBudgetId, id);
    QCOMPARE(s.header(id), title + QStringLiteral("|ACC1|0||-1|-1"));
    QCOMPARE(s.entries(id), entries);
}

void SlaveFormTest::costCentreBudgetsUnderALevelMaster() {
    FormStores s;
    fillStores(s);
    const int id = master(s, QStringLiteral("Level One"), 1, 4);
    ModalDriver driver;
    frmBudgetAddSlave first(s.ctx);
    first.Setup(id, false);
    QCOMPARE(first.trendList(3)->count(), 4); // "No Trend Entry" and the account's three bills
    QCOMPARE(periodRows(first), FourRows);
    create(first, driver);
    QCOMPARE(first.focusWidget(), first.costCentreList());
    // A percent beyond 1000 is refused on Create; the box at fault gets the focus.
    first.percentBox(2)->setText(QStringLiteral("1000.1"));
    create(first, driver, QStringLiteral("Sales"), QStringLiteral("  Sales 'Q1'  "));
    QCOMPARE(first.focusWidget(), first.percentBox(2));
    QCOMPARE(s.dialogs.texts(), (QStringList{BudgetText::SelectCostCentre, BudgetText::PercentInvalid}));
    QCOMPARE(s.budgetCount(), 1);

    // Sales is 0100 alone. -100 % gives zeros; 1000 % is eleven times; period 4 carries
    // period 3 unscaled (8/2/0/0) and turns it by -1000 %, nine times negative.
    s.dialogs.messages.clear();
    first.percentBox(0)->setText(QStringLiteral("-100"));
    first.percentBox(2)->setText(QStringLiteral("1000"));
    first.percentBox(3)->setText(QStringLiteral("-1000"));
    create(first, driver);
    QCOMPARE(first.result(), int(QDialog::Accepted));
    QCOMPARE(driver.seen("frmBudgetEdit"), 1);
    const int sales = s.idOfTitle(QStringLiteral("Sales 'Q1'"));
    QCOMPARE(s.header(sales), QStringLiteral("Sales 'Q1'|ACC1|1|Sales|%1|0").arg(id));
    QCOMPARE(s.entries(sales), (QStringList{"2023-01-20:0/0/0/0", "2023-02-20:12.3456/5/-2/0.0003",
                                            "2023-03-20:88/22/0/0", "2023-04-20:-72/-18/0/0"}));

    // The same cost centre again, then a title in use under the master (in any case): refused.
    frmBudgetAddSlave second(s.ctx);
    second.Setup(id, false);
    create(second, driver, QStringLiteral("Sales"), QStringLiteral("Sales again"));
    QCOMPARE(second.focusWidget(), second.costCentreList());
    create(second, driver, QStringLiteral("O'Brien & Co"), QStringLiteral("SALES 'q1'"));
    QCOMPARE(second.focusWidget(), second.titleBox());
    QCOMPARE(s.dialogs.texts(),
             (QStringList{BudgetText::CostCentreAllocated, BudgetText::CostCentreNameInUse}));
    QCOMPARE(s.budgetCount(), 2);

    QLineEdit* box = second.percentBox(0);
    // Keys typed, why the box loses the focus, and the text left: "0.0" after a warning.
    const QList<std::tuple<QString, Qt::FocusReason, QString>> cases{
        {"a1b.2 c%5\b", Qt::TabFocusReason, "1.2"}, // only digits, point, minus and control keys
        {"1.2.3", Qt::MouseFocusReason, "0.0"},
        {"12-", Qt::TabFocusReason, "0.0"},
        {"", Qt::TabFocusReason, ""},
        {"1.2.3", Qt::ActiveWindowFocusReason, "1.2.3"}}; // leaving the window is no leaving of the box
    for (const auto& [keys, reason, after] : cases) {
        s.dialogs.messages.clear();
        box->clear();
        QTest::keyClicks(box, keys);
        QFocusEvent out(QEvent::FocusOut, reason);
        QApplication::sendEvent(box, &out);
        QCOMPARE(box->text(), after);
        QCOMPARE(s.dialogs.texts(),
                 after == QLatin1String("0.0") ? QStringList{BudgetText::PercentNotNumeric} : QStringList());
    }
}

VANTREL_TEST(MasterFormTest);
VANTREL_TEST(SlaveFormTest);
#include "tst_addforms.moc"
