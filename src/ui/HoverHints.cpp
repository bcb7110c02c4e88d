#include "ui/HoverHints.h"

#include "app/BalloonText.h"

#include <QAbstractButton>
#include <QCursor>
#include <QEvent>
#include <QGroupBox>
#include <QHelpEvent>
#include <QLabel>
#include <QToolTip>
#include <QWidget>

namespace {

constexpr char HintProperty[] = "vantrelHint";

} // namespace

QString hintOf(const QWidget* control) {
    return control ? control->property(HintProperty).toString() : QString();
}

QString captionOf(const QWidget* control) {
    if (auto* button = qobject_cast<const QAbstractButton*>(control))
        return button->text();
    if (auto* label = qobject_cast<const QLabel*>(control))
        return label->text();
    if (auto* frame = qobject_cast<const QGroupBox*>(control))
        return frame->title();
    return QString();
}

HoverHints::HoverHints(QLabel* hintLabel, QObject* parent)
    : QObject(parent) {
    setHintLabel(hintLabel);
    balloonDelay_.setSingleShot(true);
    balloonDelay_.setInterval(BalloonDelayMs);
    connect(&balloonDelay_, &QTimer::timeout, this, &HoverHints::showBalloon);
}

void HoverHints::setHintLabel(QLabel* hintLabel) {
    label_ = hintLabel;
    restingText_ = hintLabel ? hintLabel->text() : QString();
}

void HoverHints::watch(QWidget* control, const QString& hint, const QString& title) {
    if (!control)
        return;
    control->setProperty(HintProperty, hint);
    control->setToolTip(balloonToolTip(balloonTitle(title.isEmpty() ? captionOf(control) : title), hint));
    control->setToolTipDuration(BalloonVisibleMs);
    control->installEventFilter(this);
}

bool HoverHints::eventFilter(QObject* watched, QEvent* event) {
    auto* control = qobject_cast<QWidget*>(watched);
    if (control) {
        switch (event->type()) {
        case QEvent::Enter:
            ShowHoverHint(control);
            break;
        case QEvent::Leave:
        case QEvent::Hide:
            HideHoverHint(control);
            break;
        case QEvent::ToolTip:
            // The balloon keeps its own time, also for disabled controls, which explain why they are.
            return true;
        default:
            break;
        }
    }
    return QObject::eventFilter(watched, event);
}

void HoverHints::ShowHoverHint(QWidget* control) {
    current_ = control;
    if (label_)
        label_->setText(hintOf(control));
    balloonDelay_.start();
}

void HoverHints::HideHoverHint(QWidget* control) {
    if (current_ != control)
        return;
    current_ = nullptr;
    balloonDelay_.stop();
    if (QToolTip::isVisible())
        QToolTip::hideText();
    if (label_)
        label_->setText(restingText_);
}

void HoverHints::showBalloon() {
    if (current_ && !current_->toolTip().isEmpty())
        QToolTip::showText(QCursor::pos(), current_->toolTip(), current_, QRect(), BalloonVisibleMs);
}
