#include "trend/frmTrendManagement.h"
#include "ui/FormFrame.h"

#include "app/AppContext.h"
#include "app/BrowseForFile.h"
#include "app/DialogService.h"
#include "app/ErrorLog.h"
#include "app/Format.h"
#include "app/HelpTopics.h"
#include "data/Project.h"
#include "data/ucProjectSelector.h"
#include "trend/TrendGathering.h"
#include "trend/TrendList.h"
#include "ui/Branding.h"
#include "ui/ControlColours.h"
#include "ui/HelpWindow.h"
#include "ui/HoverHints.h"
#include "ui/ListViewHelpers.h"
#include "ui/ProgressDialog.h"
#include "ui/WindowIcon.h"
#include "ui/uctFooter.h"
#include "ui/uctHeader.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

const QString FormName = QStringLiteral("frmTrendManagement");

QPushButton* formButton(const QString& name, const QString& caption, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    button->setCursor(Qt::PointingHandCursor);
    button->setMinimumHeight(36);
    return button;
}

// Lines with some air between them read more easily across six columns.
class RoomyRows : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QSize size = QStyledItemDelegate::sizeHint(option, index);
        size.setHeight(size.height() + 8);
        return size;
    }
};

void message(AppContext& ctx, const QString& text) {
    ctx.dialogs.message(text, MessageIcon::None);
}

} // namespace

frmTrendManagement::frmTrendManagement(AppContext& ctx, QWidget* parent)
    : QDialog(parent)
    , ctx_(ctx)
    , header_(new uctHeader(this))
    , footer_(new uctFooter(this))
    , hints_(nullptr)
    , ucProject_(new ucProjectSelector(ctx, this))
    , lblProject_(new QLabel(QStringLiteral("Selected Project"), this))
    , lblNotes_(new QLabel(QStringLiteral("Click on a column header to sort."), this))
    , lblHelp_(new QLabel(QStringLiteral("Help"), this))
    , lstTrend_(new QTreeWidget(this))
    , cmdCreate_(formButton(QStringLiteral("cmdCreate"), QStringLiteral("Create From Project"), this))
    , cmdDelete_(formButton(QStringLiteral("cmdDelete"), QStringLiteral("Delete Trend Entry"), this))
    , cmdDeleteAll_(formButton(QStringLiteral("cmdDeleteAll"), QStringLiteral("Delete All Trends"), this))
    , cmdExit_(formButton(QStringLiteral("cmdExit"), QStringLiteral("Back"), this))
    , cmdHelp_(formButton(QStringLiteral("cmdHelp"), QStringLiteral("Help"), this)) {
    setObjectName(FormName);
    setWindowTitle(QStringLiteral("Vantrel - Trend Management"));
    SetIcon(this);
    header_->setObjectName(QStringLiteral("uctHeader1"));
    footer_->setObjectName(QStringLiteral("uctFooter1"));
    lblProject_->setObjectName(QStringLiteral("lblProject"));
    lblNotes_->setObjectName(QStringLiteral("lblNotes"));
    lblHelp_->setObjectName(QStringLiteral("lblHelp"));
    lstTrend_->setObjectName(QStringLiteral("lstTrend"));

    setUpFormStrips(
        header_, uctHeader::Type::Compact, QStringLiteral("Trend Management"), footer_, lblHelp_,
        QStringLiteral("Return to main menu"), [this] { cmdExit_Click(); }, [this] { cmdHelp_Click(); });

    // The list: a bill per line, its date and five totals.
    const QStringList headings = trendListHeadings();
    lstTrend_->setColumnCount(int(headings.size()));
    lstTrend_->setHeaderLabels(headings);
    lstTrend_->setRootIsDecorated(false);
    lstTrend_->setItemDelegate(new RoomyRows(lstTrend_));
    lstTrend_->setUniformRowHeights(true);
    lstTrend_->setAlternatingRowColors(true);
    lstTrend_->setSelectionMode(QAbstractItemView::SingleSelection);
    lstTrend_->setSelectionBehavior(QAbstractItemView::SelectRows);
    lstTrend_->header()->setStretchLastSection(false);
    lstTrend_->header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setListColumnTag(lstTrend_, 0, QStringLiteral("d"));
    for (int column = 1; column < lstTrend_->columnCount(); ++column) {
        setListColumnTag(lstTrend_, column, QStringLiteral("n"));
        lstTrend_->headerItem()->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
    sortListOnHeaderClick(lstTrend_);
    SetMSFlexGrid(ctx_.colours, lstTrend_);
    connect(lstTrend_, &QTreeWidget::itemSelectionChanged, this, &frmTrendManagement::takeClickedEntry);

    connect(cmdCreate_, &QPushButton::clicked, this, &frmTrendManagement::cmdCreate_Click);
    connect(cmdDelete_, &QPushButton::clicked, this, &frmTrendManagement::cmdDelete_Click);
    connect(cmdDeleteAll_, &QPushButton::clicked, this, &frmTrendManagement::cmdDeleteAll_Click);
    connect(cmdExit_, &QPushButton::clicked, this, &frmTrendManagement::cmdExit_Click);
    connect(cmdHelp_, &QPushButton::clicked, this, &frmTrendManagement::cmdHelp_Click);
    connect(ucProject_, &ucProjectSelector::ProjectChanged, this,
            &frmTrendManagement::ucProject_ProjectChanged);
    lblHelp_->installEventFilter(this);
    lblHelp_->setCursor(Qt::WhatsThisCursor);

    watchHints();
    layOut();
    ApplyBrandFont(this);
    // The selection made elsewhere shows here, and the list and buttons follow it.
    ucProject_->Refresh();
}

void frmTrendManagement::watchHints() {
    hints_ = new HoverHints(lblHelp_, this);
    hints_->watch(cmdCreate_, QStringLiteral("Create from project"));
    hints_->watch(cmdDelete_, QStringLiteral("Delete the selected entry"));
    hints_->watch(cmdDeleteAll_, QStringLiteral("Delete all trends entries"));
    hints_->watch(cmdExit_, QStringLiteral("Return to main menu"));
    hints_->watch(cmdHelp_, QStringLiteral("Show Help"));
}

void frmTrendManagement::layOut() {
    QFont bold = lblProject_->font();
    bold.setBold(true);
    lblProject_->setFont(bold);
    QPalette muted = lblNotes_->palette();
    muted.setColor(QPalette::WindowText, QColor(107, 107, 107));
    lblNotes_->setPalette(muted);
    for (QPushButton* secondary : {cmdHelp_, cmdExit_})
        secondary->setProperty("secondary", true);

    auto* projectRow = new QHBoxLayout;
    projectRow->setSpacing(14);
    projectRow->addWidget(lblProject_);
    projectRow->addWidget(ucProject_, 1);

    auto* actions = new QVBoxLayout;
    actions->setSpacing(10);
    for (QPushButton* action : {cmdCreate_, cmdDelete_, cmdDeleteAll_}) {
        action->setMinimumWidth(180);
        actions->addWidget(action);
    }
    actions->addStretch(1);
    actions->addWidget(cmdHelp_);
    actions->addWidget(cmdExit_);

    auto* listColumn = new QVBoxLayout;
    listColumn->setSpacing(6);
    listColumn->addWidget(lstTrend_, 1);
    listColumn->addWidget(lblNotes_);

    auto* listRow = new QHBoxLayout;
    listRow->setSpacing(18);
    listRow->addLayout(listColumn, 1);
    listRow->addLayout(actions);

    auto* body = new QVBoxLayout;
    body->setContentsMargins(28, 20, 28, 18);
    body->setSpacing(16);
    body->addLayout(projectRow);
    body->addLayout(listRow, 1);

    layOutFormPage(this, header_, body, footer_);
    resize(980, 560);
}

void frmTrendManagement::FillTrendList() {
    try {
        fillList();
    } catch (const DbError& e) {
        if (ctx_.paths)
            LogError(*ctx_.paths, FormName + QStringLiteral("_FillTrendList"), e.code(), e.message());
    }
}

void frmTrendManagement::fillList() {
    lstTrend_->clear();
    selectedBillDate_ = Date();
    if (ctx_.billAccount.isEmpty())
        return;
    for (const TrendListRow& row : ::trendList(ctx_.trendDb, ctx_.billAccount)) {
        auto* item = new QTreeWidgetItem(lstTrend_, trendListCells(row));
        for (int column = 1; column < lstTrend_->columnCount(); ++column)
            item->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
    // A list the user sorted keeps its order: sorting by the same column twice turns it
    // round and back.
    if (const int column = listSortColumn(lstTrend_); column >= 0) {
        SortListByColumn(lstTrend_, column);
        SortListByColumn(lstTrend_, column);
    }
    FitListViewColumns(lstTrend_);
}

void frmTrendManagement::enableActions() {
    for (QPushButton* action : {cmdCreate_, cmdDeleteAll_, cmdDelete_})
        action->setEnabled(ctx_.trendEnabled);
}

void frmTrendManagement::takeClickedEntry() {
    const QList<QTreeWidgetItem*> selected = lstTrend_->selectedItems();
    if (selected.size() == 1)
        selectedBillDate_ = parseDateText(selected.front()->text(0));
}

void frmTrendManagement::ucProject_ProjectChanged() {
    enableActions();
    FillTrendList();
}

void frmTrendManagement::cmdCreate_Click() {
    ucProject_->Cancel();
    // The bill comes from the file picked here, not from the selected project.
    const QString file = BrowseForFile(ctx_.dialogs, QStringLiteral("mdb"),
                                       ctx_.paths ? ctx_.paths->ProjectFolder : QString());
    if (file.isEmpty())
        return;
    Database project;
    try {
        bool opened = false;
        {
            ProgressDialog reading(this, QStringLiteral("Reading the project..."));
            opened = OpenProjectDatabase(ctx_, &project, file, reading.fn());
        }
        // A file that is no project, or whose password is unknown, gives nothing and says nothing.
        if (!opened)
            return;
        GatherResult gathered;
        {
            ProgressDialog gathering(this, QStringLiteral("Gathering the bill..."));
            gathered = GatherTrend(ctx_, project, gathering.fn());
        }
        project.close();
        // A cancel undid the gathering; the selection and the list stay as they were.
        if (gathered.status == GatherResult::Status::Cancelled)
            return;
        if (ucProject_->SelectProject(file) && ctx_.trendEnabled) {
            fillList();
            message(ctx_, QStringLiteral("Created Trend Information"));
        }
        enableActions();
    } catch (const std::exception& e) {
        project.close();
        const auto* dbError = dynamic_cast<const DbError*>(&e);
        if (ctx_.paths)
            LogError(*ctx_.paths, FormName + QStringLiteral("_cmdCreate(") + file + QLatin1Char(')'),
                     dbError ? dbError->code() : 0, QString::fromUtf8(e.what()));
        message(ctx_, QStringLiteral("Error creating Trend Information"));
    }
}

void frmTrendManagement::cmdDelete_Click() {
    ucProject_->Cancel();
    if (!selectedBillDate_.isValid()) {
        message(ctx_, QStringLiteral("Please select a trend entry."));
        return;
    }
    const QString question = QStringLiteral("Are you sure you want to delete the trend entry ") +
                             formatDate(selectedBillDate_, QStringLiteral("dd mmm yyyy")) + QLatin1Char('?');
    if (ctx_.dialogs.question(question) != Answer::Yes)
        return;
    try {
        deleteTrendEntry(ctx_.trendDb, ctx_.billAccount, selectedBillDate_);
    } catch (const DbError& e) {
        if (ctx_.paths)
            LogError(*ctx_.paths, FormName + QStringLiteral("_cmdDelete"), e.code(), e.message());
    }
    FillTrendList();
}

void frmTrendManagement::cmdDeleteAll_Click() {
    ucProject_->Cancel();
    if (ctx_.dialogs.question(QStringLiteral(
            "Are you sure you want to delete ALL the trend entries for the selected project?")) !=
        Answer::Yes)
        return;
    try {
        deleteAllTrendEntries(ctx_.trendDb, ctx_.billAccount);
    } catch (const DbError& e) {
        if (ctx_.paths)
            LogError(*ctx_.paths, FormName + QStringLiteral("_cmdDeleteAll"), e.code(), e.message());
    }
    FillTrendList();
}

void frmTrendManagement::cmdExit_Click() {
    ucProject_->Cancel();
    accept();
}

void frmTrendManagement::cmdHelp_Click() {
    ucProject_->Cancel();
    ShowHelp(ctx_, HelpTopic::TrendManagement);
}

bool frmTrendManagement::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblHelp_ && event->type() == QEvent::MouseButtonRelease) {
        cmdHelp_Click();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmTrendManagement::mousePressEvent(QMouseEvent* event) {
    ucProject_->Cancel();
    QDialog::mousePressEvent(event);
}
