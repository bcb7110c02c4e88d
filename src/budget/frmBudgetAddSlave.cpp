#include "budget/frmBudgetAddSlave.h"

#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/Format.h"
#include "app/HelpTopics.h"
#include "budget/BudgetFromTrend.h"
#include "budget/BudgetStatus.h"
#include "budget/TrendAmounts.h"
#include "budget/clsBudget.h"
#include "budget/frmBudgetEdit.h"
#include "budget/gui/BudgetFormParts.h"
#include "ui/Branding.h"
#include "ui/ClickableLabel.h"
#include "ui/HelpWindow.h"
#include "ui/HoverHints.h"
#include "ui/WindowIcon.h"
#include "ui/uctFooter.h"
#include "ui/uctHeader.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace {

const QString CostCentreCaption = QStringLiteral("New Cost Centre Budget ");
const QString WholeBillCaption = QStringLiteral("Create Master Budget");
const QString CostCentreNote =
    QStringLiteral("Welcome to creating a cost centre budget, Below are twelve selection boxes to choose the "
                   "associated trend entries for which the budget is to be based.");
const QString WholeBillNote = QStringLiteral(
    "Please select trend dates for each period to be based, if a selection is omitted then the "
    "previously selected trend entry will be used.");
const QString DateFormat = QStringLiteral("dd/mm/yyyy");
// What a percent box may be given by the keyboard; everything else but control keys is dropped.
const QString PercentCharacters = QStringLiteral("1234567890.-");
const QString StartPercent = QStringLiteral("0.0");

// Column widths and spacing of the period rows and the fields above them, in pixels.
constexpr int DateColumnWidth = 110;
constexpr int SignColumnWidth = 24;
constexpr int RowSpacing = 10;
constexpr int FieldSpacing = 14;

// The messages of this form come without an icon.
void say(AppContext& ctx, const QString& text) {
    ctx.dialogs.message(text, MessageIcon::None);
}

bool percentKeyAccepted(const QKeyEvent* key) {
    if (key->modifiers() & (Qt::ControlModifier | Qt::MetaModifier))
        return true; // copy, paste, select all: a pasted text meets the test on leaving the box
    for (const QChar c : key->text()) {
        if (c.isPrint() && !PercentCharacters.contains(c))
            return false;
    }
    return true;
}

} // namespace

frmBudgetAddSlave::frmBudgetAddSlave(AppContext& ctx, QWidget* parent)
    : QDialog(parent)
    , ctx_(ctx)
    , header_(new uctHeader(this))
    , footer_(new uctFooter(this))
    , Label1_(new QLabel(CostCentreNote, this))
    , lblTitle_(new QLabel(QStringLiteral("Budget Title"), this))
    , txtTitle_(new QLineEdit(this))
    , lblCC_(new QLabel(QStringLiteral("Selected Cost Centre"), this))
    , cmbFilterCC_(new QComboBox(this))
    , lblBudget_(new QLabel(QStringLiteral("Budget Date"), this))
    , lblTrendDate_(new QLabel(QStringLiteral("Base Trend Entry"), this))
    , lblPercent_(new QLabel(QStringLiteral("%  Change to Apply"), this))
    , lblCreate_(new ClickableLabel(QStringLiteral("Create Budget"), this))
    , lblHelp_(new ClickableLabel(QStringLiteral("Help"), this))
    , lblHint_(new QLabel(this)) {
    buildControls();
    layOut();
}

frmBudgetAddSlave::~frmBudgetAddSlave() = default;

void frmBudgetAddSlave::buildControls() {
    setObjectName(QStringLiteral("frmBudgetAddSlave"));
    setWindowTitle(CostCentreCaption);
    SetIcon(this);
    header_->setObjectName(QStringLiteral("uctHeader1"));
    footer_->setObjectName(QStringLiteral("uctFooter1"));
    Label1_->setObjectName(QStringLiteral("Label1"));
    lblTitle_->setObjectName(QStringLiteral("lblTitle"));
    txtTitle_->setObjectName(QStringLiteral("txtTitle"));
    lblCC_->setObjectName(QStringLiteral("lblCC"));
    cmbFilterCC_->setObjectName(QStringLiteral("cmbFilterCC"));
    lblBudget_->setObjectName(QStringLiteral("lblBudget"));
    lblTrendDate_->setObjectName(QStringLiteral("lblTrendDate"));
    lblPercent_->setObjectName(QStringLiteral("lblPercent"));
    lblCreate_->setObjectName(QStringLiteral("lblCreate"));
    lblHelp_->setObjectName(QStringLiteral("lblHelp"));
    lblHint_->setObjectName(QStringLiteral("lblHint"));

    header_->setHeaderType(uctHeader::Type::Compact);
    header_->setTitle(QStringLiteral("Vantrel"));
    header_->setDetail(CostCentreCaption.trimmed());

    Label1_->setTextFormat(Qt::PlainText);
    Label1_->setWordWrap(true);
    lblPercent_->setTextFormat(Qt::PlainText);
    for (QLabel* heading : {lblBudget_, lblTrendDate_, lblPercent_})
        makeHeading(heading);
    txtTitle_->setMaxLength(clsBudget::MaxNameLength);
    txtTitle_->installEventFilter(this);
    cmbFilterCC_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmbFilterCC_->setMinimumContentsLength(20);

    HoverHints* hints = footer_->hints();
    for (int i = 0; i < PeriodCount; ++i) {
        auto* period = new QLabel(this);
        period->setObjectName(QStringLiteral("lblPeriod%1").arg(i));
        auto* equals = new QLabel(QStringLiteral("="), this);
        equals->setObjectName(QStringLiteral("lblEquals%1").arg(i));
        auto* trend = new QComboBox(this);
        trend->setObjectName(QStringLiteral("cmbTrend%1").arg(i));
        trend->setMinimumWidth(150);
        auto* times = new QLabel(QStringLiteral("\u00d7"), this);
        times->setObjectName(QStringLiteral("lblTimes%1").arg(i));
        auto* percent = new QLineEdit(this);
        percent->setObjectName(QStringLiteral("txtPercentage%1").arg(i));
        percent->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        percent->setMinimumWidth(96);
        percent->installEventFilter(this);
        hints->watch(percent, QStringLiteral("Enter the % change to apply"), lblPercent_->text());
        for (QLabel* sign : {equals, times})
            sign->setAlignment(Qt::AlignCenter);
        lblPeriod_.append(period);
        lblEquals_.append(equals);
        cmbTrend_.append(trend);
        lblTimes_.append(times);
        txtPercentage_.append(percent);
    }

    footer_->setHintLabel(lblHint_);
    footer_->setHelpVisible(false);
    footer_->RegisterButton(lblCreate_);
    footer_->RegisterButton(lblHelp_);
    footer_->setExitButtonText(QStringLiteral("Cancel"));
    footer_->setExitToolTipText(QStringLiteral("Exit without saving"));
    hints->watch(txtTitle_, QStringLiteral("Enter the name for this budget"), lblTitle_->text());
    hints->watch(lblCreate_, QStringLiteral("Create cost centre budget"));
    hints->watch(lblHelp_, QStringLiteral("Show Help"));
    connect(lblCreate_, &ClickableLabel::clicked, this, &frmBudgetAddSlave::cmdCreate_Click);
    connect(lblHelp_, &ClickableLabel::clicked, this, &frmBudgetAddSlave::cmdHelp_Click);
    connect(footer_, &uctFooter::HelpClicked, this, &frmBudgetAddSlave::cmdHelp_Click);
    connect(footer_, &uctFooter::ButtonClicked, this, [this](int value) {
        if (value == uctFooter::ExitButton)
            cmdExit_Click();
    });
}

void frmBudgetAddSlave::layOut() {
    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(FieldSpacing);
    fields->setVerticalSpacing(8);
    fields->addWidget(lblTitle_, 0, 0);
    fields->addWidget(txtTitle_, 0, 1);
    fields->addWidget(lblCC_, 1, 0);
    fields->addWidget(cmbFilterCC_, 1, 1);
    fields->setColumnStretch(1, 1);
    // The fields start where the trend lists below do.
    fields->setColumnMinimumWidth(0, DateColumnWidth + SignColumnWidth + 2 * RowSpacing - FieldSpacing);

    // One row per period: budget date = trend entry x (100 + change) %.
    auto* rows = new QGridLayout;
    rows->setHorizontalSpacing(RowSpacing);
    rows->setVerticalSpacing(6);
    rows->addWidget(lblBudget_, 0, 0);
    rows->addWidget(lblTrendDate_, 0, 2);
    rows->addWidget(lblPercent_, 0, 4);
    for (int i = 0; i < PeriodCount; ++i) {
        rows->addWidget(lblPeriod_[i], i + 1, 0);
        rows->addWidget(lblEquals_[i], i + 1, 1);
        rows->addWidget(cmbTrend_[i], i + 1, 2);
        rows->addWidget(lblTimes_[i], i + 1, 3);
        rows->addWidget(txtPercentage_[i], i + 1, 4);
    }
    rows->setColumnMinimumWidth(0, DateColumnWidth);
    rows->setColumnMinimumWidth(1, SignColumnWidth);
    rows->setColumnMinimumWidth(3, SignColumnWidth);
    // The trend lists take the room left, so the percent boxes end flush with the fields above.
    rows->setColumnStretch(2, 1);

    auto* body = new QVBoxLayout;
    body->setSpacing(10);
    body->addWidget(Label1_);
    body->addSpacing(6);
    body->addLayout(fields);
    body->addSpacing(10);
    body->addLayout(rows);
    body->addStretch(1);

    layOutForm(this, header_, body, footer_, 560);
    ApplyBrandFont(this);
}

void frmBudgetAddSlave::Setup(int masterId, bool wholeBill) {
    budget_ = std::make_unique<clsBudget>(ctx_.budgetDb, ctx_.trendDb);
    if (wholeBill)
        budget_->LoadBudget(masterId);
    else
        budget_->CreateFromMaster(masterId, QString(), QString());

    for (int i = 0; i < PeriodCount; ++i) {
        const bool live = i < budget_->EntryCount();
        if (live) {
            lblPeriod_[i]->setText(formatDate(budget_->Entry(i + 1).SelectedDate, DateFormat));
            txtPercentage_[i]->setText(StartPercent);
        }
        for (QWidget* w : {static_cast<QWidget*>(lblPeriod_[i]), static_cast<QWidget*>(cmbTrend_[i]),
                           static_cast<QWidget*>(txtPercentage_[i]), static_cast<QWidget*>(lblEquals_[i]),
                           static_cast<QWidget*>(lblTimes_[i])})
            w->setVisible(live);
    }

    txtTitle_->setText(wholeBill ? budget_->Name() : QStringLiteral("Please enter a budget name"));
    txtTitle_->selectAll();
    if (!wholeBill)
        FillCostCentres();
    FillTrendEntries();
    SelectDefaultTrendEntries();

    if (wholeBill) {
        txtTitle_->setReadOnly(true);
        cmbFilterCC_->hide();
        lblCC_->hide();
        // Closing leaves the master with the zero amounts it was made with.
        footer_->setExitButtonText(QStringLiteral("Create As Blank"));
        footer_->setExitToolTipText(QStringLiteral("Save the budget with all date points as 0"));
        lblCreate_->setText(QStringLiteral("Save Budget"));
        footer_->hints()->watch(lblCreate_, QStringLiteral("Save the master budget"));
        footer_->CheckButtonWidth();
        setWindowTitle(WholeBillCaption);
        header_->setDetail(WholeBillCaption);
        Label1_->setText(WholeBillNote);
    }
    // The buttons come up under the last period in use.
    adjustSize();
}

bool frmBudgetAddSlave::isWholeBill() const {
    return txtTitle_->isReadOnly();
}

void frmBudgetAddSlave::FillCostCentres() {
    cmbFilterCC_->clear();
    cmbFilterCC_->addItem(NoCostCentreSelected);
    try {
        cmbFilterCC_->addItems(costCentreChoices(ctx_.projectDb, budget_->BillAccount(), budget_->CCLevel()));
    } catch (const DbError& e) {
        logBudgetFailure(ctx_, QStringLiteral("frmBudgetAddSlave.FillCostCentres"), e);
    }
    cmbFilterCC_->setCurrentIndex(0);
}

void frmBudgetAddSlave::FillTrendEntries() {
    QList<Date> dates;
    try {
        dates = trendEntryDates(ctx_.trendDb, budget_->BillAccount());
    } catch (const DbError& e) {
        logBudgetFailure(ctx_, QStringLiteral("frmBudgetAddSlave.FillTrendEntries"), e);
    }
    for (QComboBox* list : cmbTrend_) {
        list->clear();
        list->addItem(NoTrendEntry);
        for (const Date& d : dates)
            list->addItem(formatDate(d, DateFormat), d.toQDate());
    }
}

// Each period starts from the bill of the same month a year before, whatever its day.
void frmBudgetAddSlave::SelectDefaultTrendEntries() {
    QList<Date> dates;
    for (int i = 1; i < cmbTrend_[0]->count(); ++i)
        dates.append(Date::fromQDate(cmbTrend_[0]->itemData(i).toDate()));
    for (int i = 0; i < budget_->EntryCount() && i < PeriodCount; ++i) {
        cmbTrend_[i]->setCurrentIndex(0);
        const Date base = defaultTrendDate(dates, budget_->Entry(i + 1).SelectedDate);
        if (base.isValid())
            cmbTrend_[i]->setCurrentIndex(qMax(0, cmbTrend_[i]->findData(base.toQDate())));
    }
}

QList<PeriodBasis> frmBudgetAddSlave::chosenPeriods() const {
    QList<PeriodBasis> periods;
    for (int i = 0; i < budget_->EntryCount() && i < PeriodCount; ++i) {
        PeriodBasis basis;
        const QVariant data = cmbTrend_[i]->currentData();
        basis.trendDate = data.isValid() ? Date::fromQDate(data.toDate()) : Date();
        basis.percent = txtPercentage_[i]->text();
        periods.append(basis);
    }
    return periods;
}

void frmBudgetAddSlave::cmdCreate_Click() {
    if (!budget_)
        return;
    if (!isWholeBill()) {
        if (cmbFilterCC_->currentIndex() <= 0) {
            say(ctx_, BudgetText::SelectCostCentre);
            cmbFilterCC_->setFocus();
            return;
        }
        budget_->setName(txtTitle_->text().trimmed());
        budget_->setCostCentre(cmbFilterCC_->currentText());
    }

    const PercentCheck check = fillBudgetFromTrend(*budget_, chosenPeriods(), ctx_.trendDb, ctx_.projectDb);
    if (!check.ok()) {
        say(ctx_, check.notNumeric ? BudgetText::PercentNotNumeric : BudgetText::PercentInvalid);
        txtPercentage_[check.index]->setFocus();
        return;
    }

    int status = -1;
    try {
        status = budget_->SaveBudget(false);
    } catch (const DbError& e) {
        logBudgetFailure(ctx_, QStringLiteral("frmBudgetAddSlave.cmdCreate_Click"), e);
    }
    switch (status) {
    case BudgetStatus::Ok: {
        frmBudgetEdit editor(ctx_, this);
        editor.Setup(budget_->ID());
        editor.exec();
        accept();
        break;
    }
    case BudgetStatus::TitleExists:
        say(ctx_, BudgetText::CostCentreNameInUse);
        txtTitle_->setFocus();
        txtTitle_->selectAll();
        break;
    case BudgetStatus::CostCentreTaken:
        say(ctx_, BudgetText::CostCentreAllocated);
        cmbFilterCC_->setFocus();
        break;
    default:
        say(ctx_, BudgetText::CostCentreSaveError);
        break;
    }
}

void frmBudgetAddSlave::cmdExit_Click() {
    reject();
}

void frmBudgetAddSlave::cmdHelp_Click() {
    ShowHelp(ctx_, HelpTopic::BudgetForms);
}

void frmBudgetAddSlave::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    txtTitle_->setFocus();
}

bool frmBudgetAddSlave::eventFilter(QObject* watched, QEvent* event) {
    auto* box = qobject_cast<QLineEdit*>(watched);
    if (box && event->type() == QEvent::FocusIn)
        selectAllLater(box);
    if (box && box != txtTitle_) {
        if (event->type() == QEvent::KeyPress && !percentKeyAccepted(static_cast<QKeyEvent*>(event)))
            return true;
        if (event->type() == QEvent::FocusOut) {
            // Leaving the window, or opening a menu, is no leaving of the box.
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
                percentLostFocus(box);
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmBudgetAddSlave::percentLostFocus(QLineEdit* box) {
    if (warningShown_ || box->text().isEmpty() || percentNumber(box->text()))
        return;
    warningShown_ = true;
    say(ctx_, BudgetText::PercentNotNumeric);
    box->setText(StartPercent);
    warningShown_ = false;
}
