// The budget editor (figures typed, saved in one transaction, or lost after a question) and
// the budget list (selection, sort, renaming in place, and what the buttons open and delete).
#include "../budgetforms1/FormStores.h"
#include "TestRegistry.h"
#include "budget/BudgetCellText.h"
#include "budget/BudgetErrors.h"
#include "budget/BudgetGrid.h"
#include "budget/BudgetGridModel.h"
#include "budget/BudgetStatus.h"
#include "budget/frmBudgetEdit.h"
#include "budget/frmBudgetManagement.h"
#include "ui/ClickableLabel.h"
#include "ui/uctFooter.h"

#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>

using namespace testing;

namespace {

const QString Account = QStringLiteral("ACC1");

QStringList column(QTreeWidget* list, int c) {
    QStringList cells;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        cells << list->topLevelItem(i)->text(c);
    return cells;
}

// The middle of the cell of `row` in column c; the header's when row is null.
void click(QTreeWidget* list, int c, QTreeWidgetItem* row = nullptr) {
    QHeaderView* header = list->header();
    const int x = header->sectionViewportPosition(c) + header->sectionSize(c) / 2;
    if (row)
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          QPoint(x, list->visualItemRect(row).center().y()));
    else
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
}

} // namespace

class BudgetEditFormTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void showsTheRowsInTheOrderTheyWereMade();
    void typingFollowsTheCellRules();
    void saveWritesByRowInOneTransaction();
    void questionsBeforeChangesAreLost();
    void aMastersDatesAreEditedAndReloaded();

private:
    QString cell(int row, int column) const {
        return form_->grid()->model()->index(row, column).data().toString();
    }
    // Opens the editor of a figure, and commits it as Return does.
    QLineEdit* startEdit(int row, int column) {
        const QModelIndex index = form_->grid()->model()->index(row, column);
        form_->grid()->setCurrentIndex(index);
        form_->grid()->edit(index);
        return qobject_cast<QLineEdit*>(form_->grid()->indexWidget(index));
    }
    void type(int row, int column, const QString& text) {
        if (QLineEdit* editor = startEdit(row, column)) {
            editor->setText(text);
            commit(editor);
        }
    }
    static void commit(QLineEdit* editor) {
        QTest::keyClick(editor, Qt::Key_Return);
        QCoreApplication::processEvents(); // the grid takes the figure once the editor has the key
    }

    std::unique_ptr<FormStores> f_;
    std::unique_ptr<frmBudgetEdit> form_;
    int childId_ = -1;
};

void BudgetEditFormTest::init() {
    form_.reset(); // before the stores it uses
    f_ = std::make_unique<FormStores>();
    const int master = f_->budget(QStringLiteral("Plan"), Account, 1);
    childId_ = f_->budget(QStringLiteral("North"), Account, 1, master, QStringLiteral("Sales"));
    // Made out of date order: the grid keeps the order of the rows.
    f_->entry(childId_, Date(2023, 3, 1), cash("1234.5"), cash("20"), cash("-3.25"));
    f_->entry(childId_, Date(2023, 1, 1), cash("100"), cash("21"), {}, cash("4"));
    f_->entry(childId_, Date(2023, 2, 1), cash("0.01"), cash("22"), {}, cash("-5"));
    form_ = std::make_unique<frmBudgetEdit>(f_->ctx);
    form_->Setup(childId_);
    form_->show();
    QVERIFY(QTest::qWaitForWindowExposed(form_.get()));
}

void BudgetEditFormTest::showsTheRowsInTheOrderTheyWereMade() {
    QTableView* grid = form_->grid();
    for (int column = 1; column <= 12; ++column)
        QCOMPARE(grid->isColumnHidden(column), column > 3);
    const QAbstractItemModel* m = grid->model();
    QCOMPARE(
        QStringList({m->headerData(1, Qt::Horizontal).toString(), m->headerData(3, Qt::Horizontal).toString(),
                     cell(0, 1), cell(2, 1), cell(1, 2), cell(3, 3)}),
        (QStringList{"p1\n01/03/2023", "p3\n01/02/2023", "£1,234.50", "-£3.25", "£21.00", "-£5.00"}));
    // The earliest and latest dates, whatever the order of the rows.
    QCOMPARE(form_->titleBox()->text(), QStringLiteral("North  (from 01/01/2023 to 01/03/2023)"));
    QVERIFY(form_->datesButton()->isHidden()); // only a master's dates can be edited
    QVERIFY(!form_->isChanged());
    // An unused period takes nothing; a budget that is gone is no grid.
    QVERIFY(!form_->gridModel()->setData(m->index(0, 4), QStringLiteral("5")));
    QVERIFY_THROWS_EXCEPTION(BudgetNotFoundError, loadBudgetGrid(f_->ctx.budgetDb, 4242));
}

void BudgetEditFormTest::typingFollowsTheCellRules() {
    // The amount a figure's text comes to when the cell is left.
    const QList<std::pair<QString, std::int64_t>> cases{{"0.1234", 1234}, {"-£1,234.50", -12345000},
                                                        {"12.", 120000},  {"  7.25 ", 72500},
                                                        {"12abc", 0},     {"1.2.3", 0},
                                                        {"-", 0}};
    for (const auto& [text, tenThousandths] : cases)
        QCOMPARE(budgetCellValue(text).raw(), tenThousandths);
    type(0, 2, QStringLiteral("£100.00")); // the same amount is no change
    QVERIFY(!form_->isChanged());
    QLineEdit* editor = startEdit(0, 1);
    QVERIFY(editor);
    QCOMPARE(editor->text(), QStringLiteral("1234.50"));
    editor->clear();
    QTest::keyClicks(editor, QStringLiteral("12.5.3x,+£ 4\b")); // digits, one point, control keys
    QCOMPARE(editor->text(), QStringLiteral("12.53"));
    QTest::keyClick(editor, '-');
    QCOMPARE(editor->text(), QStringLiteral("-12.53"));
    commit(editor);
    QCOMPARE(cell(0, 1), QStringLiteral("-£12.53"));
    QVERIFY(form_->isChanged());

    // "-" on a cell that is not being edited opens it with the sign turned round.
    QTableView* grid = form_->grid();
    grid->setCurrentIndex(grid->model()->index(1, 1));
    grid->setFocus();
    QTest::keyClick(grid, '-');
    editor = qobject_cast<QLineEdit*>(grid->indexWidget(grid->model()->index(1, 1)));
    QVERIFY(editor);
    QCOMPARE(editor->text(), QStringLiteral("-20.00"));
    commit(editor);
    // Pasted pounds and commas are an amount; text that is none is nought.
    type(1, 2, QStringLiteral("£1,234.50"));
    type(1, 3, QStringLiteral("abc"));
    QCOMPARE(QStringList({cell(1, 1), cell(1, 2), cell(1, 3)}),
             (QStringList{"-£20.00", "£1,234.50", "£0.00"}));
    auto* series = qobject_cast<QBarSeries*>(form_->chart()->series().value(0));
    QVERIFY(series); // the chart follows the grid
    QCOMPARE(QList<qreal>({series->barSets()[0]->at(0), series->barSets()[1]->at(1)}),
             QList<qreal>({-12.53, 1234.5}));
}

void BudgetEditFormTest::saveWritesByRowInOneTransaction() {
    const int other = f_->budget(QStringLiteral("Other"), Account, 0);
    f_->entry(other, Date(2023, 1, 1), cash("1"), cash("2"), cash("3"), cash("4"));
    type(0, 2, QStringLiteral("150"));  // January usage
    type(2, 1, QStringLiteral("-7.5")); // March one-off
    // The last figure is still being typed when Save is clicked.
    if (QLineEdit* editor = startEdit(3, 3)) // February adjustments
        editor->setText(QStringLiteral("8"));
    // The last period's row refuses the write: the two written before it must go back.
    f_->ctx.budgetDb.execScript(
        QStringLiteral("CREATE TRIGGER refuse BEFORE UPDATE ON tblBudgetEntry "
                       "WHEN NEW.SelectedDate = '2023-02-01' BEGIN SELECT RAISE(ABORT, 'refused'); END"));
    const QString before = f_->budgetDump();
    QTest::mouseClick(form_->saveButton(), Qt::LeftButton);
    QCOMPARE(f_->dialogs.messages.size(), size_t(1));
    QCOMPARE(f_->dialogs.messages[0].icon, MessageIcon::Critical);
    QCOMPARE(f_->budgetDump(), before);
    QVERIFY(form_->isChanged());

    f_->ctx.budgetDb.execScript(QStringLiteral("DROP TRIGGER refuse"));
    form_->cmdSave_Click();
    QCOMPARE(f_->dialogs.lastText(), BudgetText::BudgetSaved);
    QCOMPARE(f_->entries(childId_),
             (QStringList{"2023-01-01:150/21/0/4", "2023-02-01:0.01/22/0/8", "2023-03-01:1234.5/20/-7.5/0"}));
    QCOMPARE(f_->entries(other), QStringList{"2023-01-01:1/2/3/4"});
    QVERIFY(!form_->isChanged());
}

void BudgetEditFormTest::questionsBeforeChangesAreLost() {
    form_->cmdCancel_Click(); // nothing changed: nothing asked
    QVERIFY(f_->dialogs.messages.empty());
    type(0, 1, QStringLiteral("1"));
    f_->dialogs.answers = {Answer::No, Answer::Yes, Answer::No, Answer::Yes};
    QTest::mouseClick(form_->cancelButton(), Qt::LeftButton);
    QCOMPARE(cell(0, 1), QStringLiteral("£1.00"));
    form_->cmdCancel_Click();
    QCOMPARE(cell(0, 1), QStringLiteral("£1,234.50"));
    QVERIFY(!form_->isChanged());
    type(0, 1, QStringLiteral("2"));
    form_->cmdExit_Click();
    QVERIFY(form_->isVisible());
    QTest::mouseClick(form_->footer()->exitButton(), Qt::LeftButton);
    QVERIFY(!form_->isVisible());
    QCOMPARE(f_->dialogs.texts(), QStringList(4, BudgetText::LoseChanges));
    QCOMPARE(f_->entries(childId_).last(), QStringLiteral("2023-03-01:1234.5/20/-3.25/0")); // nothing saved
    // Unchanged, the form goes without a question.
    form_->Setup(childId_);
    form_->show();
    form_->cmdExit_Click();
    QVERIFY(!form_->isVisible());
    QCOMPARE(f_->dialogs.messages.size(), size_t(4));
}

void BudgetEditFormTest::aMastersDatesAreEditedAndReloaded() {
    const int whole = f_->budget(QStringLiteral("Whole"), Account, 0);
    f_->entry(whole, Date(2023, 4, 1), cash("5"));
    form_->Setup(whole);
    QVERIFY(!form_->datesButton()->isHidden());
    ModalDriver driver;
    driver.when("frmBudgetAddMaster",
                [&](QWidget*) { f_->entry(whole, Date(2023, 5, 1), cash("6")); }); // as if a date was added
    QTest::mouseClick(form_->datesButton(), Qt::LeftButton);
    QCOMPARE(driver.seen("frmBudgetAddMaster"), 1);
    QCOMPARE(form_->periodCount(), 2);
    QCOMPARE(cell(0, 2), QStringLiteral("£6.00"));
}

class BudgetManagementFormTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void listSelectionAndSort();
    void renameInPlace();
    void refusals_data();
    void refusals();
    void addSelectsTheNewBudget();
    void editOpensTheRightForm();
    void deleteAndTheListReadAgain();

private:
    std::unique_ptr<FormStores> f_;
    std::unique_ptr<frmBudgetManagement> form_;
    int alpha_ = -1, north_ = -1, south_ = -1, whole_ = -1;
};

void BudgetManagementFormTest::init() {
    form_.reset(); // before the stores it uses
    f_ = std::make_unique<FormStores>();
    // Alpha: a level-1 master with two cost-centre budgets; beta: a whole-bill master;
    // and a budget whose master is gone.
    alpha_ = f_->budget(QStringLiteral("Alpha"), Account, 1);
    whole_ = f_->budget(QStringLiteral("beta"), QStringLiteral("ACC2"), 0);
    north_ = f_->budget(QStringLiteral("North"), Account, 1, alpha_, QStringLiteral("Sales"));
    south_ = f_->budget(QStringLiteral("South"), Account, 1, alpha_, QStringLiteral("Support"));
    const int orphan = f_->budget(QStringLiteral("Lost"), Account, 1, 999, QStringLiteral("Gone"));
    for (int m = 1; m <= 2; ++m) {
        f_->entry(alpha_, Date(2023, m, 5));
        f_->entry(north_, Date(2023, m, 5), cash("10"));
        f_->entry(south_, Date(2023, m, 5), cash("20"));
    }
    for (int m = 1; m <= 10; ++m)
        f_->entry(whole_, Date(2022, m, 20), cash("1"));
    for (int m = 1; m <= 9; ++m)
        f_->entry(orphan, Date(2023, m + 3, 10));
    form_ = std::make_unique<frmBudgetManagement>(f_->ctx);
    form_->show();
    QVERIFY(QTest::qWaitForWindowExposed(form_.get()));
}

void BudgetManagementFormTest::listSelectionAndSort() {
    QTreeWidget* list = form_->list();
    QCOMPARE(column(list, 0), (QStringList{".Lost", "Alpha", "Alpha.North", "Alpha.South", "beta"}));
    for (int i = 0; i < list->topLevelItemCount(); ++i) // masters in bold
        QCOMPARE(list->topLevelItem(i)->font(0).bold(), i == 1 || i == 4);
    QVERIFY(list->selectedItems().isEmpty());
    // A cost-centre budget is selected with its master.
    click(list, 0, form_->rowOf(north_));
    QCOMPARE(QList<int>({form_->selectedId(), form_->selectedMasterId()}), QList<int>({north_, alpha_}));
    // Start dates: Alpha and its children 05/01/2023, beta 20/01/2022, Lost 10/04/2023. As
    // text 05/01 < 10/04 < 20/01; as dates beta's 2022 comes first.
    click(list, frmBudgetManagement::StartDateColumn);
    QCOMPARE(column(list, 4),
             (QStringList{"20/01/2022", "05/01/2023", "05/01/2023", "05/01/2023", "10/04/2023"}));
    // Date counts 9, 2, 2, 2, 10: as text 10 would sort before 2.
    click(list, frmBudgetManagement::DateCountColumn);
    QCOMPARE(column(list, 3), (QStringList{"2", "2", "2", "9", "10"}));
    form_->RefreshBudgetList();
    QCOMPARE(column(list, 0), (QStringList{".Lost", "Alpha", "Alpha.North", "Alpha.South", "beta"}));
    QCOMPARE(list->headerItem()->text(3), QStringLiteral("Date Count")); // no sort mark left
}

void BudgetManagementFormTest::renameInPlace() {
    QTreeWidget* list = form_->list();
    QVERIFY(form_->SelectBudget(north_));
    const int row = list->indexOfTopLevelItem(form_->rowOf(north_));
    // F2 edits the name, whatever cell of the row is the current one.
    list->setCurrentIndex(list->model()->index(row, frmBudgetManagement::FilterColumn));
    list->setFocus();
    QTest::keyClick(list, Qt::Key_F2);
    auto* editor = qobject_cast<QLineEdit*>(list->indexWidget(list->model()->index(row, 0)));
    QVERIFY(editor);
    QCOMPARE(editor->text(), QStringLiteral("Alpha.North"));
    editor->setText(QStringLiteral("Alpha.O'Brien")); // the master's prefix and the quote are left out
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(f_->idOfTitle(QStringLiteral("OBrien")), north_);
    QTRY_COMPARE(form_->selectedId(), north_);
    QCOMPARE(list->selectedItems().value(0)->text(0), QStringLiteral("Alpha.OBrien"));
}

void BudgetManagementFormTest::refusals_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("wholeBillSelected");
    QTest::addColumn<QString>("message");
    QTest::newRow("add cost centre") << "cmdAddSlave" << false << BudgetText::SelectMaster;
    QTest::newRow("edit") << "cmdEdit" << false << BudgetText::SelectBudget;
    QTest::newRow("delete") << "cmdDel" << false << BudgetText::SelectBudget;
    QTest::newRow("add master without a project") << "cmdAddMaster" << false << BudgetText::NoProject;
    QTest::newRow("cost centre under the whole bill") << "cmdAddSlave" << true << BudgetText::WholeBillMaster;
}

void BudgetManagementFormTest::refusals() {
    QFETCH(QString, button);
    QFETCH(bool, wholeBillSelected);
    QFETCH(QString, message);
    QVERIFY(!wholeBillSelected || form_->SelectBudget(whole_));
    const QString before = f_->budgetDump();
    ModalDriver driver;
    driver.when("QDialog");
    QTest::mouseClick(form_->findChild<QPushButton*>(button), Qt::LeftButton);
    QCOMPARE(f_->dialogs.texts(), QStringList{message});
    QCOMPARE(driver.seen("QDialog"), 0);
    QCOMPARE(f_->budgetDump(), before);
}

void BudgetManagementFormTest::addSelectsTheNewBudget() {
    QVERIFY(form_->SelectBudget(south_)); // a cost-centre budget serves for its master
    int made = -1;
    ModalDriver driver;
    driver.when("frmBudgetAddSlave", [&](QWidget*) {
        f_->ctx.lastBudgetId = made =
            f_->budget(QStringLiteral("East"), Account, 1, alpha_, QStringLiteral("Marketing"));
    });
    form_->cmdAddSlave_Click();
    QCOMPARE(driver.seen("frmBudgetAddSlave"), 1);
    QCOMPARE(form_->list()->selectedItems().value(0)->text(0), QStringLiteral("Alpha.East"));
    driver.when("frmBudgetAddSlave"); // nothing made: the row chosen before is selected again
    form_->cmdAddSlave_Click();
    QCOMPARE(form_->selectedId(), made);

    f_->ctx.projectPath = QStringLiteral("/projects/bill.mdb");
    driver.when("frmBudgetAddMaster",
                [&](QWidget*) { f_->ctx.lastBudgetId = made = f_->budget(QStringLiteral("D"), Account, 2); });
    form_->cmdAddMaster_Click();
    QCOMPARE(driver.seen("frmBudgetAddMaster"), 1);
    QCOMPARE(QList<int>({form_->selectedId(), form_->selectedMasterId()}), QList<int>({made, made}));
}

void BudgetManagementFormTest::editOpensTheRightForm() {
    // A level master has only its dates to edit; the others open the grid. Then the same row.
    const QList<std::pair<int, const char*>> cases{
        {alpha_, "frmBudgetAddMaster"}, {whole_, "frmBudgetEdit"}, {north_, "frmBudgetEdit"}};
    for (const auto& [id, form] : cases) {
        QVERIFY(form_->SelectBudget(id));
        int shown = id;
        ModalDriver driver;
        driver.when(form, [&](QWidget* dialog) {
            if (auto* editor = qobject_cast<frmBudgetEdit*>(dialog))
                shown = editor->budgetId();
        });
        form_->cmdEdit_Click();
        QCOMPARE(driver.seen(form), 1);
        QCOMPARE(shown, id);
        QCOMPARE(form_->selectedId(), id);
    }
}

void BudgetManagementFormTest::deleteAndTheListReadAgain() {
    QTreeWidget* list = form_->list();
    // No: nothing goes, but a budget written meanwhile shows: the list is read again.
    QVERIFY(form_->SelectBudget(alpha_));
    f_->budget(QStringLiteral("Meanwhile"), Account, 0);
    const QString before = f_->budgetDump();
    f_->dialogs.answers = {Answer::No, Answer::Yes, Answer::Yes};
    form_->cmdDel_Click();
    QCOMPARE(f_->budgetDump(), before);
    QCOMPARE(list->topLevelItemCount(), 6);
    // The Delete key on a cost-centre budget takes it alone.
    QVERIFY(form_->SelectBudget(north_));
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Delete);
    QCOMPARE(f_->header(north_) + f_->header(south_).left(6), QStringLiteral("<no row>South|"));
    QCOMPARE(column(list, 0), (QStringList{".Lost", "Alpha", "Alpha.South", "beta", "Meanwhile"}));
    // A master takes its family with it.
    QVERIFY(form_->SelectBudget(alpha_));
    form_->cmdDel_Click();
    QCOMPARE(f_->dialogs.texts(), (QStringList{BudgetText::ConfirmDeleteMaster, BudgetText::ConfirmDelete,
                                               BudgetText::ConfirmDeleteMaster}));
    QCOMPARE(f_->header(alpha_) + f_->header(south_), QStringLiteral("<no row><no row>"));
    QCOMPARE(column(list, 0), (QStringList{".Lost", "beta", "Meanwhile"}));
}

VANTREL_TEST(BudgetEditFormTest);
VANTREL_TEST(BudgetManagementFormTest);
#include "tst_budgetforms.moc"
