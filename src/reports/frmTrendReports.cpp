#include "reports/frmTrendReports.h"
#include "ui/FormFrame.h"

#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/HelpTopics.h"
#include "output/gui/ReportProgressDialog.h"
#include "output/gui/ReportWindows.h"
#include "reports/ReportFrame.h"
#include "reports/TrendReportChoices.h"
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
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

constexpr ButtonText TrendButtonTexts[frmTrendReports::TrendButtons] = {
    {"Total Charges Trend", "Total charges trend report showing breakdown of charges"},
    {"Service Type Trend", "Service type trend report"},
    {"Usage Charges Trend", "Usage charges trend report"},
    {"Recurring Charges Trend", "Recurring charges trend report"},
};

constexpr ButtonText TopButtonTexts[frmTrendReports::TopButtons] = {
    {"Total Charges", "Accumulated total charges report for top 10 cost centres"},
    {"Recurring Charges", "Accumulated recurring charges report for top 10 cost centres"},
    {"Usage Charges Ex. Telemarketing",
     "Accumulated usage charges (excluding telemarketing) report for top 10 cost centres"},
    {"Telemarketing Usage Charges", "Accumulated telemarketing usage charges report for top 10 cost centres"},
};

// The chart type of the top-10 report that each of its buttons asks for.
constexpr int TopChartTypes[frmTrendReports::TopButtons] = {5, 2, 1, 6};

void fillLevels(QComboBox* list, bool withNoFilter) {
    list->clear();
    if (withNoFilter)
        list->addItem(QStringLiteral("No Filter"), 0);
    for (int level = 1; level <= 5; ++level)
        list->addItem(QStringLiteral("CC Level %1").arg(level), level);
    list->setCurrentIndex(0);
}

} // namespace

frmTrendReports::frmTrendReports(AppContext& ctx, QWidget* parent)
    : QDialog(parent)
    , ctx_(ctx)
    , header_(new uctHeader(this))
    , footer_(new uctFooter(this))
    , hints_(nullptr)
    , lblProject_(fieldLabel(QStringLiteral("lblProject"), QStringLiteral("Selected Project"), this))
    , ucProject_(new QWidget(this))
    , cmbCCLevel_(new QComboBox(this))
    , cmbCC_(new QComboBox(this))
    , cmbService_(new QComboBox(this))
    , cmbAccCCLevel_(new QComboBox(this))
    , optFilter_{new QRadioButton(this), new QRadioButton(this)}
    , cmdHelp_(new QPushButton(QStringLiteral("Help"), this))
    , cmdExit_(new QPushButton(QStringLiteral("Back"), this))
    , lblHelp_(new QLabel(QStringLiteral("Help"), this)) {
    setObjectName(QStringLiteral("frmTrendReports"));
    setWindowTitle(QStringLiteral("Vantrel"));
    SetIcon(this);
    header_->setObjectName(QStringLiteral("uctHeader1"));
    footer_->setObjectName(QStringLiteral("uctFooter1"));
    ucProject_->setObjectName(QStringLiteral("ucProject"));
    cmbCCLevel_->setObjectName(QStringLiteral("cmbCCLevel"));
    cmbCC_->setObjectName(QStringLiteral("cmbCC"));
    cmbService_->setObjectName(QStringLiteral("cmbService"));
    cmbAccCCLevel_->setObjectName(QStringLiteral("cmbAccCCLevel"));
    cmdHelp_->setObjectName(QStringLiteral("cmdHelp"));
    cmdExit_->setObjectName(QStringLiteral("cmdExit"));
    lblHelp_->setObjectName(QStringLiteral("lblHelp"));
    for (int i = 0; i < 2; ++i) {
        optFilter_[i]->setObjectName(QStringLiteral("optFilter%1").arg(i));
        optFilter_[i]->setCursor(Qt::PointingHandCursor);
    }
    optFilter_[0]->setToolTip(QStringLiteral("Filter by cost centre"));
    optFilter_[1]->setToolTip(QStringLiteral("Filter by service number"));
    for (int i = 0; i < TrendButtons; ++i)
        cmdTRep_[i] = reportButton(QStringLiteral("cmdTRep%1").arg(i), TrendButtonTexts[i].caption, this);
    for (int i = 0; i < TopButtons; ++i)
        cmdCCRep_[i] = reportButton(QStringLiteral("cmdCCRep%1").arg(i), TopButtonTexts[i].caption, this);
    for (QPushButton* secondary : {cmdHelp_, cmdExit_}) {
        secondary->setProperty("secondary", true);
        secondary->setMinimumWidth(110);
        secondary->setMinimumHeight(36);
    }
    // The two first trend reports stand out in the dark button colour.
    const QString dark = QStringLiteral("QPushButton { background-color: %1; color: %2; }"
                                        "QPushButton:hover { background-color: %3; }"
                                        "QPushButton:disabled { background-color: %4; color: %5; }")
                             .arg(qColor(ctx_.colours.DarkButtonColour()).name(),
                                  qColor(ctx_.colours.Indigo(6)).name(), qColor(ctx_.colours.Grey(4)).name(),
                                  qColor(ctx_.colours.Grey(2)).name(), qColor(ctx_.colours.Grey(4)).name());
    cmdTRep_[0]->setStyleSheet(dark);
    cmdTRep_[1]->setStyleSheet(dark);

    setUpFormStrips(
        header_, uctHeader::Type::Compact, QStringLiteral("Trend reports"), footer_, lblHelp_,
        QStringLiteral("Return to main menu"), [this] { cmdExit_Click(); }, [this] { cmdHelp_Click(); });

    hints_ = new HoverHints(lblHelp_, this);
    for (int i = 0; i < TrendButtons; ++i)
        hints_->watch(cmdTRep_[i], QString::fromUtf8(TrendButtonTexts[i].hint));
    for (int i = 0; i < TopButtons; ++i)
        hints_->watch(cmdCCRep_[i], QString::fromUtf8(TopButtonTexts[i].hint));
    hints_->watch(cmdHelp_, QStringLiteral("Show Help"));
    hints_->watch(cmdExit_, QStringLiteral("Return to main menu"));

    for (int i = 0; i < TrendButtons; ++i)
        connect(cmdTRep_[i], &QPushButton::clicked, this, [this, i] { cmdTRep_Click(i); });
    for (int i = 0; i < TopButtons; ++i)
        connect(cmdCCRep_[i], &QPushButton::clicked, this, [this, i] { cmdCCRep_Click(i); });
    connect(cmdHelp_, &QPushButton::clicked, this, &frmTrendReports::cmdHelp_Click);
    connect(cmdExit_, &QPushButton::clicked, this, &frmTrendReports::cmdExit_Click);
    connect(cmbCCLevel_, &QComboBox::currentIndexChanged, this, [this] { fillCostCentres(); });
    connect(cmbCCLevel_, &QComboBox::activated, this, [this] {
        cancelSelector();
        fillCostCentres();
        optFilter_[0]->setChecked(true);
    });
    connect(cmbCC_, &QComboBox::activated, this, [this] {
        cancelSelector();
        optFilter_[0]->setChecked(true);
    });
    connect(cmbService_, &QComboBox::activated, this, [this] {
        cancelSelector();
        optFilter_[1]->setChecked(true);
    });
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

    auto* frames = new QHBoxLayout;
    frames->setSpacing(20);
    frames->addWidget(buildTrendFrame(), 3);
    frames->addWidget(buildTopFrame(), 2);

    auto* actions = new QHBoxLayout;
    actions->addStretch(1);
    actions->setSpacing(10);
    actions->addWidget(cmdHelp_);
    actions->addWidget(cmdExit_);

    auto* body = new QVBoxLayout;
    body->setContentsMargins(28, 20, 28, 18);
    body->setSpacing(18);
    body->addLayout(projectRow);
    body->addLayout(frames);
    body->addStretch(1);
    body->addLayout(actions);

    layOutFormPage(this, header_, body, footer_);

    fillLevels(cmbCCLevel_, true);
    fillLevels(cmbAccCCLevel_, false);
    ApplyBrandFont(this);
    resize(960, 560);
    projectChanged();
}

QGroupBox* frmTrendReports::buildTrendFrame() {
    frameTrend_ = new QGroupBox(QStringLiteral("Trend Reports"), this);
    frameTrend_->setObjectName(QStringLiteral("frameTrend"));
    frameTrend_->installEventFilter(this);
    auto* filter = new QGridLayout;
    filter->setHorizontalSpacing(12);
    filter->setVerticalSpacing(8);
    filter->setColumnStretch(2, 1);
    filter->addWidget(optFilter_[0], 0, 0);
    filter->addWidget(
        fieldLabel(QStringLiteral("lblCCLevel"), QStringLiteral("Cost Centre Level"), frameTrend_), 0, 1);
    filter->addWidget(cmbCCLevel_, 0, 2);
    filter->addWidget(fieldLabel(QStringLiteral("lblCC"), QStringLiteral("Cost Centre"), frameTrend_), 1, 1);
    filter->addWidget(cmbCC_, 1, 2);
    filter->addWidget(optFilter_[1], 2, 0);
    filter->addWidget(fieldLabel(QStringLiteral("lblService"), QStringLiteral("Service Number"), frameTrend_),
                      2, 1);
    filter->addWidget(cmbService_, 2, 2);

    auto* buttons = new QGridLayout;
    buttons->setSpacing(10);
    for (int i = 0; i < TrendButtons; ++i)
        buttons->addWidget(cmdTRep_[i], i / 2, i % 2);

    auto* layout = new QVBoxLayout(frameTrend_);
    layout->setSpacing(16);
    layout->addLayout(filter);
    layout->addLayout(buttons);
    layout->addStretch(1);
    return frameTrend_;
}

QGroupBox* frmTrendReports::buildTopFrame() {
    frameTop_ = new QGroupBox(QStringLiteral("Top 10 Cost Centres Accumulated"), this);
    frameTop_->setObjectName(QStringLiteral("frameTop"));
    frameTop_->installEventFilter(this);
    auto* layout = new QVBoxLayout(frameTop_);
    layout->setSpacing(8);
    auto* label = fieldLabel(QStringLiteral("Label1"),
                             QStringLiteral("Accumulated Report's Cost Centre Level"), frameTop_);
    label->setWordWrap(true);
    layout->addWidget(label);
    layout->addWidget(cmbAccCCLevel_);
    layout->addSpacing(8);
    for (QPushButton* button : cmdCCRep_)
        layout->addWidget(button);
    layout->addStretch(1);
    return frameTop_;
}

void frmTrendReports::setProjectSelector(QWidget* selector, std::function<void()> cancel,
                                         std::function<void()> refresh) {
    selectorCancel_ = std::move(cancel);
    selectorRefresh_ = std::move(refresh);
    if (selector)
        ucProject_->layout()->addWidget(selector);
    if (selectorRefresh_)
        selectorRefresh_();
}

void frmTrendReports::projectChanged() {
    const bool usable = !ctx_.projectPath.isEmpty() && ctx_.trendEnabled;
    for (QPushButton* button : cmdTRep_)
        button->setEnabled(usable);
    for (QPushButton* button : cmdCCRep_)
        button->setEnabled(usable);
    cmbCCLevel_->setCurrentIndex(0);
    cmbAccCCLevel_->setCurrentIndex(0);
    fillCostCentres();
    fillServices();
    optFilter_[0]->setChecked(true);
}

void frmTrendReports::fillCostCentres() {
    BusyCursor busy;
    cmbCC_->clear();
    cmbCC_->addItem(ReportText::NoCostCentreSelected);
    const int level = cmbCCLevel_->currentIndex();
    if (level > 0)
        cmbCC_->addItems(trendCostCentres(ctx_, level));
    cmbCC_->setCurrentIndex(0);
}

void frmTrendReports::fillServices() {
    BusyCursor busy;
    cmbService_->clear();
    cmbService_->addItem(TrendReportsText::NoServiceSelected);
    cmbService_->addItems(trendServiceNumbers(ctx_));
    cmbService_->setCurrentIndex(0);
}

void frmTrendReports::cmdTRep_Click(int index) {
    cancelSelector();
    if (index < 0 || index >= TrendButtons)
        return;
    if (ctx_.projectPath.isEmpty()) {
        ctx_.dialogs.information(TrendReportsText::SelectProject);
        return;
    }
    int level = FilterLevel::ServiceNumber;
    QString value;
    if (optFilter_[0]->isChecked()) {
        level = cmbCCLevel_->currentData().toInt();
        if (cmbCC_->currentIndex() > 0)
            value = cmbCC_->currentText();
    } else {
        if (cmbService_->currentIndex() <= 0) {
            ctx_.dialogs.information(TrendReportsText::SelectService);
            return;
        }
        value = cmbService_->currentText();
    }
    switch (index) {
    case 0:
        runReport(totalChargesParams(level, value));
        break;
    case 1:
        runReport(serviceParams(level, value));
        break;
    case 2:
        runReport(individualChargesParams(level, value, ChargeView::Usage));
        break;
    default:
        runReport(individualChargesParams(level, value, ChargeView::Recurring));
        break;
    }
}

void frmTrendReports::cmdCCRep_Click(int index) {
    cancelSelector();
    if (index < 0 || index >= TopButtons)
        return;
    if (ctx_.projectPath.isEmpty()) {
        ctx_.dialogs.information(TrendReportsText::SelectProject);
        return;
    }
    runReport(top10Params(cmbAccCCLevel_->currentData().toInt(), QString(), TopChartTypes[index]));
}

void frmTrendReports::runReport(const ReportParams& params) {
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
        showStatus(status);
    enableControls(true);
}

void frmTrendReports::showStatus(int status) {
    switch (status) {
    case ReportStatus::NotProduced:
        ctx_.dialogs.information(TrendReportsText::NotAvailable);
        break;
    case ReportStatus::NoData:
        ctx_.dialogs.information(TrendReportsText::NoRecords);
        break;
    case ReportStatus::Error:
        ctx_.dialogs.critical(TrendReportsText::Failed);
        break;
    default:
        break;
    }
}

void frmTrendReports::enableControls(bool enabled) {
    for (QPushButton* button : cmdTRep_)
        button->setEnabled(enabled);
    for (QPushButton* button : cmdCCRep_)
        button->setEnabled(enabled);
    for (QWidget* control : {static_cast<QWidget*>(frameTop_), static_cast<QWidget*>(frameTrend_),
                             static_cast<QWidget*>(cmdExit_), static_cast<QWidget*>(cmdHelp_)})
        control->setEnabled(enabled);
}

void frmTrendReports::cmdHelp_Click() {
    cancelSelector();
    ShowHelp(ctx_, HelpTopic::TrendReports);
}

void frmTrendReports::cmdExit_Click() {
    cancelSelector();
    reject();
}

void frmTrendReports::cancelSelector() {
    if (selectorCancel_)
        selectorCancel_();
}

bool frmTrendReports::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblHelp_ && event->type() == QEvent::MouseButtonRelease) {
        cmdHelp_Click();
        return true;
    }
    if ((watched == frameTrend_ || watched == frameTop_) && event->type() == QEvent::MouseButtonPress)
        cancelSelector();
    return QDialog::eventFilter(watched, event);
}

void frmTrendReports::mousePressEvent(QMouseEvent* event) {
    cancelSelector();
    QDialog::mousePressEvent(event);
}
