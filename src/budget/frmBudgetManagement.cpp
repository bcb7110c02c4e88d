#include "budget/frmBudgetManagement.h"
#include "ui/FormFrame.h"

#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/ErrorLog.h"
#include "app/HelpTopics.h"
#include "budget/BudgetDelete.h"
#include "budget/BudgetErrors.h"
#include "budget/BudgetList.h"
#include "budget/BudgetRename.h"
#include "budget/BudgetStatus.h"
#include "budget/clsBudget.h"
#include "budget/frmBudgetAddMaster.h"
#include "budget/frmBudgetAddSlave.h"
#include "budget/frmBudgetEdit.h"
#include "ui/Branding.h"
#include "ui/HelpWindow.h"
#include "ui/HoverHints.h"
#include "ui/ListViewHelpers.h"
#include "ui/WindowIcon.h"
#include "ui/uctFooter.h"
#include "ui/uctHeader.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// A row's key, as the list has always named its rows: "ID" and the budget id.
constexpr int KeyRole = Qt::UserRole;

QString rowKey(int budgetId) {
    return QStringLiteral("ID%1").arg(budgetId);
}

int idOfKey(const QString& key) {
    return key.mid(2).toInt();
}

// The list edits only a row's name, whichever cell of the row was clicked or had the
// focus when the edit began.
class BudgetListView : public QTreeWidget {
public:
    using QTreeWidget::QTreeWidget;

protected:
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override {
        return QTreeWidget::edit(index.siblingAtColumn(frmBudgetManagement::NameColumn), trigger, event);
    }
};

QPushButton* actionButton(const QString& name, const QString& caption, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    button->setMinimumHeight(40);
    button->setCursor(Qt::PointingHandCursor);
    return button;
}

// Sorts by name, ascending, whatever order the user chose before.
void sortByName(QTreeWidget* list) {
    if (listSortColumn(list) == frmBudgetManagement::NameColumn && listSortAscending(list))
        SortListByColumn(list, frmBudgetManagement::NameColumn);
    SortListByColumn(list, frmBudgetManagement::NameColumn);
}

} // namespace

frmBudgetManagement::frmBudgetManagement(AppContext& ctx, QWidget* parent)
    : QDialog(parent)
    , ctx_(ctx)
    , header_(new uctHeader(this))
    , footer_(new uctFooter(this))
    , hints_(nullptr)
    , lblHint_(new QLabel(this))
    , lblProject_(new QLabel(QStringLiteral("Selected Project"), this))
    , projectPlace_(new QWidget(this))
    , lstBudgets_(new BudgetListView(this))
    , cmdAddMaster_(
          actionButton(QStringLiteral("cmdAddMaster"), QStringLiteral("Add New Master Budget"), this))
    , cmdAddSlave_(
          actionButton(QStringLiteral("cmdAddSlave"), QStringLiteral("Add New Cost Centre Budget"), this))
    , cmdEdit_(actionButton(QStringLiteral("cmdEdit"), QStringLiteral("Edit Selected Budget"), this))
    , cmdDel_(actionButton(QStringLiteral("cmdDel"), QStringLiteral("Delete Selected Budget"), this))
    , lblEdit_(new QLabel(QStringLiteral("To edit a budget's name, highlight the budget then click on it. "
                                         "Alternatively, press F2."),
                          this)) {
    setObjectName(QStringLiteral("frmBudgetManagement"));
    setWindowTitle(QStringLiteral("Vantrel"));
    SetIcon(this);
    header_->setObjectName(QStringLiteral("uctHeader1"));
    footer_->setObjectName(QStringLiteral("uctFooter1"));
    lblHint_->setObjectName(QStringLiteral("lblHint"));
    lblProject_->setObjectName(QStringLiteral("lblProject"));
    projectPlace_->setObjectName(QStringLiteral("ucProject"));
    lstBudgets_->setObjectName(QStringLiteral("lstBudgets"));
    lblEdit_->setObjectName(QStringLiteral("lblEdit"));

    header_->setHeaderType(uctHeader::Type::Compact);
    header_->setTitle(QStringLiteral("Vantrel"));
    header_->setDetail(QStringLiteral("Budget Management"));
    header_->Refresh();
    footer_->setHintLabel(lblHint_);
    footer_->setExitButtonText(QStringLiteral("Back"));
    footer_->setExitToolTipText(QStringLiteral("Return to main menu"));
    footer_->setHelpVisible(true);
    connect(footer_, &uctFooter::ButtonClicked, this, [this](int value) {
        if (value == uctFooter::ExitButton)
            cmdExit_Click();
    });
    connect(footer_, &uctFooter::HelpClicked, this, &frmBudgetManagement::cmdHelp_Click);

    hints_ = footer_->hints();
    hints_->watch(cmdAddMaster_, QStringLiteral("Define a new master budget"));
    hints_->watch(cmdAddSlave_, QStringLiteral("Define a new cost centre budget"));
    hints_->watch(cmdEdit_, QStringLiteral("Edit the selected budget"));
    hints_->watch(cmdDel_, QStringLiteral("Delete the selected budget"));
    connect(cmdAddMaster_, &QPushButton::clicked, this, &frmBudgetManagement::cmdAddMaster_Click);
    connect(cmdAddSlave_, &QPushButton::clicked, this, &frmBudgetManagement::cmdAddSlave_Click);
    connect(cmdEdit_, &QPushButton::clicked, this, &frmBudgetManagement::cmdEdit_Click);
    connect(cmdDel_, &QPushButton::clicked, this, &frmBudgetManagement::cmdDel_Click);

    // The list: report view, whole rows selected, the name edited in place.
    lstBudgets_->setColumnCount(ColumnCount);
    QStringList headings = budgetListHeadings();
    headings << QString();
    lstBudgets_->setHeaderLabels(headings);
    lstBudgets_->setRootIsDecorated(false);
    lstBudgets_->setItemsExpandable(false);
    lstBudgets_->setUniformRowHeights(true);
    lstBudgets_->setAlternatingRowColors(true);
    lstBudgets_->setStyleSheet(QStringLiteral("QTreeView::item { padding: 3px 2px; }"));
    lstBudgets_->setSelectionMode(QAbstractItemView::SingleSelection);
    lstBudgets_->setSelectionBehavior(QAbstractItemView::SelectRows);
    lstBudgets_->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    lstBudgets_->setColumnHidden(MasterIdColumn, true);
    lstBudgets_->header()->setStretchLastSection(true);
    setListColumnTag(lstBudgets_, CreatedColumn, QStringLiteral("d"));
    setListColumnTag(lstBudgets_, DateCountColumn, QStringLiteral("n"));
    setListColumnTag(lstBudgets_, StartDateColumn, QStringLiteral("d"));
    setListColumnTag(lstBudgets_, EndDateColumn, QStringLiteral("d"));
    setListColumnTag(lstBudgets_, MasterIdColumn, QStringLiteral("n"));
    sortListOnHeaderClick(lstBudgets_);
    lstBudgets_->installEventFilter(this);
    connect(lstBudgets_, &QTreeWidget::itemSelectionChanged, this, &frmBudgetManagement::rowSelected);
    connect(lstBudgets_, &QTreeWidget::itemChanged, this, &frmBudgetManagement::nameEdited);

    QFont projectFont = lblProject_->font();
    projectFont.setBold(true);
    lblProject_->setFont(projectFont);
    projectPlace_->setMinimumHeight(34);
    auto* placeLayout = new QHBoxLayout(projectPlace_);
    placeLayout->setContentsMargins(0, 0, 0, 0);
    auto* projectRow = new QHBoxLayout;
    projectRow->setSpacing(14);
    projectRow->addWidget(lblProject_);
    projectRow->addWidget(projectPlace_, 1);

    lblEdit_->setWordWrap(true);
    QPalette muted = lblEdit_->palette();
    muted.setColor(QPalette::WindowText, qColor(ctx_.colours.Grey(5)));
    lblEdit_->setPalette(muted);

    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(10);
    for (QPushButton* button : {cmdAddMaster_, cmdAddSlave_, cmdEdit_, cmdDel_})
        buttons->addWidget(button);
    buttons->addStretch(1);

    auto* listColumn = new QVBoxLayout;
    listColumn->setSpacing(6);
    listColumn->addWidget(lstBudgets_, 1);
    listColumn->addWidget(lblEdit_);

    auto* middle = new QHBoxLayout;
    middle->setSpacing(16);
    middle->addLayout(listColumn, 1);
    middle->addLayout(buttons);

    auto* body = new QVBoxLayout;
    body->setContentsMargins(20, 16, 20, 14);
    body->setSpacing(14);
    body->addLayout(projectRow);
    body->addLayout(middle, 1);

    layOutFormPage(this, header_, body, footer_);

    ApplyBrandFont(this);
    resize(1060, 600);
    RefreshBudgetList();
}

void frmBudgetManagement::setProjectSelector(QWidget* selector, std::function<void()> cancel,
                                             std::function<void()> refresh) {
    selectorCancel_ = std::move(cancel);
    selectorRefresh_ = std::move(refresh);
    if (selector)
        projectPlace_->layout()->addWidget(selector);
}

void frmBudgetManagement::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (selectorRefresh_)
        selectorRefresh_();
}

void frmBudgetManagement::projectChanged() {
    RefreshBudgetList();
}

void frmBudgetManagement::cancelSelector() {
    if (selectorCancel_)
        selectorCancel_();
}

void frmBudgetManagement::reportFailure(const QString& source, const std::exception& e) {
    const QString what = QString::fromUtf8(e.what());
    if (ctx_.paths)
        LogError(*ctx_.paths, QStringLiteral("frmBudgetManagement.") + source, 0, what);
    ctx_.dialogs.critical(QStringLiteral("The budget store could not be changed: ") + what);
}

void frmBudgetManagement::RefreshBudgetList() {
    filling_ = true;
    lstBudgets_->clear();
    QList<QTreeWidgetItem*> items;
    for (const BudgetListRow& row : budgetListRows(ctx_.budgetDb)) {
        QStringList cells = budgetListCells(row);
        cells << QString::number(row.masterId);
        auto* item = new QTreeWidgetItem(cells);
        item->setData(NameColumn, KeyRole, rowKey(row.budgetId));
        item->setFlags(item->flags() | Qt::ItemIsEditable);
        item->setTextAlignment(DateCountColumn, Qt::AlignRight | Qt::AlignVCenter);
        if (row.isMaster()) {
            QFont bold = lstBudgets_->font();
            bold.setBold(true);
            for (int c = 0; c < ColumnCount; ++c)
                item->setFont(c, bold);
        }
        items << item;
    }
    lstBudgets_->addTopLevelItems(items);
    FitListViewColumns(lstBudgets_);
    for (int c = 0; c < MasterIdColumn; ++c)
        lstBudgets_->setColumnWidth(c, lstBudgets_->columnWidth(c) + 16);
    lstBudgets_->clearSelection();
    lstBudgets_->setCurrentItem(nullptr);
    sortByName(lstBudgets_);
    filling_ = false;
    rowSelected();
}

QTreeWidgetItem* frmBudgetManagement::rowOf(int budgetId) const {
    const QString key = rowKey(budgetId);
    for (int i = 0; i < lstBudgets_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = lstBudgets_->topLevelItem(i);
        if (item->data(NameColumn, KeyRole).toString() == key)
            return item;
    }
    return nullptr;
}

bool frmBudgetManagement::SelectBudget(int budgetId) {
    QTreeWidgetItem* item = rowOf(budgetId);
    if (!item)
        return false;
    lstBudgets_->setCurrentItem(item, NameColumn,
                                QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    lstBudgets_->scrollToItem(item);
    rowSelected();
    return true;
}

void frmBudgetManagement::rowSelected() {
    const QList<QTreeWidgetItem*> selected = lstBudgets_->selectedItems();
    if (selected.isEmpty()) {
        selectedId_ = -1;
        selectedMasterId_ = -1;
        return;
    }
    QTreeWidgetItem* item = selected.first();
    selectedId_ = idOfKey(item->data(NameColumn, KeyRole).toString());
    const int masterId = item->text(MasterIdColumn).toInt();
    selectedMasterId_ = masterId == -1 ? selectedId_ : masterId;
}

void frmBudgetManagement::nameEdited(QTreeWidgetItem* item, int column) {
    if (filling_ || column != NameColumn || !item)
        return;
    const int budgetId = idOfKey(item->data(NameColumn, KeyRole).toString());
    const QString typed = item->text(NameColumn);
    // The list is rebuilt after the rename, so it must not happen while the editor is
    // still writing into the row.
    QTimer::singleShot(0, this, [this, budgetId, typed] { applyRename(budgetId, typed); });
}

void frmBudgetManagement::applyRename(int budgetId, const QString& typed) {
    try {
        renameBudget(ctx_.budgetDb, budgetId, typed);
    } catch (const std::exception&) {
        // The title stays as stored; the list below shows it so.
    }
    RefreshBudgetList();
    SelectBudget(budgetId);
}

void frmBudgetManagement::cmdAddMaster_Click() {
    cancelSelector();
    if (ctx_.projectPath.isEmpty()) {
        ctx_.dialogs.information(BudgetText::NoProject);
        return;
    }
    ctx_.lastBudgetId = -1;
    {
        frmBudgetAddMaster form(ctx_, this);
        form.exec();
    }
    RefreshBudgetList();
    SelectBudget(ctx_.lastBudgetId);
}

void frmBudgetManagement::cmdAddSlave_Click() {
    cancelSelector();
    if (selectedMasterId_ == -1) {
        ctx_.dialogs.information(BudgetText::SelectMaster);
        return;
    }
    const int masterId = selectedMasterId_;
    const int reselect = selectedId_;
    try {
        clsBudget master(ctx_.budgetDb, ctx_.trendDb);
        master.LoadBudget(masterId);
        if (master.CCLevel() == 0) {
            ctx_.dialogs.information(BudgetText::WholeBillMaster);
            return;
        }
    } catch (const BudgetNotFoundError&) {
        RefreshBudgetList(); // the master has gone from the store meanwhile
        return;
    }
    ctx_.lastBudgetId = -1;
    {
        frmBudgetAddSlave form(ctx_, this);
        form.Setup(masterId, false);
        form.exec();
    }
    RefreshBudgetList();
    // The new budget when one was made, else the row chosen before.
    if (!SelectBudget(ctx_.lastBudgetId))
        SelectBudget(reselect);
}

void frmBudgetManagement::cmdEdit_Click() {
    cancelSelector();
    if (selectedId_ == -1) {
        ctx_.dialogs.information(BudgetText::SelectBudget);
        return;
    }
    const int budgetId = selectedId_;
    bool levelMaster = false;
    try {
        clsBudget budget(ctx_.budgetDb, ctx_.trendDb);
        budget.LoadBudget(budgetId);
        levelMaster = budget.IsMaster() && budget.CCLevel() != 0;
    } catch (const BudgetNotFoundError&) {
        RefreshBudgetList();
        return;
    }
    if (levelMaster) {
        // A master of a level has no amounts of its own to type: only its dates.
        frmBudgetAddMaster form(ctx_, this);
        form.SetupForEdit(budgetId);
        form.exec();
    } else {
        frmBudgetEdit form(ctx_, this);
        form.Setup(budgetId);
        form.exec();
    }
    RefreshBudgetList();
    SelectBudget(budgetId);
}

void frmBudgetManagement::cmdDel_Click() {
    cancelSelector();
    if (selectedId_ == -1) {
        ctx_.dialogs.information(BudgetText::SelectBudget);
        return;
    }
    const bool child = selectedId_ != selectedMasterId_;
    const QString question = child ? BudgetText::ConfirmDelete : BudgetText::ConfirmDeleteMaster;
    // The list is read again whatever the answer.
    if (ctx_.dialogs.question(question) == Answer::Yes) {
        try {
            deleteBudget(ctx_.budgetDb, selectedId_);
        } catch (const std::exception& e) {
            reportFailure(QStringLiteral("cmdDel_Click"), e);
        }
    }
    RefreshBudgetList();
}

void frmBudgetManagement::cmdExit_Click() {
    cancelSelector();
    accept();
}

void frmBudgetManagement::cmdHelp_Click() {
    cancelSelector();
    ShowHelp(ctx_, HelpTopic::BudgetForms);
}

bool frmBudgetManagement::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lstBudgets_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        cmdDel_Click();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmBudgetManagement::mousePressEvent(QMouseEvent* event) {
    cancelSelector();
    QDialog::mousePressEvent(event);
}
