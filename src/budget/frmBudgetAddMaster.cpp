#include "budget/frmBudgetAddMaster.h"

#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/HelpTopics.h"
#include "budget/BudgetStatus.h"
#include "budget/MasterDatesEdit.h"
#include "budget/MasterPeriods.h"
#include "budget/clsBudget.h"
#include "budget/frmBudgetAddSlave.h"
#include "budget/gui/BudgetFormParts.h"
#include "ui/Branding.h"
#include "ui/ClickableLabel.h"
#include "ui/HelpWindow.h"
#include "ui/HoverHints.h"
#include "ui/WindowIcon.h"
#include "ui/uctFooter.h"
#include "ui/uctHeader.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>

namespace {

const QString CreateCaption = QStringLiteral("Add Master Budget");
const QString EditCaption = QStringLiteral("Edit Master Budget");
const QString CreateNote =
    QStringLiteral("Welcome to creating a budget, first of all you need to define the dates for which the "
                   "budget will run.  Below are twelve selection boxes to choose the budget entry dates, and "
                   "the cost centre level on which this budget will be based. \"Period dates\" should be set "
                   "to correspond to billing periods i.e. Monthly or Quarterly.");
const QString EditNote = QStringLiteral(
    "Note: Any changes made will be reflected in the relevant cost centre budgets (new dates will acquire a "
    "budgeted cost based on the previous periods entry).");
const QString TitleHint = QStringLiteral("Enter the name for this budget");

// The periods stand in two columns of six, so the form stays short.
constexpr int PeriodsPerColumn = 6;

} // namespace

frmBudgetAddMaster::frmBudgetAddMaster(AppContext& ctx, QWidget* parent)
    : QDialog(parent)
    , ctx_(ctx)
    , header_(new uctHeader(this))
    , footer_(new uctFooter(this))
    , Label1_(new QLabel(CreateNote, this))
    , Label2_(new QLabel(QStringLiteral("Budgeted dates must match billing dates within four days"), this))
    , lblTitle_(new QLabel(QStringLiteral("Budget Title"), this))
    , txtTitle_(new QLineEdit(this))
    , lblCC_(new QLabel(QStringLiteral("Selected Cost Centre Level"), this))
    , cmbFilterLevel_(new QComboBox(this))
    , lblBudgetDate_(new QLabel(QStringLiteral("Budgeted Dates"), this))
    , lblCreate_(new ClickableLabel(QStringLiteral("Create Budget"), this))
    , lblHelp_(new ClickableLabel(QStringLiteral("Help"), this))
    , lblHint_(new QLabel(this)) {
    buildControls();
    layOut();

    // The first period starts at the latest bill of the account; the others follow by month.
    dtPeriod_[0]->setDate(firstPeriodStart(ctx_.trendDb, ctx_.billAccount, Date::today()).toQDate());
    Cascade(0);
    // By the tick rule this ticks all twelve.
    chkPeriod_[PeriodCount - 1]->setChecked(true);
}

frmBudgetAddMaster::~frmBudgetAddMaster() = default;

void frmBudgetAddMaster::buildControls() {
    setObjectName(QStringLiteral("frmBudgetAddMaster"));
    setWindowTitle(CreateCaption);
    SetIcon(this);
    header_->setObjectName(QStringLiteral("uctHeader1"));
    footer_->setObjectName(QStringLiteral("uctFooter1"));
    Label1_->setObjectName(QStringLiteral("Label1"));
    Label2_->setObjectName(QStringLiteral("Label2"));
    lblTitle_->setObjectName(QStringLiteral("lblTitle"));
    txtTitle_->setObjectName(QStringLiteral("txtTitle"));
    lblCC_->setObjectName(QStringLiteral("lblCC"));
    cmbFilterLevel_->setObjectName(QStringLiteral("cmbFilterLevel"));
    lblBudgetDate_->setObjectName(QStringLiteral("lblBudgetDate"));
    lblCreate_->setObjectName(QStringLiteral("lblCreate"));
    lblHelp_->setObjectName(QStringLiteral("lblHelp"));
    lblHint_->setObjectName(QStringLiteral("lblHint"));

    header_->setHeaderType(uctHeader::Type::Compact);
    header_->setTitle(QStringLiteral("Vantrel"));
    header_->setDetail(CreateCaption);

    Label1_->setTextFormat(Qt::PlainText);
    Label1_->setWordWrap(true);
    Label2_->setTextFormat(Qt::PlainText);
    setTextColour(Label2_, qColor(ctx_.colours.CoreColour_Coral()));
    makeHeading(lblBudgetDate_);

    cmbFilterLevel_->addItem(QStringLiteral("Whole Bill"), 0);
    for (int level = 1; level <= 5; ++level)
        cmbFilterLevel_->addItem(QStringLiteral("Level %1").arg(level), level);
    cmbFilterLevel_->setCurrentIndex(0);
    txtTitle_->setMaxLength(clsBudget::MaxNameLength);
    txtTitle_->installEventFilter(this);

    for (int i = 0; i < PeriodCount; ++i) {
        auto* label = new QLabel(QStringLiteral("Period %1").arg(i + 1), this);
        label->setObjectName(QStringLiteral("lblPeriod%1").arg(i));
        auto* check = new QCheckBox(QStringLiteral("Enabled"), this);
        check->setObjectName(QStringLiteral("chkPeriod%1").arg(i));
        auto* picker = new QDateEdit(this);
        picker->setObjectName(QStringLiteral("dtPeriod%1").arg(i));
        setUpDatePicker(picker);
        picker->setEnabled(false);
        connect(check, &QCheckBox::toggled, this, [this, i](bool ticked) { chkPeriod_Click(i, ticked); });
        connect(picker, &QDateEdit::dateChanged, this, [this, i] { dtPeriod_Change(i); });
        lblPeriod_.append(label);
        chkPeriod_.append(check);
        dtPeriod_.append(picker);
    }

    // The strip is the form's button bar: Create and Help beside its own exit, which is Cancel.
    footer_->setHintLabel(lblHint_);
    footer_->setHelpVisible(false);
    footer_->RegisterButton(lblCreate_);
    footer_->RegisterButton(lblHelp_);
    footer_->setExitButtonText(QStringLiteral("Cancel"));
    footer_->setExitToolTipText(QStringLiteral("Exit without saving"));
    HoverHints* hints = footer_->hints();
    hints->watch(txtTitle_, TitleHint, lblTitle_->text());
    hints->watch(lblCreate_, QStringLiteral("Create master budget"));
    hints->watch(lblHelp_, QStringLiteral("Show Help"));
    connect(lblCreate_, &ClickableLabel::clicked, this, &frmBudgetAddMaster::cmdCreate_Click);
    connect(lblHelp_, &ClickableLabel::clicked, this, &frmBudgetAddMaster::cmdHelp_Click);
    connect(footer_, &uctFooter::HelpClicked, this, &frmBudgetAddMaster::cmdHelp_Click);
    connect(footer_, &uctFooter::ButtonClicked, this, [this](int value) {
        if (value == uctFooter::ExitButton)
            cmdExit_Click();
    });
}

void frmBudgetAddMaster::layOut() {
    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(14);
    fields->setVerticalSpacing(8);
    fields->addWidget(lblTitle_, 0, 0);
    fields->addWidget(txtTitle_, 0, 1);
    fields->addWidget(lblCC_, 1, 0);
    fields->addWidget(cmbFilterLevel_, 1, 1);
    fields->setColumnStretch(1, 1);

    auto* periods = new QGridLayout;
    periods->setHorizontalSpacing(12);
    periods->setVerticalSpacing(6);
    for (int i = 0; i < PeriodCount; ++i) {
        const int row = i % PeriodsPerColumn;
        const int column = (i / PeriodsPerColumn) * 4;
        periods->addWidget(lblPeriod_[i], row, column);
        periods->addWidget(chkPeriod_[i], row, column + 1);
        periods->addWidget(dtPeriod_[i], row, column + 2);
    }
    // A gutter between the two columns of periods.
    periods->setColumnMinimumWidth(3, 28);
    periods->setColumnStretch(3, 1);

    auto* body = new QVBoxLayout;
    body->setSpacing(10);
    body->addWidget(Label1_);
    body->addWidget(Label2_);
    body->addSpacing(6);
    body->addLayout(fields);
    body->addSpacing(8);
    body->addWidget(lblBudgetDate_);
    body->addLayout(periods);
    body->addStretch(1);

    layOutForm(this, header_, body, footer_, 640);
    ApplyBrandFont(this);
}

void frmBudgetAddMaster::SetupForEdit(int budgetId) {
    editing_ = true;
    budget_ = std::make_unique<clsBudget>(ctx_.budgetDb, ctx_.trendDb);
    budget_->LoadBudget(budgetId);
    const int count = std::min(budget_->EntryCount(), int(PeriodCount));
    if (count < PeriodCount)
        chkPeriod_[count]->setChecked(false);
    for (int i = 0; i < count; ++i)
        dtPeriod_[i]->setDate(budget_->Entry(i + 1).SelectedDate.toQDate());
    // The unused periods offer the months after the last date in use.
    if (count > 0 && count < PeriodCount)
        Cascade(count - 1);

    txtTitle_->setText(budget_->Name());
    const int levelIndex = cmbFilterLevel_->findData(budget_->CCLevel());
    if (levelIndex >= 0)
        cmbFilterLevel_->setCurrentIndex(levelIndex);
    // Neither the title nor the level of a master can change.
    txtTitle_->setReadOnly(true);
    cmbFilterLevel_->setEnabled(false);

    setWindowTitle(EditCaption);
    header_->setDetail(EditCaption);
    Label1_->setText(EditNote);
    lblCreate_->setText(QStringLiteral("Save Changes"));
    footer_->hints()->watch(lblCreate_, QStringLiteral("Save the master budget changes"));
    footer_->CheckButtonWidth();
}

void frmBudgetAddMaster::Cascade(int index) {
    const bool wasCascading = cascading_;
    cascading_ = true;
    const QList<Date> dates = cascadeByMonth(Date::fromQDate(dtPeriod_[index]->date()), PeriodCount - index);
    for (int k = 0; k < dates.size(); ++k)
        dtPeriod_[index + k]->setDate(dates[k].toQDate());
    cascading_ = wasCascading;
}

void frmBudgetAddMaster::dtPeriod_Change(int index) {
    if (!editing_ && !cascading_)
        Cascade(index);
}

// The ticked periods always run unbroken from the first: a tick ticks every earlier
// period, an untick unticks every later one. Each change fires the rule again.
void frmBudgetAddMaster::chkPeriod_Click(int index, bool ticked) {
    dtPeriod_[index]->setEnabled(ticked);
    if (ticked) {
        for (int i = 0; i < index; ++i)
            chkPeriod_[i]->setChecked(true);
    } else {
        for (int i = index + 1; i < PeriodCount; ++i)
            chkPeriod_[i]->setChecked(false);
    }
}

void frmBudgetAddMaster::cmdCreate_Click() {
    const bool anyTicked = std::any_of(chkPeriod_.cbegin(), chkPeriod_.cend(),
                                       [](const QCheckBox* c) { return c->isChecked(); });
    if (!anyTicked) {
        ctx_.dialogs.information(BudgetText::SelectPeriod);
        return;
    }
    if (editing_)
        saveEditedDates();
    else
        createMaster();
}

void frmBudgetAddMaster::createMaster() {
    const int level = cmbFilterLevel_->currentData().toInt();
    clsBudget budget(ctx_.budgetDb, ctx_.trendDb);
    budget.CreateMaster(ctx_.billAccount, level);
    budget.setName(txtTitle_->text());
    for (int i = 0; i < PeriodCount; ++i) {
        if (chkPeriod_[i]->isChecked())
            budget.AddDate(Date::fromQDate(dtPeriod_[i]->date()), Money(), Money(), Money(), Money());
    }
    int status = -1;
    try {
        status = budget.SaveBudget(false);
    } catch (const DbError& e) {
        logBudgetFailure(ctx_, QStringLiteral("frmBudgetAddMaster.cmdCreate_Click"), e);
    }

    switch (status) {
    case BudgetStatus::Ok: {
        ctx_.lastBudgetId = budget.ID();
        accept();
        // A whole-bill master goes straight on to its own amounts; a level master waits for
        // its cost-centre budgets.
        if (level == 0) {
            frmBudgetAddSlave amounts(ctx_, parentWidget());
            amounts.Setup(budget.ID(), true);
            amounts.exec();
        }
        break;
    }
    case BudgetStatus::TitleExists:
        ctx_.dialogs.information(BudgetText::MasterNameExists);
        txtTitle_->setFocus();
        break;
    case BudgetStatus::NoEntries:
        ctx_.dialogs.information(BudgetText::MasterNoDates);
        break;
    default:
        ctx_.dialogs.critical(BudgetText::MasterSaveError);
        break;
    }
}

void frmBudgetAddMaster::saveEditedDates() {
    QList<Date> periods;
    for (int i = 0; i < PeriodCount; ++i)
        periods.append(chkPeriod_[i]->isChecked() ? Date::fromQDate(dtPeriod_[i]->date()) : Date());
    int status = -1;
    try {
        status = editMasterDates(ctx_.budgetDb, budget_->ID(), periods);
    } catch (const DbError& e) {
        logBudgetFailure(ctx_, QStringLiteral("frmBudgetAddMaster.cmdCreate_Click"), e);
    }
    if (status != BudgetStatus::Ok) {
        ctx_.dialogs.critical(BudgetText::MasterSaveError);
        return;
    }
    accept();
}

void frmBudgetAddMaster::cmdExit_Click() {
    reject();
}

void frmBudgetAddMaster::cmdHelp_Click() {
    ShowHelp(ctx_, HelpTopic::BudgetForms);
}

bool frmBudgetAddMaster::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtTitle_ && event->type() == QEvent::FocusIn)
        selectAllLater(txtTitle_);
    return QDialog::eventFilter(watched, event);
}
