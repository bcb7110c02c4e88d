// The budget list on screen: masters with their cost-centre budgets, sorting, renaming
// in place, deleting, and the forms the buttons open.
#include "BudgetFormsFixture.h"
#include "TestRegistry.h"
#include "app/frmMenu.h"
#include "app/gui/MenuForms.h"
#include "budget/frmBudgetEdit.h"
#include "budget/frmBudgetManagement.h"
#include "ui/HelpWindow.h"
#include "ui/uctFooter.h"
#include "ui/uctHeader.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
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

QPoint headerPoint(QTreeWidget* list, int c) {
    QHeaderView* header = list->header();
    return QPoint(header->sectionViewportPosition(c) + header->sectionSize(c) / 2, header->height() / 2);
}

} // namespace

class BudgetManagementFormTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void captionsAndHints_data();
    void captionsAndHints();
    void formStripsAndPlaces();
    void listRowsWithMastersInBold();
    void rowCells();
    void clickingARowSelectsItsFamily();
    void sortByTrueDateAndNumber();
    void refreshSortsByNameAgain();
    void renameInPlace_data();
    void renameInPlace();
    void f2StartsARename();
    void secondClickRenamesWhateverCellIsClicked();
    void messagesWithNothingSelected_data();
    void messagesWithNothingSelected();
    void wholeBillMasterRefusesCostCentreBudgets();
    void addCostCentreBudgetSelectsTheNewOne();
    void addMasterSelectsTheNewOne();
    void editOpensTheRightForm_data();
    void editOpensTheRightForm();
    void deleteMasterTakesItsFamily();
    void deleteAnsweredNoLeavesEverything();
    void deleteChildAndTheDeleteKey();
    void namesHoldingQuotes();
    void projectChangeRefillsTheList();
    void helpOpensTheBudgetTopic();
    void menuOpensTheForm();

private:
    std::unique_ptr<BudgetFormsFixture> f_;
    std::unique_ptr<frmBudgetManagement> form_;
    int alpha_ = -1, north_ = -1, south_ = -1, whole_ = -1, orphan_ = -1;
};

void BudgetManagementFormTest::init() {
    f_ = std::make_unique<BudgetFormsFixture>();
    // Alpha: a level-1 master with two cost-centre budgets; beta: a whole-bill master;
    // and a budget whose master is gone.
    alpha_ = f_->master(QStringLiteral("Alpha"), Account, 1, QStringLiteral("2022-12-20"));
    whole_ = f_->master(QStringLiteral("beta"), QStringLiteral("ACC2"), 0, QStringLiteral("2023-01-05"));
    north_ = f_->child(alpha_, QStringLiteral("North"), Account, 1, QStringLiteral("Sales"),
                       QStringLiteral("2023-02-10"));
    south_ = f_->child(alpha_, QStringLiteral("South"), Account, 1, QStringLiteral("Support"),
                       QStringLiteral("2023-01-06"));
    orphan_ = f_->child(999, QStringLiteral("Lost"), Account, 1, QStringLiteral("Gone"),
                        QStringLiteral("2021-06-30"));
    for (int m = 1; m <= 2; ++m) {
        f_->entry(alpha_, Date(2023, m, 5));
        f_->entry(north_, Date(2023, m, 5), pounds("10"));
        f_->entry(south_, Date(2023, m, 5), pounds("20"));
    }
    for (int m = 1; m <= 10; ++m)
        f_->entry(whole_, Date(2022, m, 20), pounds("1"));
    for (int m = 1; m <= 9; ++m)
        f_->entry(orphan_, Date(2023, m + 3, 10));
    form_ = std::make_unique<frmBudgetManagement>(f_->ctx);
    form_->show();
    QVERIFY(QTest::qWaitForWindowExposed(form_.get()));
}

void BudgetManagementFormTest::cleanup() {
    form_.reset();
    f_.reset();
    for (QWidget* w : QApplication::topLevelWidgets())
        w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void BudgetManagementFormTest::captionsAndHints_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("hint");
    QTest::newRow("add master") << "cmdAddMaster"
                                << "Add New Master Budget"
                                << "Define a new master budget";
    QTest::newRow("add cost centre") << "cmdAddSlave"
                                     << "Add New Cost Centre Budget"
                                     << "Define a new cost centre budget";
    QTest::newRow("edit") << "cmdEdit"
                          << "Edit Selected Budget"
                          << "Edit the selected budget";
    QTest::newRow("delete") << "cmdDel"
                            << "Delete Selected Budget"
                            << "Delete the selected budget";
}

void BudgetManagementFormTest::captionsAndHints() {
    QFETCH(QString, name);
    QFETCH(QString, caption);
    QFETCH(QString, hint);
    auto* button = form_->findChild<QPushButton*>(name);
    QVERIFY(button);
    QCOMPARE(button->text(), caption);
    QVERIFY(button->toolTip().contains(hint));
    QEnterEvent enter(QPointF(2, 2), QPointF(2, 2), QPointF(2, 2));
    QApplication::sendEvent(button, &enter);
    QCOMPARE(form_->hintLabel()->text(), hint);
}

void BudgetManagementFormTest::formStripsAndPlaces() {
    QCOMPARE(form_->windowTitle(), QStringLiteral("Vantrel"));
    QCOMPARE(form_->header()->Title(), QStringLiteral("Vantrel"));
    QCOMPARE(form_->footer()->ExitButtonText(), QStringLiteral("Back"));
    QCOMPARE(form_->footer()->ExitToolTipText(), QStringLiteral("Return to main menu"));
    QVERIFY(form_->footer()->HelpVisible());
    QCOMPARE(form_->findChild<QLabel*>(QStringLiteral("lblProject"))->text(),
             QStringLiteral("Selected Project"));
    QCOMPARE(form_->findChild<QLabel*>(QStringLiteral("lblEdit"))->text(),
             QStringLiteral("To edit a budget's name, highlight the budget then click on it. Alternatively, "
                            "press F2."));
    QVERIFY(form_->projectSelectorPlace());
    QCOMPARE(form_->projectSelectorPlace()->objectName(), QStringLiteral("ucProject"));

    // A selector put in its place is cancelled by every button and refreshed on showing.
    int cancels = 0;
    int refreshes = 0;
    auto* selector = new QLabel(QStringLiteral("project.mdb"));
    form_->setProjectSelector(
        selector, [&] { ++cancels; }, [&] { ++refreshes; });
    QCOMPARE(selector->parentWidget(), form_->projectSelectorPlace());
    form_->cmdEdit_Click();
    form_->cmdDel_Click();
    QCOMPARE(cancels, 2);
    form_->hide();
    form_->show();
    QCOMPARE(refreshes, 1);
}

void BudgetManagementFormTest::listRowsWithMastersInBold() {
    QTreeWidget* list = form_->list();
    QCOMPARE(column(list, 0), (QStringList{".Lost", "Alpha", "Alpha.North", "Alpha.South", "beta"}));
    const QList<bool> bold{false, true, false, false, true};
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        for (int c = 0; c < 7; ++c)
            QCOMPARE(list->topLevelItem(i)->font(c).bold(), bold[i]);
    // The master's id is kept out of sight.
    QVERIFY(list->isColumnHidden(frmBudgetManagement::MasterIdColumn));
    QCOMPARE(column(list, frmBudgetManagement::MasterIdColumn),
             (QStringList{"999", "-1", QString::number(alpha_), QString::number(alpha_), "-1"}));
    QCOMPARE(list->headerItem()->text(1), QStringLiteral("Bill Account"));
    QCOMPARE(list->headerItem()->text(6), QStringLiteral("Filter"));
    // Nothing is selected after a fill.
    QVERIFY(list->selectedItems().isEmpty());
    QCOMPARE(form_->selectedId(), -1);
    QCOMPARE(form_->selectedMasterId(), -1);
}

void BudgetManagementFormTest::rowCells() {
    QTreeWidgetItem* alpha = form_->rowOf(alpha_);
    QVERIFY(alpha);
    QStringList cells;
    for (int c = 0; c < 7; ++c)
        cells << alpha->text(c);
    QCOMPARE(cells,
             (QStringList{"Alpha", "ACC1", "20/12/2022", "2", "05/01/2023", "05/02/2023", "CC Level=1"}));
    QTreeWidgetItem* whole = form_->rowOf(whole_);
    cells.clear();
    for (int c = 0; c < 7; ++c)
        cells << whole->text(c);
    QCOMPARE(cells,
             (QStringList{"beta", "ACC2", "05/01/2023", "10", "20/01/2022", "20/10/2022", "CC Level=0"}));
    QCOMPARE(form_->rowOf(south_)->text(6), QStringLiteral("Support"));
}

void BudgetManagementFormTest::clickingARowSelectsItsFamily() {
    QTreeWidget* list = form_->list();
    QTreeWidgetItem* north = form_->rowOf(north_);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(north).center());
    QCOMPARE(form_->selectedId(), north_);
    QCOMPARE(form_->selectedMasterId(), alpha_);
    QTreeWidgetItem* alpha = form_->rowOf(alpha_);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(alpha).center());
    QCOMPARE(form_->selectedId(), alpha_);
    QCOMPARE(form_->selectedMasterId(), alpha_);
}

void BudgetManagementFormTest::sortByTrueDateAndNumber() {
    QTreeWidget* list = form_->list();
    QWidget* header = list->header()->viewport();
    // Start dates: Alpha and its children 05/01/2023, beta 20/01/2022, Lost 10/04/2023. As
    // text 05/01 < 10/04 < 20/01; as dates beta's 2022 comes first.
    QTest::mouseClick(header, Qt::LeftButton, {}, headerPoint(list, frmBudgetManagement::StartDateColumn));
    QCOMPARE(column(list, 4),
             (QStringList{"20/01/2022", "05/01/2023", "05/01/2023", "05/01/2023", "10/04/2023"}));
    QCOMPARE(list->headerItem()->text(4), QStringLiteral("Start Date ^"));
    QTest::mouseClick(header, Qt::LeftButton, {}, headerPoint(list, frmBudgetManagement::StartDateColumn));
    QCOMPARE(column(list, 4),
             (QStringList{"10/04/2023", "05/01/2023", "05/01/2023", "05/01/2023", "20/01/2022"}));
    QCOMPARE(list->headerItem()->text(4), QStringLiteral("Start Date v"));
    // Date counts 9, 2, 2, 2, 10: as numbers 10 is the largest, as text it would sort before 2.
    QTest::mouseClick(header, Qt::LeftButton, {}, headerPoint(list, frmBudgetManagement::DateCountColumn));
    QCOMPARE(column(list, 3), (QStringList{"2", "2", "2", "9", "10"}));
    QCOMPARE(list->headerItem()->text(4), QStringLiteral("Start Date"));
    // Creation dates: 30/06/2021, 20/12/2022, 05/01/2023, 06/01/2023, 10/02/2023.
    QTest::mouseClick(header, Qt::LeftButton, {}, headerPoint(list, frmBudgetManagement::CreatedColumn));
    QCOMPARE(column(list, 0), (QStringList{".Lost", "Alpha", "beta", "Alpha.South", "Alpha.North"}));
}

void BudgetManagementFormTest::refreshSortsByNameAgain() {
    QTreeWidget* list = form_->list();
    QTest::mouseClick(list->header()->viewport(), Qt::LeftButton, {},
                      headerPoint(list, frmBudgetManagement::NameColumn));
    // The Name column was sorted ascending by the fill, so this click turns it round.
    QCOMPARE(column(list, 0), (QStringList{"beta", "Alpha.South", "Alpha.North", "Alpha", ".Lost"}));
    form_->RefreshBudgetList();
    QCOMPARE(column(list, 0), (QStringList{".Lost", "Alpha", "Alpha.North", "Alpha.South", "beta"}));
    QTest::mouseClick(list->header()->viewport(), Qt::LeftButton, {},
                      headerPoint(list, frmBudgetManagement::EndDateColumn));
    form_->RefreshBudgetList();
    QCOMPARE(column(list, 0), (QStringList{".Lost", "Alpha", "Alpha.North", "Alpha.South", "beta"}));
    QCOMPARE(list->headerItem()->text(5), QStringLiteral("End Date"));
}

void BudgetManagementFormTest::renameInPlace_data() {
    QTest::addColumn<QString>("which");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::newRow("child keeps its master's prefix out") << "north"
                                                         << "Alpha.New"
                                                         << "New"
                                                         << "Alpha.New";
    QTest::newRow("child typed without the prefix") << "north"
                                                    << "East"
                                                    << "East"
                                                    << "Alpha.East";
    QTest::newRow("quote removed") << "north"
                                   << "O'Brien"
                                   << "OBrien"
                                   << "Alpha.OBrien";
    QTest::newRow("master") << "alpha"
                            << "Gamma's"
                            << "Gammas"
                            << "Gammas";
    QTest::newRow("orphan keeps its title") << "orphan"
                                            << ".Found"
                                            << "Lost"
                                            << ".Lost";
    // No uniqueness test on a rename.
    QTest::newRow("title used by its sibling") << "north"
                                               << "Alpha.South"
                                               << "South"
                                               << "Alpha.South";
}

void BudgetManagementFormTest::renameInPlace() {
    QFETCH(QString, which);
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    const int id = which == QLatin1String("north")   ? north_
                   : which == QLatin1String("alpha") ? alpha_
                                                     : orphan_;
    QTreeWidget* list = form_->list();
    QVERIFY(form_->SelectBudget(id));
    list->setFocus();
    list->editItem(form_->rowOf(id), 0);
    auto* editor = list->findChild<QLineEdit*>();
    QVERIFY(editor);
    editor->setText(typed);
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(f_->titleOf(id), stored);
    QTRY_COMPARE(form_->selectedId(), id);
    QCOMPARE(form_->rowOf(id)->text(0), shown);
    QCOMPARE(list->selectedItems().value(0), form_->rowOf(id));
}

void BudgetManagementFormTest::f2StartsARename() {
    QTreeWidget* list = form_->list();
    QVERIFY(form_->SelectBudget(south_));
    list->setFocus();
    QTest::keyClick(list, Qt::Key_F2);
    auto* editor = list->findChild<QLineEdit*>();
    QVERIFY(editor);
    QVERIFY(editor->isVisible());
    QCOMPARE(editor->text(), QStringLiteral("Alpha.South"));
    editor->setText(QStringLiteral("Alpha.West"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(f_->titleOf(south_), QStringLiteral("West"));
}

void BudgetManagementFormTest::secondClickRenamesWhateverCellIsClicked() {
    QTreeWidget* list = form_->list();
    QTreeWidgetItem* south = form_->rowOf(south_);
    QHeaderView* header = list->header();
    const int filter = frmBudgetManagement::FilterColumn;
    const QPoint filterCell(header->sectionViewportPosition(filter) + header->sectionSize(filter) / 2,
                            list->visualItemRect(south).center().y());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, filterCell);
    QCOMPARE(form_->selectedId(), south_);
    QVERIFY(!list->findChild<QLineEdit*>());
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, filterCell);
    // The name is edited, not the cell under the pointer.
    QTRY_VERIFY(list->findChild<QLineEdit*>());
    QCOMPARE(list->findChild<QLineEdit*>()->text(), QStringLiteral("Alpha.South"));
}

void BudgetManagementFormTest::messagesWithNothingSelected_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("message");
    QTest::newRow("add cost centre")
        << "cmdAddSlave"
        << "Please select the master budget for which the new cost centre budget "
           "is to be added.";
    QTest::newRow("edit") << "cmdEdit"
                          << "Please select a budget";
    QTest::newRow("delete") << "cmdDel"
                            << "Please select a budget";
    // No project selected.
    QTest::newRow("add master") << "cmdAddMaster"
                                << "Please select a project for which the new budget is to be based.";
}

void BudgetManagementFormTest::messagesWithNothingSelected() {
    QFETCH(QString, button);
    QFETCH(QString, message);
    const QString before = f_->budgetDump();
    QTest::mouseClick(form_->findChild<QPushButton*>(button), Qt::LeftButton);
    QCOMPARE(f_->dialogs.texts(), QStringList{message});
    QCOMPARE(f_->dialogs.messages.front().icon, MessageIcon::Information);
    QCOMPARE(f_->budgetDump(), before);
}

void BudgetManagementFormTest::wholeBillMasterRefusesCostCentreBudgets() {
    QVERIFY(form_->SelectBudget(whole_));
    ModalWatch opened;
    form_->cmdAddSlave_Click();
    QCOMPARE(
        f_->dialogs.texts(),
        QStringList{"You can not add a cost centre budget to a master budget created for the whole bill."});
    QCOMPARE(opened.seen(), QString());
}

void BudgetManagementFormTest::addCostCentreBudgetSelectsTheNewOne() {
    // A child selected serves for its master.
    QVERIFY(form_->SelectBudget(south_));
    int made = -1;
    ModalWatch opened([&](QDialog*) {
        made = f_->child(alpha_, QStringLiteral("East"), Account, 1, QStringLiteral("Marketing"));
        f_->ctx.lastBudgetId = made;
    });
    form_->cmdAddSlave_Click();
    QCOMPARE(opened.seen(), QStringLiteral("frmBudgetAddSlave"));
    QCOMPARE(form_->selectedId(), made);
    QCOMPARE(form_->list()->selectedItems().value(0)->text(0), QStringLiteral("Alpha.East"));

    // Nothing made: the row chosen before is selected again.
    ModalWatch again;
    form_->cmdAddSlave_Click();
    QCOMPARE(again.seen(), QStringLiteral("frmBudgetAddSlave"));
    QCOMPARE(form_->selectedId(), made);
}

void BudgetManagementFormTest::addMasterSelectsTheNewOne() {
    f_->ctx.projectPath = QStringLiteral("/projects/bill.mdb");
    int made = -1;
    ModalWatch opened([&](QDialog*) {
        made = f_->master(QStringLiteral("Delta"), Account, 2);
        f_->ctx.lastBudgetId = made;
    });
    QTest::mouseClick(form_->findChild<QPushButton*>(QStringLiteral("cmdAddMaster")), Qt::LeftButton);
    QCOMPARE(opened.seen(), QStringLiteral("frmBudgetAddMaster"));
    QVERIFY(f_->dialogs.messages.empty());
    QCOMPARE(form_->selectedId(), made);
    QCOMPARE(form_->selectedMasterId(), made);
}

void BudgetManagementFormTest::editOpensTheRightForm_data() {
    QTest::addColumn<QString>("which");
    QTest::addColumn<QString>("form");
    QTest::newRow("level master: its dates") << "alpha"
                                             << "frmBudgetAddMaster";
    QTest::newRow("whole-bill master: the grid") << "whole"
                                                 << "frmBudgetEdit";
    QTest::newRow("cost-centre budget: the grid") << "north"
                                                  << "frmBudgetEdit";
}

void BudgetManagementFormTest::editOpensTheRightForm() {
    QFETCH(QString, which);
    QFETCH(QString, form);
    const int id = which == QLatin1String("alpha")   ? alpha_
                   : which == QLatin1String("whole") ? whole_
                                                     : north_;
    QVERIFY(form_->SelectBudget(id));
    int shownBudget = -1;
    ModalWatch opened([&](QDialog* dialog) {
        if (auto* editor = qobject_cast<frmBudgetEdit*>(dialog))
            shownBudget = editor->budgetId();
    });
    QTest::mouseClick(form_->findChild<QPushButton*>(QStringLiteral("cmdEdit")), Qt::LeftButton);
    QCOMPARE(opened.seen(), form);
    if (form == QLatin1String("frmBudgetEdit"))
        QCOMPARE(shownBudget, id);
    // The list is filled again and the budget selected again.
    QCOMPARE(form_->selectedId(), id);
}

void BudgetManagementFormTest::deleteMasterTakesItsFamily() {
    QVERIFY(form_->SelectBudget(alpha_));
    f_->dialogs.answers = {Answer::Yes};
    QTest::mouseClick(form_->findChild<QPushButton*>(QStringLiteral("cmdDel")), Qt::LeftButton);
    QCOMPARE(f_->dialogs.texts(),
             QStringList{"Are you sure you want to delete the selected master budget and all associated cost "
                         "centre budgets?"});
    QCOMPARE(f_->budgetRows(QStringLiteral("BudgetID = %1 OR MasterID = %1").arg(alpha_)), 0);
    for (int id : {alpha_, north_, south_})
        QCOMPARE(f_->entryRows(id), 0);
    // The rest stays.
    QCOMPARE(f_->entryRows(whole_), 10);
    QCOMPARE(f_->entryRows(orphan_), 9);
    QCOMPARE(column(form_->list(), 0), (QStringList{".Lost", "beta"}));
    QCOMPARE(form_->selectedId(), -1);
}

void BudgetManagementFormTest::deleteAnsweredNoLeavesEverything() {
    QVERIFY(form_->SelectBudget(alpha_));
    // A budget written meanwhile shows up: the list is read again whatever the answer.
    f_->master(QStringLiteral("Meanwhile"), Account, 0);
    const QString before = f_->budgetDump();
    f_->dialogs.answers = {Answer::No};
    form_->cmdDel_Click();
    QCOMPARE(f_->dialogs.messages.size(), size_t(1));
    QCOMPARE(f_->budgetDump(), before);
    QCOMPARE(form_->list()->topLevelItemCount(), 6);
}

void BudgetManagementFormTest::deleteChildAndTheDeleteKey() {
    QTreeWidget* list = form_->list();
    QVERIFY(form_->SelectBudget(north_));
    list->setFocus();
    f_->dialogs.answers = {Answer::Yes};
    QTest::keyClick(list, Qt::Key_Delete);
    QCOMPARE(f_->dialogs.texts(), QStringList{"Are you sure you want to delete the selected budget?"});
    QCOMPARE(f_->budgetRows(QStringLiteral("BudgetID = %1").arg(north_)), 0);
    QCOMPARE(f_->entryRows(north_), 0);
    QCOMPARE(f_->entryRows(south_), 2);
    QCOMPARE(f_->entryRows(alpha_), 2);
    QCOMPARE(column(list, 0), (QStringList{".Lost", "Alpha", "Alpha.South", "beta"}));
}

void BudgetManagementFormTest::namesHoldingQuotes() {
    const int smith = f_->master(QStringLiteral("Smith's"), Account, 2);
    const int kid = f_->child(smith, QStringLiteral("Jones' Kid"), Account, 2, QStringLiteral("O'Hara & Co"));
    f_->entry(kid, Date(2023, 1, 5));
    form_->RefreshBudgetList();
    QTreeWidgetItem* row = form_->rowOf(kid);
    QVERIFY(row);
    QCOMPARE(row->text(0), QStringLiteral("Smith's.Jones' Kid"));
    QCOMPARE(row->text(6), QStringLiteral("O'Hara & Co"));

    // The typed prefix loses its quote as the master's title does.
    QVERIFY(form_->SelectBudget(kid));
    form_->list()->editItem(row, 0);
    auto* editor = form_->list()->findChild<QLineEdit*>();
    QVERIFY(editor);
    editor->setText(QStringLiteral("Smith's.Kid's"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(f_->titleOf(kid), QStringLiteral("Kids"));

    QVERIFY(form_->SelectBudget(smith));
    f_->dialogs.answers = {Answer::Yes};
    form_->cmdDel_Click();
    QCOMPARE(f_->budgetRows(QStringLiteral("BudgetID IN (%1, %2)").arg(smith).arg(kid)), 0);
    QCOMPARE(f_->entryRows(kid), 0);
}

void BudgetManagementFormTest::projectChangeRefillsTheList() {
    const int added = f_->master(QStringLiteral("Epsilon"), QStringLiteral("ACC9"), 3);
    QVERIFY(!form_->rowOf(added));
    form_->projectChanged();
    QVERIFY(form_->rowOf(added));
    QCOMPARE(form_->list()->topLevelItemCount(), 6);
}

void BudgetManagementFormTest::helpOpensTheBudgetTopic() {
    form_->cmdHelp_Click();
    HelpWindow* help = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* h = qobject_cast<HelpWindow*>(w); h && h->isVisible())
            help = h;
    QVERIFY(help);
    QCOMPARE(help->topic(), 10004);
}

void BudgetManagementFormTest::menuOpensTheForm() {
    frmMenu menu(f_->ctx);
    connectMenuForms(menu, f_->ctx);
    QVERIFY(menu.hasOpener(frmMenu::Opener::BudgetManagement));
    QPushButton* button = menu.button(frmMenu::Opener::BudgetManagement);
    QVERIFY(button->isEnabled());
    int rows = 0;
    ModalWatch opened([&](QDialog* dialog) {
        if (auto* list = dialog->findChild<QTreeWidget*>(QStringLiteral("lstBudgets")))
            rows = list->topLevelItemCount();
    });
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(opened.seen(), QStringLiteral("frmBudgetManagement"));
    QCOMPARE(rows, 5);
}

VANTREL_TEST(BudgetManagementFormTest);
#include "tst_budgetmanagementform.moc"
