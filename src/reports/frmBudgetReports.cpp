#include "reports/frmBudgetReports.h"
#include "ui/FormFrame.h"

#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/ErrorLog.h"
#include "app/HelpTopics.h"
#include "output/gui/ReportProgressDialog.h"
#include "output/gui/ReportWindows.h"
#include "reports/BudgetReportChoices.h"
#include "reports/BudgetReports.h"
#include "ui/Branding.h"
#include "ui/BusyCursor.h"
#include "ui/HelpWindow.h"
#include "ui/HoverHints.h"
#include "ui/WindowIcon.h"
#include "ui/uctFooter.h"
#include "ui/uctHeader.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr ButtonText PeriodicTexts[frmBudgetReports::ChargeButtons] = {
    {"Total Charges", "Periodic total charges report"},
    {"Usage Charges", "Periodic usage charges report"},
    {"Recurring Charges", "Periodic recurring charges report"},
    {"One Off Charges and Credits", "Periodic one off charges and credits report"},
};

constexpr ButtonText AccumulativeTexts[frmBudgetReports::ChargeButtons] = {
    {"Total Charges", "Accumulative total charges report"},
    {"Usage Charges", "Accumulative usage charges report"},
    {"Recurring Charges", "Accumulative recurring charges report"},
    {"One Off Charges and Credits", "Accumulative one off charges and credits report"},
};

constexpr ButtonText CostCentreTexts[frmBudgetReports::ChargeButtons] = {
    {"One Off Charges and Credits", "One off charges and credit report showing deviation by cost centre"},
    {"Usage Charges", "Usage charges report showing deviation by cost centre"},
    {"Recurring Charges", "Recurring charges report showing deviation by cost centre"},
    {"Total Charges", "Total charges report showing deviation by cost centre"},
};

constexpr ButtonText FinancialText = {"Financial Directors Report", "Breakdown of cost centre budgets"};
constexpr ButtonText Top10Text = {"Top 10 Cost Centres", "Top 10 cost centres report"};

// The view each periodic and accumulative button asks for: the first the total, the
// others one charge family each.
constexpr int ButtonViews[frmBudgetReports::ChargeButtons] = {BudgetView::Total, ChargeView::Usage,
                                                              ChargeView::Recurring, ChargeView::OneOff};

// Beside its id (the item data), each budget of the list keeps its cost-centre level.
constexpr int LevelRole = Qt::UserRole + 1;

} // namespace

frmBudgetReports::frmBudgetReports(AppContext& ctx, QWidget* parent)
    : QDialog(parent)
    , ctx_(ctx)
    , header_(new uctHeader(this))
    , footer_(new uctFooter(this))
    , lblProject_(fieldLabel(QStringLiteral("lblProject"), QStringLiteral("Selected Project"), this))
    , ucProject_(new QWidget(this))
    , cmbBudget_(new QComboBox(this))
    , cmdFinancial_(reportButton(QStringLiteral("cmdFinancial"), FinancialText.caption, this))
    , cmdTop10CC_(reportButton(QStringLiteral("cmdTop10CC"), Top10Text.caption, this))
    , cmdHelp_(new QPushButton(QStringLiteral("Help"), this))
    , cmdExit_(new QPushButton(QStringLiteral("Back"), this))
    , lblHelp_(new QLabel(QStringLiteral("Help"), this)) {
    setObjectName(QStringLiteral("frmBudgetReports"));
    setWindowTitle(QStringLiteral("Vantrel"));
    SetIcon(this);
    header_->setObjectName(QStringLiteral("uctHeader1"));
    footer_->setObjectName(QStringLiteral("uctFooter1"));
    ucProject_->setObjectName(QStringLiteral("ucProject"));
    cmbBudget_->setObjectName(QStringLiteral("cmbBudget"));
    cmdHelp_->setObjectName(QStringLiteral("cmdHelp"));
    cmdExit_->setObjectName(QStringLiteral("cmdExit"));
    lblHelp_->setObjectName(QStringLiteral("lblHelp"));
    for (int i = 0; i < ChargeButtons; ++i) {
        cmdMonthlyDeviationReport_[i] = reportButton(QStringLiteral("cmdMonthlyDeviationReport%1").arg(i),
                                                     PeriodicTexts[i].caption, this);
        cmdAccumulativeDeviations_[i] = reportButton(QStringLiteral("cmdAccumulativeDeviations%1").arg(i),
                                                     AccumulativeTexts[i].caption, this);
        cmdCCDeviation_[i] =
            reportButton(QStringLiteral("cmdCCDeviation%1").arg(i), CostCentreTexts[i].caption, this);
    }
    for (QPushButton* secondary : {cmdHelp_, cmdExit_}) {
        secondary->setProperty("secondary", true);
        secondary->setMinimumWidth(110);
        secondary->setMinimumHeight(36);
    }

    setUpFormStrips(
        header_, uctHeader::Type::Compact, QStringLiteral("Budget reports"), footer_, lblHelp_,
        QStringLiteral("Return to main menu"), [this] { cmdExit_Click(); }, [this] { cmdHelp_Click(); });

    hints_ = new HoverHints(lblHelp_, this);
    for (int i = 0; i < ChargeButtons; ++i) {
        hints_->watch(cmdMonthlyDeviationReport_[i], QString::fromUtf8(PeriodicTexts[i].hint));
        hints_->watch(cmdAccumulativeDeviations_[i], QString::fromUtf8(AccumulativeTexts[i].hint));
        hints_->watch(cmdCCDeviation_[i], QString::fromUtf8(CostCentreTexts[i].hint));
    }
    hints_->watch(cmdFinancial_, QString::fromUtf8(FinancialText.hint));
    hints_->watch(cmdTop10CC_, QString::fromUtf8(Top10Text.hint));
    hints_->watch(cmdHelp_, QStringLiteral("Show Help"));
    hints_->watch(cmdExit_, QStringLiteral("Return to main menu"));

    for (int i = 0; i < ChargeButtons; ++i) {
        connect(cmdMonthlyDeviationReport_[i], &QPushButton::clicked, this,
                [this, i] { cmdMonthlyDeviationReport_Click(i); });
        connect(cmdAccumulativeDeviations_[i], &QPushButton::clicked, this,
                [this, i] { cmdAccumulativeDeviations_Click(i); });
        connect(cmdCCDeviation_[i], &QPushButton::clicked, this, [this, i] { cmdCCDeviation_Click(i); });
    }
    connect(cmdFinancial_, &QPushButton::clicked, this, &frmBudgetReports::cmdFinancial_Click);
    connect(cmdTop10CC_, &QPushButton::clicked, this, &frmBudgetReports::cmdTop10CC_Click);
    connect(cmdHelp_, &QPushButton::clicked, this, &frmBudgetReports::cmdHelp_Click);
    connect(cmdExit_, &QPushButton::clicked, this, &frmBudgetReports::cmdExit_Click);
    connect(cmbBudget_, &QComboBox::currentIndexChanged, this, &frmBudgetReports::cmbBudget_Click);
    connect(cmbBudget_, &QComboBox::activated, this, [this] { cancelSelector(); });
    lblHelp_->installEventFilter(this);
    lblHelp_->setCursor(Qt::WhatsThisCursor);

    QFont bold = lblProject_->font();
    bold.setBold(true);
    lblProject_->setFont(bold);
    ucProject_->setMinimumHeight(34);
    auto* placeLayout = new QHBoxLayout(ucProject_);
    placeLayout->setContentsMargins(0, 0, 0, 0);

    auto* projectRow = new QHBoxLayout;
    projectRow->setSpacing(14);
    projectRow->addWidget(lblProject_);
    projectRow->addWidget(ucProject_, 1);

    auto* actions = new QHBoxLayout;
    actions->addStretch(1);
    actions->setSpacing(10);
    actions->addWidget(cmdHelp_);
    actions->addWidget(cmdExit_);

    auto* body = new QVBoxLayout;
    body->setContentsMargins(28, 20, 28, 18);
    body->setSpacing(18);
    body->addLayout(projectRow);
    body->addWidget(buildParametersFrame());
    body->addWidget(buildReportsFrame());
    body->addStretch(1);
    body->addLayout(actions);

    layOutFormPage(this, header_, body, footer_);

    ApplyBrandFont(this);
    resize(960, 620);
    fillBudgets();
}

QGroupBox* frmBudgetReports::buildParametersFrame() {
    frameParameters_ = new QGroupBox(QStringLiteral("Parameters"), this);
    frameParameters_->setObjectName(QStringLiteral("frameParameters"));
    frameParameters_->installEventFilter(this);
    auto* layout = new QHBoxLayout(frameParameters_);
    layout->setSpacing(12);
    layout->addWidget(
        fieldLabel(QStringLiteral("lblBudget"), QStringLiteral("Selected Budget"), frameParameters_));
    layout->addWidget(cmbBudget_, 1);
    return frameParameters_;
}

QGroupBox* frmBudgetReports::buildReportsFrame() {
    frameReports_ = new QGroupBox(QStringLiteral("Reports"), this);
    frameReports_->setObjectName(QStringLiteral("frameReports"));
    frameReports_->installEventFilter(this);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(8);
    const QString columns[3][2] = {{QStringLiteral("Label1"), QStringLiteral("Periodic Reports")},
                                   {QStringLiteral("Label2"), QStringLiteral("Accumulative Reports")},
                                   {QStringLiteral("Label3"), QStringLiteral("Deviation by Cost Centre")}};
    for (int c = 0; c < 3; ++c) {
        QLabel* label = fieldLabel(columns[c][0], columns[c][1], frameReports_);
        QFont font = label->font();
        font.setBold(true);
        label->setFont(font);
        grid->addWidget(label, 0, c);
    }
    for (int i = 0; i < ChargeButtons; ++i) {
        grid->addWidget(cmdMonthlyDeviationReport_[i], i + 1, 0);
        grid->addWidget(cmdAccumulativeDeviations_[i], i + 1, 1);
        grid->addWidget(cmdCCDeviation_[i], i + 1, 2);
    }
    auto* costCentres = new QHBoxLayout;
    costCentres->setSpacing(16);
    costCentres->addWidget(cmdFinancial_);
    costCentres->addWidget(cmdTop10CC_);

    auto* layout = new QVBoxLayout(frameReports_);
    layout->setSpacing(16);
    layout->addLayout(grid);
    layout->addLayout(costCentres);
    return frameReports_;
}

void frmBudgetReports::setProjectSelector(QWidget* selector, std::function<void()> cancel,
                                          std::function<void()> refresh) {
    selectorCancel_ = std::move(cancel);
    selectorRefresh_ = std::move(refresh);
    if (selector)
        ucProject_->layout()->addWidget(selector);
    if (selectorRefresh_)
        selectorRefresh_();
}

void frmBudgetReports::projectChanged() {
    fillBudgets();
}

void frmBudgetReports::fillBudgets() {
    BusyCursor busy;
    {
        const QSignalBlocker quiet(cmbBudget_);
        cmbBudget_->clear();
        if (ctx_.projectPath.isEmpty()) {
            cmbBudget_->addItem(BudgetReportsText::NoProjectItem, 0);
        } else {
            cmbBudget_->addItem(BudgetReportsText::NoBudgetItem, 0);
            for (const BudgetChoice& choice : readChoices()) {
                cmbBudget_->addItem(choice.text, choice.budgetId);
                cmbBudget_->setItemData(cmbBudget_->count() - 1, choice.level, LevelRole);
            }
        }
        cmbBudget_->setCurrentIndex(0);
    }
    cmbBudget_Click();
}

void frmBudgetReports::cmbBudget_Click() {
    const int index = cmbBudget_->currentIndex();
    // Without a project, or without any item, no report can start.
    const bool chosen = index >= 0 && !ctx_.projectPath.isEmpty();
    // The top-10 and financial reports compare cost centres: of no use for a whole bill.
    const bool byCostCentre = chosen && index > 0 && cmbBudget_->currentData(LevelRole).toInt() != 0;
    for (int i = 0; i < ChargeButtons; ++i) {
        cmdMonthlyDeviationReport_[i]->setEnabled(chosen);
        cmdAccumulativeDeviations_[i]->setEnabled(chosen);
    }
    cmdTop10CC_->setEnabled(byCostCentre);
    cmdFinancial_->setEnabled(byCostCentre);
}

std::optional<int> frmBudgetReports::chosenBudget() {
    if (cmbBudget_->currentIndex() <= 0) {
        ctx_.dialogs.information(ctx_.projectPath.isEmpty() ? BudgetReportsText::SelectProject
                                                            : BudgetReportsText::SelectBudget);
        return std::nullopt;
    }
    return cmbBudget_->currentData().toInt();
}

QList<BudgetChoice> frmBudgetReports::readChoices() {
    try {
        return budgetReportChoices(ctx_.budgetDb, ctx_.billAccount);
    } catch (const DbError& e) {
        // A store that cannot be read lists no budget; the log keeps why.
        if (ctx_.paths)
            LogError(*ctx_.paths, QStringLiteral("frmBudgetReports.fillBudgets"), e.code(), e.message());
        return {};
    }
}

void frmBudgetReports::cmdMonthlyDeviationReport_Click(int index) {
    cancelSelector();
    if (index < 0 || index >= ChargeButtons)
        return;
    if (const std::optional<int> budget = chosenBudget())
        runReport(monthlyDeviationParams(*budget, ButtonViews[index]), false);
}

void frmBudgetReports::cmdAccumulativeDeviations_Click(int index) {
    cancelSelector();
    if (index < 0 || index >= ChargeButtons)
        return;
    if (const std::optional<int> budget = chosenBudget())
        runReport(accumulativeDeviationParams(*budget, ButtonViews[index]), false);
}

void frmBudgetReports::cmdCCDeviation_Click(int index) {
    Q_UNUSED(index);
}

void frmBudgetReports::cmdFinancial_Click() {
    cancelSelector();
    if (const std::optional<int> budget = chosenBudget())
        runReport(financialReportParams(*budget), true);
}

void frmBudgetReports::cmdTop10CC_Click() {
    cancelSelector();
    if (const std::optional<int> budget = chosenBudget())
        runReport(budgetTop10Params(*budget), true);
}

void frmBudgetReports::runReport(const ReportParams& params, bool costCentreReport) {
    enableControls(false);
    ReportResult result;
    bool stopped = false;
    {
        BusyCursor busy;
        ReportProgressDialog progress(QStringLiteral("Creating the report..."), this);
        ReportContext rc(ctx_, progress.progressFn());
        result = StartReport(rc, session_, params);
        stopped = progress.wasCancelled();
    }
    int status = result.status;
    if (result.shown() && !ShowReportWindows(ctx_, session_, std::move(*result.report), this))
        status = ReportStatus::NotProduced;
    // A report the user stopped needs no message.
    if (!stopped)
        showStatus(status, costCentreReport);
    enableControls(true);
}

void frmBudgetReports::showStatus(int status, bool costCentreReport) {
    if (status == ReportStatus::Shown)
        return;
    if (status == ReportStatus::NoData)
        ctx_.dialogs.information(BudgetReportsText::NoRecords);
    else if (status == ReportStatus::NoCostCentreLevel && costCentreReport)
        ctx_.dialogs.information(BudgetReportsText::WholeBill);
    else
        ctx_.dialogs.critical(BudgetReportsText::Failed);
}

void frmBudgetReports::enableControls(bool enabled) {
    // The frames carry the list and the report buttons; each button keeps its own state
    // for when they come back.
    for (QWidget* control : {static_cast<QWidget*>(frameParameters_), static_cast<QWidget*>(frameReports_),
                             ucProject_, static_cast<QWidget*>(cmdExit_), static_cast<QWidget*>(cmdHelp_)})
        control->setEnabled(enabled);
}

void frmBudgetReports::cmdHelp_Click() {
    cancelSelector();
    ShowHelp(ctx_, HelpTopic::BudgetForms);
}

void frmBudgetReports::cmdExit_Click() {
    cancelSelector();
    reject();
}

void frmBudgetReports::cancelSelector() {
    if (selectorCancel_)
        selectorCancel_();
}

bool frmBudgetReports::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblHelp_ && event->type() == QEvent::MouseButtonRelease) {
        cmdHelp_Click();
        return true;
    }
    if ((watched == frameParameters_ || watched == frameReports_) &&
        event->type() == QEvent::MouseButtonPress)
        cancelSelector();
    return QDialog::eventFilter(watched, event);
}

void frmBudgetReports::mousePressEvent(QMouseEvent* event) {
    cancelSelector();
    QDialog::mousePressEvent(event);
}
