#include "app/frmMenu.h"
#include "ui/FormFrame.h"

#include "app/AppContext.h"
#include "app/HelpTopics.h"
#include "app/gui/Main.h"
#include "ui/Branding.h"
#include "ui/HelpWindow.h"
#include "ui/HoverHints.h"
#include "ui/WindowIcon.h"
#include "ui/uctFooter.h"
#include "ui/uctHeader.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QPushButton* menuButton(const QString& name, const QString& caption, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    button->setMinimumHeight(44);
    button->setCursor(Qt::PointingHandCursor);
    return button;
}

QGroupBox* frame(const QString& name, const QString& title, QPushButton* first, QPushButton* second,
                 QWidget* parent) {
    auto* box = new QGroupBox(title, parent);
    box->setObjectName(name);
    auto* layout = new QVBoxLayout(box);
    layout->setSpacing(10);
    layout->addWidget(first);
    layout->addWidget(second);
    return box;
}

} // namespace

frmMenu::frmMenu(AppContext& ctx, QWidget* parent)
    : QWidget(parent)
    , ctx_(ctx)
    , header_(new uctHeader(this))
    , footer_(new uctFooter(this))
    , hints_(nullptr)
    , lblProject_(new QLabel(QStringLiteral("Selected Project"), this))
    , projectPlace_(new QWidget(this))
    , frameTrend_(nullptr)
    , frameBudget_(nullptr)
    , cmdHelp_(menuButton(QStringLiteral("cmdHelp"), QStringLiteral("Help"), this))
    , cmdExit_(menuButton(QStringLiteral("cmdExit"), QStringLiteral("Exit"), this))
    , lblHelp_(new QLabel(QStringLiteral("Help"), this))
    , lblVersion_(new QLabel(this)) {
    setObjectName(QStringLiteral("frmMenu"));
    setWindowTitle(QStringLiteral("Vantrel"));
    SetIcon(this);
    header_->setObjectName(QStringLiteral("uctHeader1"));
    footer_->setObjectName(QStringLiteral("uctFooter1"));
    lblProject_->setObjectName(QStringLiteral("lblProject"));
    projectPlace_->setObjectName(QStringLiteral("ucProject"));
    lblHelp_->setObjectName(QStringLiteral("lblHelp"));
    lblVersion_->setObjectName(QStringLiteral("lblVersion"));

    slots_[int(Opener::TrendManagement)].button =
        menuButton(QStringLiteral("cmdTrendManagement"), QStringLiteral("Trend Management"), this);
    slots_[int(Opener::TrendReports)].button =
        menuButton(QStringLiteral("cmdTrendReports"), QStringLiteral("Reports"), this);
    slots_[int(Opener::BudgetManagement)].button =
        menuButton(QStringLiteral("cmdBudgetManagement"), QStringLiteral("Budget Management"), this);
    slots_[int(Opener::BudgetReports)].button =
        menuButton(QStringLiteral("cmdBudgetReports"), QStringLiteral("Reports"), this);
    frameTrend_ = frame(QStringLiteral("frameTrend"), QStringLiteral("Trending"),
                        button(Opener::TrendManagement), button(Opener::TrendReports), this);
    frameBudget_ = frame(QStringLiteral("frameBudget"), QStringLiteral("Budget Tracking"),
                         button(Opener::BudgetManagement), button(Opener::BudgetReports), this);
    for (QPushButton* secondary : {cmdHelp_, cmdExit_}) {
        secondary->setProperty("secondary", true);
        secondary->setMinimumWidth(110);
        secondary->setMinimumHeight(36);
    }

    // The header and footer, as every form has them.
    setUpFormStrips(
        header_, uctHeader::Type::Banner, QStringLiteral("Telephone bill trends and budgets"), footer_,
        lblHelp_, QStringLiteral("Exit from the Vantrel"), [this] { cmdExit_Click(); },
        [this] { cmdHelp_Click(); });

    hints_ = new HoverHints(lblHelp_, this);
    hints_->watch(button(Opener::TrendManagement),
                  QStringLiteral("Facility to allow trends data to be managed"));
    hints_->watch(button(Opener::TrendReports), QStringLiteral("Trend analysis reports"));
    hints_->watch(button(Opener::BudgetManagement),
                  QStringLiteral("Facility to allow budget data to be managed"));
    hints_->watch(button(Opener::BudgetReports), QStringLiteral("Budget analysis reports"));
    hints_->watch(cmdHelp_, QStringLiteral("Show Help"));
    hints_->watch(cmdExit_, QStringLiteral("Exit from the Vantrel"));

    for (Opener which :
         {Opener::TrendManagement, Opener::TrendReports, Opener::BudgetManagement, Opener::BudgetReports})
        connect(button(which), &QPushButton::clicked, this, [this, which] { open(which); });
    connect(cmdHelp_, &QPushButton::clicked, this, &frmMenu::cmdHelp_Click);
    connect(cmdExit_, &QPushButton::clicked, this, &frmMenu::cmdExit_Click);
    for (QWidget* clickable : {static_cast<QWidget*>(frameTrend_), static_cast<QWidget*>(frameBudget_),
                               static_cast<QWidget*>(lblHelp_)})
        clickable->installEventFilter(this);
    lblHelp_->setCursor(Qt::WhatsThisCursor);

    lblVersion_->setText(QStringLiteral("Version ") + ctx_.version);
    QPalette muted = lblVersion_->palette();
    muted.setColor(QPalette::WindowText, QColor(107, 107, 107));
    lblVersion_->setPalette(muted);
    QFont projectFont = lblProject_->font();
    projectFont.setBold(true);
    lblProject_->setFont(projectFont);

    // The project selector's place: it fills the room beside its label.
    projectPlace_->setMinimumHeight(34);
    auto* placeLayout = new QHBoxLayout(projectPlace_);
    placeLayout->setContentsMargins(0, 0, 0, 0);

    auto* projectRow = new QHBoxLayout;
    projectRow->setSpacing(14);
    projectRow->addWidget(lblProject_);
    projectRow->addWidget(projectPlace_, 1);

    auto* frames = new QHBoxLayout;
    frames->setSpacing(20);
    frames->addWidget(frameTrend_, 1);
    frames->addWidget(frameBudget_, 1);

    auto* actions = new QHBoxLayout;
    actions->setSpacing(10);
    actions->addWidget(lblVersion_, 0, Qt::AlignVCenter);
    actions->addStretch(1);
    actions->addWidget(cmdHelp_);
    actions->addWidget(cmdExit_);

    auto* body = new QVBoxLayout;
    body->setContentsMargins(28, 22, 28, 20);
    body->setSpacing(18);
    body->addLayout(projectRow);
    body->addLayout(frames);
    body->addStretch(1);
    body->addLayout(actions);

    layOutFormPage(this, header_, body, footer_);

    ApplyBrandFont(this);
    updateButtons();
    resize(720, 440);
}

frmMenu::Slot& frmMenu::slot(Opener which) {
    return slots_[int(which)];
}

const frmMenu::Slot& frmMenu::slot(Opener which) const {
    return slots_[int(which)];
}

QPushButton* frmMenu::button(Opener which) const {
    return slot(which).button;
}

bool frmMenu::hasOpener(Opener which) const {
    return bool(slot(which).open);
}

void frmMenu::setOpener(Opener which, std::function<void()> open) {
    slot(which).open = std::move(open);
    updateButtons();
}

void frmMenu::setProjectSelector(QWidget* selector, std::function<void()> cancel,
                                 std::function<void()> refresh) {
    selectorCancel_ = std::move(cancel);
    selectorRefresh_ = std::move(refresh);
    if (selector)
        projectPlace_->layout()->addWidget(selector);
}

void frmMenu::projectChanged() {
    updateButtons();
}

void frmMenu::updateButtons() {
    frameTrend_->setEnabled(ctx_.trendEnabled);
    button(Opener::TrendManagement)->setEnabled(ctx_.trendEnabled && hasOpener(Opener::TrendManagement));
    button(Opener::TrendReports)->setEnabled(ctx_.trendEnabled && hasOpener(Opener::TrendReports));
    // Budgets need no trend-fed project.
    button(Opener::BudgetManagement)->setEnabled(hasOpener(Opener::BudgetManagement));
    button(Opener::BudgetReports)->setEnabled(hasOpener(Opener::BudgetReports));
}

void frmMenu::cancelSelector() {
    if (selectorCancel_)
        selectorCancel_();
}

void frmMenu::open(Opener which) {
    cancelSelector();
    if (!hasOpener(which))
        return;
    slot(which).open();
    if (selectorRefresh_)
        selectorRefresh_();
    updateButtons();
}

void frmMenu::cmdHelp_Click() {
    cancelSelector();
    ShowHelp(ctx_, HelpTopic::MainMenu);
}

void frmMenu::cmdExit_Click() {
    if (ctx_.paths)
        UnloadBrandFonts(ctx_.paths->AppFolder);
    closingThroughShutDown_ = true;
    ShutDown(ctx_);
}

void frmMenu::closeEvent(QCloseEvent* event) {
    if (!closingThroughShutDown_) {
        closingThroughShutDown_ = true;
        ShutDown(ctx_);
    }
    event->accept();
}

bool frmMenu::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblHelp_ && event->type() == QEvent::MouseButtonRelease) {
        cmdHelp_Click();
        return true;
    }
    if ((watched == frameTrend_ || watched == frameBudget_) && event->type() == QEvent::MouseButtonPress)
        cancelSelector();
    return QWidget::eventFilter(watched, event);
}

void frmMenu::mousePressEvent(QMouseEvent* event) {
    cancelSelector();
    QWidget::mousePressEvent(event);
}
