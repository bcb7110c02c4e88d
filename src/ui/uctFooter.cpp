#include "ui/uctFooter.h"

#include "app/cColours.h"
#include "ui/Branding.h"
#include "ui/ClickableLabel.h"
#include "ui/HoverHints.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace {

// Room added to a caption's width and a button's least width, in pixels.
constexpr int CaptionRoom = 13;
constexpr int LeastButtonWidth = 96;
constexpr char PrimaryProperty[] = "vantrelPrimaryButton";

void setTextColour(QLabel* label, const QColor& colour) {
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, colour);
    label->setPalette(palette);
}

} // namespace

uctFooter::uctFooter(QWidget* parent)
    : QWidget(parent)
    , hints_(new HoverHints(nullptr, this))
    , left_(new QVBoxLayout)
    , details_(new QWidget(this))
    , detailGrid_(new QGridLayout(details_))
    , buttonRow_(new QHBoxLayout)
    , lblExit_(new ClickableLabel(QStringLiteral("Exit"), this))
    , buttonHelp_(new ClickableLabel(QStringLiteral("Help"), this))
    , lblInvoiceTitle_(new QLabel(QStringLiteral("Invoice:"), details_))
    , lblInvoiceText_(new QLabel(details_))
    , lblTaxPointTitle_(new QLabel(QStringLiteral("Tax Point:"), details_))
    , lblTaxPointText_(new QLabel(details_)) {
    setObjectName(QStringLiteral("uctFooter"));
    lblExit_->setObjectName(QStringLiteral("lblExit"));
    buttonHelp_->setObjectName(QStringLiteral("buttonHelp"));
    lblInvoiceTitle_->setObjectName(QStringLiteral("lblInvoiceTitle"));
    lblInvoiceText_->setObjectName(QStringLiteral("lblInvoiceText"));
    lblTaxPointTitle_->setObjectName(QStringLiteral("lblTaxPointTitle"));
    lblTaxPointText_->setObjectName(QStringLiteral("lblTaxPointText"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    const cColours colours;
    for (QLabel* title : {lblInvoiceTitle_, lblTaxPointTitle_}) {
        setTextColour(title, qColor(colours.Grey(5)));
        QFont bold = title->font();
        bold.setBold(true);
        title->setFont(bold);
    }
    detailGrid_->setContentsMargins(0, 0, 0, 0);
    detailGrid_->setHorizontalSpacing(8);
    detailGrid_->setVerticalSpacing(2);
    detailGrid_->addWidget(lblInvoiceTitle_, 0, 0);
    detailGrid_->addWidget(lblInvoiceText_, 0, 1);
    detailGrid_->addWidget(lblTaxPointTitle_, 0, 2);
    detailGrid_->addWidget(lblTaxPointText_, 0, 3);
    detailGrid_->setColumnStretch(4, 1);
    SetReportDetails(QString(), QString());

    left_->setContentsMargins(0, 0, 0, 0);
    left_->setSpacing(2);
    left_->addWidget(details_);

    styleButton(lblExit_, true, false);
    styleButton(buttonHelp_, false, false);
    lblExit_->installEventFilter(this);
    buttonHelp_->installEventFilter(this);
    connect(lblExit_, &ClickableLabel::clicked, this, [this] { emit ButtonClicked(ExitButton); });
    connect(buttonHelp_, &ClickableLabel::clicked, this, &uctFooter::HelpClicked);
    hints_->watch(buttonHelp_, QStringLiteral("Show Help"));
    hints_->watch(lblExit_, QStringLiteral("Exit"));

    buttonRow_->setSpacing(8);
    buttonRow_->addWidget(buttonHelp_);
    buttonRow_->addWidget(lblExit_);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(20, 10, 20, 10);
    row->setSpacing(16);
    row->addLayout(left_, 1);
    row->addLayout(buttonRow_, 0);
    CheckButtonWidth();
}

bool uctFooter::ExitButtonVisible() const {
    return !lblExit_->isHidden();
}

void uctFooter::setExitButtonVisible(bool visible) {
    lblExit_->setVisible(visible);
}

int uctFooter::ButtonPanelWidth() const {
    int width = 0;
    int shown = 0;
    for (int i = 0; i < buttonRow_->count(); ++i) {
        QWidget* button = buttonRow_->itemAt(i)->widget();
        if (button && !button->isHidden()) {
            width += qMax(button->minimumWidth(), button->sizeHint().width());
            ++shown;
        }
    }
    return width + qMax(0, shown - 1) * buttonRow_->spacing();
}

void uctFooter::setDetailVisible(bool visible) {
    detailVisible_ = visible;
    details_->setVisible(visible);
    for (QLabel* line : detailLines_)
        line->setVisible(visible);
}

void uctFooter::SetReportDetails(const QString& invoiceText, const QString& taxPointText) {
    const bool show = !(invoiceText.isEmpty() && taxPointText.isEmpty());
    lblInvoiceText_->setText(invoiceText);
    lblTaxPointText_->setText(taxPointText);
    for (QLabel* label : {lblInvoiceTitle_, lblInvoiceText_, lblTaxPointTitle_, lblTaxPointText_})
        label->setVisible(show);
    if (show) {
        for (QLabel* line : detailLines_)
            line->setVisible(false);
        Refresh();
    }
}

void uctFooter::Refresh() {
    CheckButtonWidth();
    updateGeometry();
    update();
}

bool uctFooter::HelpVisible() const {
    return !buttonHelp_->isHidden();
}

void uctFooter::setHelpVisible(bool visible) {
    buttonHelp_->setVisible(visible);
}

void uctFooter::CheckButtonWidth() {
    for (int i = 0; i < buttonRow_->count(); ++i) {
        auto* button = qobject_cast<QLabel*>(buttonRow_->itemAt(i)->widget());
        if (!button)
            continue;
        const QMargins m = button->contentsMargins();
        const int caption = button->fontMetrics().horizontalAdvance(button->text());
        button->setMinimumWidth(qMax(LeastButtonWidth, caption + m.left() + m.right() + CaptionRoom));
    }
}

void uctFooter::RegisterButton(QWidget* control) {
    if (!control)
        return;
    registered_.append(control);
    styleButton(control, true, false);
    QFont font = control->font();
    font.setFamily(brandFontFamily());
    control->setFont(font);
    control->installEventFilter(this);
    // The registered buttons stand left of the strip's own help and exit buttons.
    buttonRow_->insertWidget(int(registered_.size()) - 1, control);
    CheckButtonWidth();
}

void uctFooter::AddDetail(const QString& text) {
    auto* line = new QLabel(text, this);
    line->setObjectName(QStringLiteral("lblDetail%1").arg(detailLines_.size()));
    setTextColour(line, qColor(cColours().Grey(5)));
    line->setVisible(detailVisible_);
    detailLines_.append(line);
    left_->addWidget(line);
}

void uctFooter::ClearDetails() {
    for (QLabel* line : detailLines_)
        line->deleteLater();
    detailLines_.clear();
}

void uctFooter::RemoveDetails() {
    SetReportDetails(QString(), QString());
    ClearDetails();
}

QString uctFooter::ExitToolTipText() const {
    return hintOf(lblExit_);
}

void uctFooter::setExitToolTipText(const QString& hint) {
    hints_->watch(lblExit_, hint);
}

bool uctFooter::ExitEnabled() const {
    return lblExit_->isEnabled();
}

void uctFooter::setExitEnabled(bool enabled) {
    lblExit_->setEnabled(enabled);
}

QString uctFooter::ExitButtonText() const {
    return lblExit_->text();
}

void uctFooter::setExitButtonText(const QString& text) {
    lblExit_->setText(text);
    hints_->watch(lblExit_, ExitToolTipText());
    CheckButtonWidth();
}

void uctFooter::EnableButtons(bool enabled) {
    for (QWidget* button : registered_)
        button->setEnabled(enabled);
}

void uctFooter::setHintLabel(QLabel* hintLabel) {
    if (!hintLabel)
        return;
    hintLabel->setParent(this);
    setTextColour(hintLabel, qColor(cColours().Grey(5)));
    left_->insertWidget(0, hintLabel);
    hintLabel->show();
    hints_->setHintLabel(hintLabel);
}

void uctFooter::styleButton(QWidget* button, bool primary, bool hovered) {
    const cColours colours;
    button->setProperty(PrimaryProperty, primary);
    button->setAutoFillBackground(true);
    QPalette palette = button->palette();
    const QColor back = qColor(primary ? (hovered ? colours.Indigo(4) : BrandColour)
                                       : (hovered ? colours.Indigo(2) : colours.Indigo(1)));
    const QColor text = primary ? qColor(White) : qColor(colours.Indigo(6));
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Window, back);
        palette.setColor(group, QPalette::Button, back);
        palette.setColor(group, QPalette::WindowText, text);
        palette.setColor(group, QPalette::ButtonText, text);
    }
    palette.setColor(QPalette::Disabled, QPalette::Window, qColor(colours.Grey(2)));
    palette.setColor(QPalette::Disabled, QPalette::Button, qColor(colours.Grey(2)));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, qColor(colours.Grey(4)));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, qColor(colours.Grey(4)));
    button->setPalette(palette);
    if (auto* label = qobject_cast<QLabel*>(button)) {
        label->setAlignment(Qt::AlignCenter);
        label->setContentsMargins(16, 7, 16, 7);
        label->setMinimumHeight(32);
    }
}

bool uctFooter::eventFilter(QObject* watched, QEvent* event) {
    auto* button = qobject_cast<QWidget*>(watched);
    if (button && (event->type() == QEvent::Enter || event->type() == QEvent::Leave))
        styleButton(button, button->property(PrimaryProperty).toBool(), event->type() == QEvent::Enter);
    return QWidget::eventFilter(watched, event);
}

void uctFooter::paintEvent(QPaintEvent*) {
    const cColours colours;
    QPainter painter(this);
    painter.fillRect(rect(), qColor(colours.Grey(2)));
    painter.fillRect(QRect(0, 0, width(), 1), qColor(colours.Grey(3)));
}
