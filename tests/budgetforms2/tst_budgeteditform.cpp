// The budget editor on screen: the grid and its hidden columns, typing into a figure,
// the chart following the grid, saving, and the questions before changes are lost.
#include "BudgetFormsFixture.h"
#include "TestRegistry.h"
#include "budget/BudgetGridModel.h"
#include "budget/frmBudgetEdit.h"
#include "ui/ClickableLabel.h"
#include "ui/uctFooter.h"

#include <QApplication>
#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

using namespace testing;

namespace {

const QString Account = QStringLiteral("ACC1");

QList<qreal> valuesOf(const QBarSet* set) {
    QList<qreal> values;
    for (int i = 0; i < set->count(); ++i)
        values << set->at(i);
    return values;
}

} // namespace

class BudgetEditFormTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void showsTheBudgetWithUnusedColumnsHidden();
    void captionsAndHints();
    void datesButtonOnlyForAMaster();
    void typingFollowsTheCellRules();
    void pastedPoundsAndCommasAreReadAsAnAmount();
    void rowColoursAndChartSeries_data();
    void rowColoursAndChartSeries();
    void chartFollowsTheGrid();
    void saveWritesByRowAndSaysSo();
    void cancelAsksBeforeLosingChanges();
    void backAsksOnlyWithChanges();
    void editDatesReloadsAfterwards();

private:
    QLineEdit* startEdit(int row, int column);
    void commit(QLineEdit* editor);

    std::unique_ptr<BudgetFormsFixture> f_;
    std::unique_ptr<frmBudgetEdit> form_;
    int masterId_ = -1;
    int childId_ = -1;
    int march_ = -1, january_ = -1, february_ = -1;
};

void BudgetEditFormTest::init() {
    f_ = std::make_unique<BudgetFormsFixture>();
    masterId_ = f_->master(QStringLiteral("Plan"), Account, 1);
    childId_ = f_->child(masterId_, QStringLiteral("North"), Account, 1, QStringLiteral("Sales"));
    // Made out of date order: the grid keeps the order of the rows.
    march_ =
        f_->entry(childId_, Date(2023, 3, 1), pounds("1234.5"), pounds("20"), pounds("-3.25"), pounds("0"));
    january_ = f_->entry(childId_, Date(2023, 1, 1), pounds("100"), pounds("21"), pounds("0"), pounds("4"));
    february_ =
        f_->entry(childId_, Date(2023, 2, 1), pounds("0.01"), pounds("22"), pounds("0"), pounds("-5"));
    form_ = std::make_unique<frmBudgetEdit>(f_->ctx);
    form_->Setup(childId_);
    form_->show();
    QVERIFY(QTest::qWaitForWindowExposed(form_.get()));
}

void BudgetEditFormTest::cleanup() {
    form_.reset();
    f_.reset();
    for (QWidget* w : QApplication::topLevelWidgets())
        w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QLineEdit* BudgetEditFormTest::startEdit(int row, int column) {
    QTableView* grid = form_->grid();
    const QModelIndex index = grid->model()->index(row, column);
    grid->setCurrentIndex(index);
    grid->edit(index);
    return qobject_cast<QLineEdit*>(grid->indexWidget(index));
}

void BudgetEditFormTest::commit(QLineEdit* editor) {
    QTest::keyClick(editor, Qt::Key_Return);
    // The grid takes the figure once the editor has handled the key.
    QCoreApplication::processEvents();
}

void BudgetEditFormTest::showsTheBudgetWithUnusedColumnsHidden() {
    QTableView* grid = form_->grid();
    QCOMPARE(form_->periodCount(), 3);
    for (int column = 1; column <= 12; ++column)
        QCOMPARE(grid->isColumnHidden(column), column > 3);
    QVERIFY(!grid->isColumnHidden(0));
    // Hidden columns may not be pulled open.
    QCOMPARE(grid->horizontalHeader()->sectionResizeMode(7), QHeaderView::Fixed);
    const QAbstractItemModel* m = grid->model();
    QCOMPARE(m->headerData(1, Qt::Horizontal).toString(), QStringLiteral("p1\n01/03/2023"));
    QCOMPARE(m->headerData(2, Qt::Horizontal).toString(), QStringLiteral("p2\n01/01/2023"));
    QCOMPARE(m->data(m->index(0, 1)).toString(), QStringLiteral("£1,234.50"));
    QCOMPARE(m->data(m->index(1, 2)).toString(), QStringLiteral("£21.00"));
    QCOMPARE(m->data(m->index(2, 1)).toString(), QStringLiteral("-£3.25"));
    QCOMPARE(m->data(m->index(3, 3)).toString(), QStringLiteral("-£5.00"));
    QCOMPARE(form_->titleBox()->text(), QStringLiteral("North  (from 01/01/2023 to 01/03/2023)"));
    QVERIFY(form_->isLoaded());
    QVERIFY(!form_->isChanged());
}

void BudgetEditFormTest::captionsAndHints() {
    QCOMPARE(form_->windowTitle(), QStringLiteral("Edit Dates"));
    QCOMPARE(form_->saveButton()->text(), QStringLiteral("Save Changes"));
    QCOMPARE(form_->cancelButton()->text(), QStringLiteral("Cancel Changes"));
    QCOMPARE(form_->datesButton()->text(), QStringLiteral("Edit Dates"));
    QVERIFY(form_->saveButton()->toolTip().contains(QStringLiteral("Save changes")));
    QVERIFY(form_->cancelButton()->toolTip().contains(QStringLiteral("Revert to previously saved changes")));
    QCOMPARE(form_->footer()->ExitButtonText(), QStringLiteral("Back"));
    // The three are the strip's buttons.
    QCOMPARE(form_->footer()->registeredCount(), 3);
}

void BudgetEditFormTest::datesButtonOnlyForAMaster() {
    QVERIFY(form_->datesButton()->isHidden());
    const int whole = f_->master(QStringLiteral("Whole"), Account, 0);
    f_->entry(whole, Date(2023, 4, 1), pounds("5"));
    form_->Setup(whole);
    QVERIFY(!form_->datesButton()->isHidden());
    QCOMPARE(form_->periodCount(), 1);
}

void BudgetEditFormTest::typingFollowsTheCellRules() {
    QLineEdit* editor = startEdit(0, 1);
    QVERIFY(editor);
    QCOMPARE(editor->text(), QStringLiteral("1234.50"));
    editor->clear();
    QTest::keyClicks(editor, QStringLiteral("12.5.3x,+"));
    QCOMPARE(editor->text(), QStringLiteral("12.53"));
    QTest::keyClick(editor, '-');
    QCOMPARE(editor->text(), QStringLiteral("-12.53"));
    QTest::keyClick(editor, '-');
    QCOMPARE(editor->text(), QStringLiteral("12.53"));
    QTest::keyClick(editor, '-');
    QVERIFY(!form_->isChanged());
    commit(editor);
    const QAbstractItemModel* m = form_->grid()->model();
    QCOMPARE(m->data(m->index(0, 1)).toString(), QStringLiteral("-£12.53"));
    QVERIFY(form_->isChanged());

    // "-" on a cell that is not being edited opens it with the sign turned round.
    QTableView* grid = form_->grid();
    grid->setCurrentIndex(m->index(1, 1));
    grid->setFocus();
    QTest::keyClick(grid, '-');
    editor = qobject_cast<QLineEdit*>(grid->indexWidget(m->index(1, 1)));
    QVERIFY(editor);
    QCOMPARE(editor->text(), QStringLiteral("-20.00"));
    commit(editor);
    QCOMPARE(m->data(m->index(1, 1)).toString(), QStringLiteral("-£20.00"));
}

void BudgetEditFormTest::pastedPoundsAndCommasAreReadAsAnAmount() {
    const QAbstractItemModel* m = form_->grid()->model();
    QLineEdit* editor = startEdit(1, 2);
    QVERIFY(editor);
    editor->setText(QStringLiteral("£1,234.50"));
    commit(editor);
    QCOMPARE(form_->gridModel()->grid().amount(BudgetCostType::Recurring, 1).raw(), 12345000);
    QCOMPARE(m->data(m->index(1, 2)).toString(), QStringLiteral("£1,234.50"));

    editor = startEdit(1, 3);
    QVERIFY(editor);
    editor->setText(QStringLiteral("abc"));
    commit(editor);
    QCOMPARE(m->data(m->index(1, 3)).toString(), QStringLiteral("£0.00"));
}

void BudgetEditFormTest::rowColoursAndChartSeries_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QColor>("colour");
    // Palette entries 2, 8, 15 and 20.
    QTest::newRow("usage") << 0 << "Usage" << QColor(153, 108, 213);
    QTest::newRow("recurring") << 1 << "Recurring" << QColor(255, 128, 255);
    QTest::newRow("one off") << 2 << "One Off" << QColor(255, 90, 75);
    QTest::newRow("adjustments") << 3 << "Adjustments" << QColor(75, 210, 236);
}

void BudgetEditFormTest::rowColoursAndChartSeries() {
    QFETCH(int, row);
    QFETCH(QString, label);
    QFETCH(QColor, colour);
    const QAbstractItemModel* m = form_->grid()->model();
    for (int column = 0; column <= 3; ++column)
        QCOMPARE(m->data(m->index(row, column), Qt::BackgroundRole).value<QColor>(), colour);
    auto* series = qobject_cast<QBarSeries*>(form_->chart()->series().value(0));
    QVERIFY(series);
    QBarSet* set = series->barSets().value(row);
    QVERIFY(set);
    QCOMPARE(set->label(), label);
    QCOMPARE(set->color(), colour);
}

void BudgetEditFormTest::chartFollowsTheGrid() {
    auto setOf = [this](int row) {
        auto* series = qobject_cast<QBarSeries*>(form_->chart()->series().value(0));
        return series ? series->barSets().value(row) : nullptr;
    };
    QCOMPARE(valuesOf(setOf(0)), (QList<qreal>{1234.5, 100, 0.01}));
    QCOMPARE(valuesOf(setOf(3)), (QList<qreal>{0, 4, -5}));
    auto* categories = qobject_cast<QBarCategoryAxis*>(form_->chart()->axes(Qt::Horizontal).value(0));
    QVERIFY(categories);
    QCOMPARE(categories->categories(), (QStringList{"p1", "p2", "p3"}));

    QLineEdit* editor = startEdit(3, 2);
    QVERIFY(editor);
    editor->setText(QStringLiteral("250.75"));
    commit(editor);
    QCOMPARE(valuesOf(setOf(3)), (QList<qreal>{0, 250.75, -5}));
    QCOMPARE(valuesOf(setOf(0)), (QList<qreal>{1234.5, 100, 0.01}));
}

void BudgetEditFormTest::saveWritesByRowAndSaysSo() {
    QLineEdit* editor = startEdit(0, 2); // January usage
    editor->setText(QStringLiteral("150"));
    commit(editor);
    editor = startEdit(2, 1); // March one-off
    editor->setText(QStringLiteral("-7.5"));
    commit(editor);
    // The last figure is still being typed when Save is clicked.
    editor = startEdit(3, 3); // February adjustments
    editor->setText(QStringLiteral("8"));
    QTest::mouseClick(form_->saveButton(), Qt::LeftButton);
    QCOMPARE(f_->dialogs.texts(), QStringList{QStringLiteral("Budget saved")});
    QCOMPARE(f_->entryAmounts(march_), QStringLiteral("12345000|200000|-75000|0"));
    QCOMPARE(f_->entryAmounts(january_), QStringLiteral("1500000|210000|0|40000"));
    QCOMPARE(f_->entryAmounts(february_), QStringLiteral("100|220000|0|80000"));
    QVERIFY(!form_->isChanged());
}

void BudgetEditFormTest::cancelAsksBeforeLosingChanges() {
    // Nothing changed: nothing asked.
    form_->cmdCancel_Click();
    QVERIFY(f_->dialogs.messages.empty());

    QLineEdit* editor = startEdit(0, 1);
    editor->setText(QStringLiteral("1"));
    commit(editor);
    const QAbstractItemModel* m = form_->grid()->model();
    f_->dialogs.answers = {Answer::No};
    QTest::mouseClick(form_->cancelButton(), Qt::LeftButton);
    QCOMPARE(f_->dialogs.texts(),
             QStringList{QStringLiteral("Are you sure you want to lose all your changes?")});
    QCOMPARE(m->data(m->index(0, 1)).toString(), QStringLiteral("£1.00"));
    QVERIFY(form_->isChanged());

    f_->dialogs.answers = {Answer::Yes};
    form_->cmdCancel_Click();
    QCOMPARE(m->data(m->index(0, 1)).toString(), QStringLiteral("£1,234.50"));
    QVERIFY(!form_->isChanged());
    QCOMPARE(f_->entryAmounts(march_), QStringLiteral("12345000|200000|-32500|0"));
}

void BudgetEditFormTest::backAsksOnlyWithChanges() {
    QLineEdit* editor = startEdit(0, 1);
    editor->setText(QStringLiteral("1"));
    commit(editor);
    f_->dialogs.answers = {Answer::No};
    form_->cmdExit_Click();
    QVERIFY(form_->isVisible());
    QCOMPARE(f_->dialogs.messages.size(), size_t(1));
    f_->dialogs.answers = {Answer::Yes};
    QTest::mouseClick(form_->footer()->exitButton(), Qt::LeftButton);
    QVERIFY(!form_->isVisible());
    QCOMPARE(form_->result(), int(QDialog::Rejected));
    // Nothing was saved.
    QCOMPARE(f_->entryAmounts(march_), QStringLiteral("12345000|200000|-32500|0"));

    // Unchanged: the form goes without a question.
    f_->dialogs.messages.clear();
    form_->Setup(childId_);
    form_->show();
    form_->cmdExit_Click();
    QVERIFY(!form_->isVisible());
    QVERIFY(f_->dialogs.messages.empty());
}

void BudgetEditFormTest::editDatesReloadsAfterwards() {
    const int whole = f_->master(QStringLiteral("Whole"), Account, 0);
    const int row = f_->entry(whole, Date(2023, 4, 1), pounds("5"));
    form_->Setup(whole);
    ModalWatch opened([&](QDialog*) {
        // The dates form changes the store meanwhile.
        f_->entry(whole, Date(2023, 5, 1), pounds("6"));
        f_->ctx.budgetDb.exec(QStringLiteral("UPDATE tblBudgetEntry SET Usage = 90000 WHERE DateID = ?"),
                              row);
    });
    QTest::mouseClick(form_->datesButton(), Qt::LeftButton);
    QCOMPARE(opened.seen(), QStringLiteral("frmBudgetAddMaster"));
    QCOMPARE(form_->periodCount(), 2);
    const QAbstractItemModel* m = form_->grid()->model();
    QCOMPARE(m->data(m->index(0, 1)).toString(), QStringLiteral("£9.00"));
    QCOMPARE(m->data(m->index(0, 2)).toString(), QStringLiteral("£6.00"));
    QVERIFY(!form_->grid()->isColumnHidden(2));
}

VANTREL_TEST(BudgetEditFormTest);
#include "tst_budgeteditform.moc"
