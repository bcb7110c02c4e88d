// The cost-centre budget form in both of its modes: a whole-bill master filled straight
// after its creation, and cost-centre budgets under a level master. The amounts are worked
// out by hand from the trend rows below.
#include "FormStores.h"
#include "TestRegistry.h"
#include "budget/BudgetStatus.h"
#include "budget/clsBudget.h"
#include "budget/frmBudgetAddMaster.h"
#include "budget/frmBudgetAddSlave.h"
#include "ui/ClickableLabel.h"
#include "ui/HoverHints.h"
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
// Cost centres of level 1: 0100 "Sales", 0200 "O'Brien & Co", 0400 "Empty Centre" (no
// trend rows), 0500 blank. ACC2 has a bill that must not count.
void fillStores(FormStores& s) {
    const Date jan(2022, 1, 15);
    const Date feb(2022, 2, 15);
    const Date mar(2022, 3, 15);
    s.trendRow(Acc, jan, QStringLiteral("0100"), cash("10"), cash("5"), cash("1"), cash("0.5"));
    s.trendRow(Acc, jan, QStringLiteral("0200"), cash("20.1234"));
    s.trendRow(Acc, jan, QStringLiteral("0300"), cash("3.3333"));
    s.trendRow(Acc, feb, QStringLiteral("0100"), cash("12.3456"), cash("5"), cash("-2"), cash("0.0003"));
    s.trendRow(Acc, feb, QStringLiteral("0200"), cash("7.0001"));
    s.trendRow(Acc, mar, QStringLiteral("0100"), cash("8"), cash("2"));
    s.trendRow(QStringLiteral("ACC2"), Date(2022, 6, 15), QStringLiteral("0100"), cash("999"));
    s.costCentre(Acc, QStringLiteral("0100"), QStringLiteral("Sales"));
    s.costCentre(Acc, QStringLiteral("0200"), QStringLiteral("O'Brien & Co"));
    s.costCentre(Acc, QStringLiteral("0400"), QStringLiteral("Empty Centre"));
    s.costCentre(Acc, QStringLiteral("0500"), QStringLiteral("  "));
    s.costCentre(QStringLiteral("ACC2"), QStringLiteral("0100"), QStringLiteral("Elsewhere"));
}

// A master of the account written through the model, with zero amounts.
int levelMaster(FormStores& s, const QString& title, int level, const QList<Date>& dates) {
    clsBudget master(s.ctx.budgetDb, s.ctx.trendDb);
    master.CreateMaster(Acc, level);
    master.setName(title);
    for (const Date& d : dates)
        master.AddDate(d, {}, {}, {}, {});
    return master.SaveBudget(false) == BudgetStatus::Ok ? master.ID() : -1;
}

const QList<Date> FourPeriods{Date(2023, 1, 20), Date(2023, 2, 20), Date(2023, 3, 20), Date(2023, 4, 20)};

QStringList itemTexts(const QComboBox* list) {
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts << list->itemText(i);
    return texts;
}

QStringList chosenTrends(const frmBudgetAddSlave& form, int count) {
    QStringList texts;
    for (int i = 0; i < count; ++i)
        texts << form.trendList(i)->currentText();
    return texts;
}

void selectCostCentre(frmBudgetAddSlave& form, const QString& name) {
    form.costCentreList()->setCurrentIndex(form.costCentreList()->findText(name));
}

// Clicks Create with the editor that a successful save opens closed again at once.
void create(frmBudgetAddSlave& form, ModalDriver& driver) {
    driver.close("frmBudgetEdit");
    form.cmdCreate_Click();
}

void sendFocus(QWidget* w, QEvent::Type type, Qt::FocusReason reason = Qt::TabFocusReason) {
    QFocusEvent event(type, reason);
    QApplication::sendEvent(w, &event);
}

} // namespace

class SlaveFormTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup();
    void wholeBillMasterThroughBothForms();
    void createAsBlankLeavesTheMasterAtZero();
    void costCentreModeShowsTheMastersPeriods();
    void twoBudgetsForOneCostCentre();
    void defaultTrendEntryIsTheSameMonthAYearBefore();
    void percentRules_data();
    void percentRules();
    void percentBoxTakesOnlyNumberKeys();
    void percentBoxRefusesTextThatIsNoNumber_data();
    void percentBoxRefusesTextThatIsNoNumber();
};

void SlaveFormTest::cleanup() {
    for (QWidget* w : QApplication::topLevelWidgets())
        w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void SlaveFormTest::wholeBillMasterThroughBothForms() {
    FormStores s;
    fillStores(s);
    frmBudgetAddMaster master(s.ctx);
    const QString title = QStringLiteral("Whole 'Bill' \"2023\"");
    master.titleBox()->setText(title);
    QCOMPARE(master.levelList()->currentText(), QStringLiteral("Whole Bill"));
    master.periodDate(0)->setDate(QDate(2023, 1, 20));
    master.periodCheck(4)->click();

    // What the amounts form shows, gathered while it is open and checked afterwards.
    QString caption, titleText, exitText, exitHint, createText, createHint, note;
    bool titleLocked = false, costCentreHidden = false, ccLabelHidden = false;
    QStringList periods, trends, percents;
    int liveRows = 0;
    ModalDriver driver;
    driver.when("frmBudgetAddSlave", [&](QWidget* w) {
        auto* form = qobject_cast<frmBudgetAddSlave*>(w);
        caption = form->windowTitle();
        titleText = form->titleBox()->text();
        titleLocked = form->titleBox()->isReadOnly();
        costCentreHidden = form->costCentreList()->isHidden();
        ccLabelHidden = form->findChild<QLabel*>(QStringLiteral("lblCC"))->isHidden();
        exitText = form->footer()->ExitButtonText();
        exitHint = form->footer()->ExitToolTipText();
        createText = form->createButton()->text();
        createHint = hintOf(form->createButton());
        note = form->noteLabel()->text();
        for (int i = 0; i < frmBudgetAddSlave::PeriodCount; ++i)
            liveRows += form->periodLabel(i)->isHidden() ? 0 : 1;
        for (int i = 0; i < 4; ++i) {
            periods << form->periodLabel(i)->text();
            trends << form->trendList(i)->currentText();
            percents << form->percentBox(i)->text();
        }
        // Period 4 has no bill a year before: it carries period 3 unscaled, then adds 25 %.
        form->percentBox(1)->setText(QStringLiteral("50"));
        form->percentBox(2)->setText(QStringLiteral("-50"));
        form->percentBox(3)->setText(QStringLiteral("25"));
        form->cmdCreate_Click();
        if (form->isVisible())
            form->reject();
    });
    driver.close("frmBudgetEdit");
    // As the program does it: the master form shown modally, its Create clicked there.
    driver.when("frmBudgetAddMaster", [](QWidget* w) {
        auto* form = qobject_cast<frmBudgetAddMaster*>(w);
        form->cmdCreate_Click();
        if (form->isVisible())
            form->reject();
    });
    QCOMPARE(master.exec(), int(QDialog::Accepted));

    QCOMPARE(driver.seen("frmBudgetAddSlave"), 1);
    QCOMPARE(driver.seen("frmBudgetEdit"), 1);
    QVERIFY2(s.dialogs.messages.empty(), qPrintable(s.dialogs.texts().join(QLatin1Char('\n'))));
    QCOMPARE(caption, QStringLiteral("Create Master Budget"));
    QCOMPARE(titleText, title);
    QVERIFY(titleLocked);
    QVERIFY(costCentreHidden);
    QVERIFY(ccLabelHidden);
    QCOMPARE(exitText, QStringLiteral("Create As Blank"));
    QCOMPARE(exitHint, QStringLiteral("Save the budget with all date points as 0"));
    QCOMPARE(createText, QStringLiteral("Save Budget"));
    QCOMPARE(createHint, QStringLiteral("Save the master budget"));
    QCOMPARE(note, QStringLiteral("Please select trend dates for each period to be based, if a selection is "
                                  "omitted then the previously selected trend entry will be used."));
    QCOMPARE(liveRows, 4);
    QCOMPARE(periods, (QStringList{"20/01/2023", "20/02/2023", "20/03/2023", "20/04/2023"}));
    QCOMPARE(trends, (QStringList{"15/01/2022", "15/02/2022", "15/03/2022", "No Trend Entry"}));
    QCOMPARE(percents, (QStringList{"0.0", "0.0", "0.0", "0.0"}));

    const int id = s.idOfTitle(title);
    QCOMPARE(s.ctx.lastBudgetId, id);
    QCOMPARE(s.header(id), title + QStringLiteral("|ACC1|0||-1|-1"));
    // 19.3457 x 1.5 = 29.01855 and 0.0003 x 1.5 = 0.00045 both round half to even.
    QCOMPARE(s.entries(id), (QStringList{"2023-01-20:33.4567/5/1/0.5", "2023-02-20:29.0186/7.5/-3/0.0004",
                                         "2023-03-20:4/1/0/0", "2023-04-20:10/2.5/0/0"}));
    QCOMPARE(s.budgetCount(), 1);
}

void SlaveFormTest::createAsBlankLeavesTheMasterAtZero() {
    FormStores s;
    fillStores(s);
    frmBudgetAddMaster master(s.ctx);
    master.titleBox()->setText(QStringLiteral("Blank"));
    master.periodDate(0)->setDate(QDate(2023, 1, 20));
    master.periodCheck(2)->click();
    ModalDriver driver;
    driver.when("frmBudgetAddSlave", [](QWidget* w) {
        emit qobject_cast<frmBudgetAddSlave*>(w)->footer()->ButtonClicked(uctFooter::ExitButton);
    });
    driver.close("frmBudgetEdit");
    master.cmdCreate_Click();
    QCOMPARE(driver.seen("frmBudgetAddSlave"), 1);
    QCOMPARE(driver.seen("frmBudgetEdit"), 0);
    QCOMPARE(s.entries(s.idOfTitle(QStringLiteral("Blank"))),
             (QStringList{"2023-01-20:0/0/0/0", "2023-02-20:0/0/0/0"}));
}

void SlaveFormTest::costCentreModeShowsTheMastersPeriods() {
    FormStores s;
    fillStores(s);
    const int master = levelMaster(s, QStringLiteral("Level One"), 1, FourPeriods);
    frmBudgetAddSlave form(s.ctx);
    form.Setup(master, false);

    QVERIFY(!form.isWholeBill());
    QCOMPARE(form.windowTitle(), QStringLiteral("New Cost Centre Budget "));
    QCOMPARE(
        form.noteLabel()->text(),
        QStringLiteral("Welcome to creating a cost centre budget, Below are twelve selection boxes to choose "
                       "the associated trend entries for which the budget is to be based."));
    QCOMPARE(form.titleBox()->text(), QStringLiteral("Please enter a budget name"));
    QCOMPARE(form.titleBox()->selectedText(), form.titleBox()->text());
    QCOMPARE(itemTexts(form.costCentreList()),
             (QStringList{"No Cost Centre Selected", "Empty Centre", "O'Brien & Co", "Sales"}));
    QCOMPARE(form.costCentreList()->currentIndex(), 0);
    for (int i = 0; i < frmBudgetAddSlave::PeriodCount; ++i) {
        const bool live = i < 4;
        QCOMPARE(form.periodLabel(i)->isHidden(), !live);
        QCOMPARE(form.trendList(i)->isHidden(), !live);
        QCOMPARE(form.percentBox(i)->isHidden(), !live);
        QCOMPARE(form.findChild<QLabel*>(QStringLiteral("lblEquals%1").arg(i))->isHidden(), !live);
        QCOMPARE(form.findChild<QLabel*>(QStringLiteral("lblTimes%1").arg(i))->isHidden(), !live);
        // Every list offers the account's bills, oldest first.
        QCOMPARE(itemTexts(form.trendList(i)),
                 (QStringList{"No Trend Entry", "15/01/2022", "15/02/2022", "15/03/2022"}));
    }
    QCOMPARE(form.periodLabel(3)->text(), QStringLiteral("20/04/2023"));
    QCOMPARE(form.percentBox(3)->text(), QStringLiteral("0.0"));
    QCOMPARE(chosenTrends(form, 4),
             (QStringList{"15/01/2022", "15/02/2022", "15/03/2022", "No Trend Entry"}));
    QCOMPARE(form.createButton()->text(), QStringLiteral("Create Budget"));
    QCOMPARE(hintOf(form.createButton()), QStringLiteral("Create cost centre budget"));
    QCOMPARE(hintOf(form.percentBox(0)), QStringLiteral("Enter the % change to apply"));
    QCOMPARE(hintOf(form.titleBox()), QStringLiteral("Enter the name for this budget"));
    QCOMPARE(form.footer()->ExitButtonText(), QStringLiteral("Cancel"));
    QCOMPARE(form.footer()->ExitToolTipText(), QStringLiteral("Exit without saving"));
    QCOMPARE(form.findChild<QLabel*>(QStringLiteral("lblPercent"))->text(),
             QStringLiteral("%  Change to Apply"));
}

void SlaveFormTest::twoBudgetsForOneCostCentre() {
    FormStores s;
    fillStores(s);
    const int master = levelMaster(s, QStringLiteral("Level One"), 1, FourPeriods);
    ModalDriver driver;

    frmBudgetAddSlave first(s.ctx);
    first.Setup(master, false);
    create(first, driver);
    QCOMPARE(s.dialogs.texts(), QStringList{"Please select a cost centre."});
    QCOMPARE(first.focusWidget(), first.costCentreList());
    QCOMPARE(s.budgetCount(), 1);

    // Sales is 0100 alone. -100 % gives zeros; 1000 % is eleven times; period 4 carries
    // period 3 unscaled (8/2/0/0) and turns it by -1000 %, nine times negative.
    s.dialogs.messages.clear();
    selectCostCentre(first, QStringLiteral("Sales"));
    first.titleBox()->setText(QStringLiteral("  Sales 'Q1'  "));
    first.percentBox(0)->setText(QStringLiteral("-100"));
    first.percentBox(2)->setText(QStringLiteral("1000"));
    first.percentBox(3)->setText(QStringLiteral("-1000"));
    QSignalSpy firstAccepted(&first, &QDialog::accepted);
    create(first, driver);
    QVERIFY2(s.dialogs.messages.empty(), qPrintable(s.dialogs.texts().join(QLatin1Char('\n'))));
    QCOMPARE(firstAccepted.count(), 1);
    QCOMPARE(driver.seen("frmBudgetEdit"), 1);
    const int sales = s.idOfTitle(QStringLiteral("Sales 'Q1'"));
    QCOMPARE(s.header(sales), QStringLiteral("Sales 'Q1'|ACC1|1|Sales|%1|0").arg(master));
    QCOMPARE(s.entries(sales), (QStringList{"2023-01-20:0/0/0/0", "2023-02-20:12.3456/5/-2/0.0003",
                                            "2023-03-20:88/22/0/0", "2023-04-20:-72/-18/0/0"}));

    // The same cost centre again: status 5 and its message, nothing written.
    frmBudgetAddSlave second(s.ctx);
    second.Setup(master, false);
    selectCostCentre(second, QStringLiteral("Sales"));
    second.titleBox()->setText(QStringLiteral("Sales again"));
    QSignalSpy secondAccepted(&second, &QDialog::accepted);
    create(second, driver);
    QCOMPARE(s.dialogs.texts(),
             QStringList{"A budget for the selected cost centre already allocated, please try again."});
    QCOMPARE(s.dialogs.messages.back().icon, MessageIcon::None);
    QCOMPARE(second.focusWidget(), second.costCentreList());
    QCOMPARE(secondAccepted.count(), 0);
    QCOMPARE(s.budgetCount(), 2);

    // A title in use under the master (in any case) is refused; a new one then passes.
    s.dialogs.messages.clear();
    selectCostCentre(second, QStringLiteral("O'Brien & Co"));
    second.titleBox()->setText(QStringLiteral("SALES 'q1'"));
    create(second, driver);
    QCOMPARE(s.dialogs.texts(), QStringList{"The selected budget name is already in use, please try again."});
    QCOMPARE(second.focusWidget(), second.titleBox());
    QCOMPARE(s.budgetCount(), 2);

    s.dialogs.messages.clear();
    second.titleBox()->setText(QStringLiteral("O'Brien \"North\""));
    create(second, driver);
    QVERIFY(s.dialogs.messages.empty());
    QCOMPARE(secondAccepted.count(), 1);
    const int obrien = s.idOfTitle(QStringLiteral("O'Brien \"North\""));
    QCOMPARE(s.header(obrien), QStringLiteral("O'Brien \"North\"|ACC1|1|O'Brien & Co|%1|0").arg(master));
    // 0200 has no row in the March bill: zeros, carried into April.
    QCOMPARE(s.entries(obrien), (QStringList{"2023-01-20:20.1234/0/0/0", "2023-02-20:7.0001/0/0/0",
                                             "2023-03-20:0/0/0/0", "2023-04-20:0/0/0/0"}));
}

void SlaveFormTest::defaultTrendEntryIsTheSameMonthAYearBefore() {
    FormStores s(QStringLiteral("ACC3"));
    for (const Date& d : {Date(2021, 12, 31), Date(2022, 1, 3), Date(2022, 1, 28), Date(2022, 3, 1)})
        s.trendRow(QStringLiteral("ACC3"), d, QStringLiteral("0100"), cash("1"));
    clsBudget master(s.ctx.budgetDb, s.ctx.trendDb);
    master.CreateMaster(QStringLiteral("ACC3"), 0);
    for (const Date& d : {Date(2022, 12, 31), Date(2023, 1, 31), Date(2023, 2, 28), Date(2023, 3, 31)})
        master.AddDate(d, {}, {}, {}, {});
    QCOMPARE(master.SaveBudget(false), BudgetStatus::Ok);

    frmBudgetAddSlave form(s.ctx);
    form.Setup(master.ID(), true);
    QVERIFY(form.isWholeBill());
    // The first bill of the month wins, whatever its day; February 2022 has none.
    QCOMPARE(chosenTrends(form, 4),
             (QStringList{"31/12/2021", "03/01/2022", "No Trend Entry", "01/03/2022"}));
}

void SlaveFormTest::percentRules_data() {
    QTest::addColumn<QString>("percent");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("entry"); // the saved period, "" when nothing is saved
    // Sales in January 2022: 10/5/1/0.5.
    QTest::newRow("1000 passes") << "1000"
                                 << ""
                                 << "2023-01-20:110/55/11/5.5";
    QTest::newRow("-1000 passes, negative") << "-1000"
                                            << ""
                                            << "2023-01-20:-90/-45/-9/-4.5";
    QTest::newRow("12.5") << "12.5"
                          << ""
                          << "2023-01-20:11.25/5.625/1.125/0.5625";
    QTest::newRow("1000.1 refused") << "1000.1"
                                    << "This 'percent change' values is invalid, please try again."
                                    << "";
    QTest::newRow("-1000.1 refused") << "-1000.1"
                                     << "This 'percent change' values is invalid, please try again."
                                     << "";
    QTest::newRow("emptied box refused") << ""
                                         << "Please enter a valid numeric value"
                                         << "";
}

void SlaveFormTest::percentRules() {
    QFETCH(QString, percent);
    QFETCH(QString, message);
    QFETCH(QString, entry);
    FormStores s;
    fillStores(s);
    const int master = levelMaster(s, QStringLiteral("One Period"), 1, {Date(2023, 1, 20)});
    frmBudgetAddSlave form(s.ctx);
    form.Setup(master, false);
    selectCostCentre(form, QStringLiteral("Sales"));
    form.titleBox()->setText(QStringLiteral("Sales"));
    form.percentBox(0)->setText(percent);
    ModalDriver driver;
    create(form, driver);
    if (message.isEmpty()) {
        QVERIFY2(s.dialogs.messages.empty(), qPrintable(s.dialogs.texts().join(QLatin1Char('\n'))));
        QCOMPARE(s.entries(s.idOfTitle(QStringLiteral("Sales"))), QStringList{entry});
    } else {
        QCOMPARE(s.dialogs.texts(), QStringList{message});
        QCOMPARE(form.focusWidget(), form.percentBox(0));
        QCOMPARE(s.budgetCount(), 1);
    }
}

void SlaveFormTest::percentBoxTakesOnlyNumberKeys() {
    FormStores s;
    fillStores(s);
    const int master = levelMaster(s, QStringLiteral("Keys"), 1, FourPeriods);
    frmBudgetAddSlave form(s.ctx);
    form.Setup(master, false);
    QLineEdit* box = form.percentBox(1);
    box->clear();
    QTest::keyClicks(box, QStringLiteral("a1b.2 -c%5"));
    QCOMPARE(box->text(), QStringLiteral("1.2-5"));
    QTest::keyClick(box, Qt::Key_Backspace);
    QCOMPARE(box->text(), QStringLiteral("1.2-"));
    QTest::keyClick(box, Qt::Key_Left);
    QTest::keyClick(box, Qt::Key_Delete);
    QCOMPARE(box->text(), QStringLiteral("1.2"));
    // Gaining the focus selects the whole text.
    sendFocus(box, QEvent::FocusIn);
    QCoreApplication::processEvents();
    QCOMPARE(box->selectedText(), QStringLiteral("1.2"));
    QVERIFY(s.dialogs.messages.empty());
}

void SlaveFormTest::percentBoxRefusesTextThatIsNoNumber_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("reason");
    QTest::addColumn<QString>("after");
    QTest::addColumn<bool>("warned");
    QTest::newRow("minus alone") << "-" << int(Qt::TabFocusReason) << "0.0" << true;
    QTest::newRow("two points") << "1.2.3" << int(Qt::MouseFocusReason) << "0.0" << true;
    QTest::newRow("trailing minus") << "12-" << int(Qt::TabFocusReason) << "0.0" << true;
    QTest::newRow("a number stays") << "-12.5" << int(Qt::TabFocusReason) << "-12.5" << false;
    QTest::newRow("empty stays empty") << "" << int(Qt::TabFocusReason) << "" << false;
    QTest::newRow("leaving the window is no leaving of the box")
        << "1.2.3" << int(Qt::ActiveWindowFocusReason) << "1.2.3" << false;
}

void SlaveFormTest::percentBoxRefusesTextThatIsNoNumber() {
    QFETCH(QString, text);
    QFETCH(int, reason);
    QFETCH(QString, after);
    QFETCH(bool, warned);
    FormStores s;
    fillStores(s);
    const int master = levelMaster(s, QStringLiteral("Focus"), 1, FourPeriods);
    frmBudgetAddSlave form(s.ctx);
    form.Setup(master, false);
    QLineEdit* box = form.percentBox(2);
    box->setText(text);
    sendFocus(box, QEvent::FocusOut, Qt::FocusReason(reason));
    QCOMPARE(box->text(), after);
    QCOMPARE(s.dialogs.texts(), warned ? QStringList{"Please enter a valid numeric value"} : QStringList());
}

VANTREL_TEST(SlaveFormTest);
#include "tst_slaveform.moc"
