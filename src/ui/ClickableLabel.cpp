#include "ui/ClickableLabel.h"

#include <QKeyEvent>
#include <QMouseEvent>

ClickableLabel::ClickableLabel(const QString& text, QWidget* parent)
    : QLabel(text, parent) {
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
}

void ClickableLabel::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton;
    QLabel::mousePressEvent(event);
}

void ClickableLabel::mouseReleaseEvent(QMouseEvent* event) {
    const bool inside = rect().contains(event->position().toPoint());
    const bool wasPressed = pressed_;
    pressed_ = false;
    QLabel::mouseReleaseEvent(event);
    if (wasPressed && event->button() == Qt::LeftButton && inside && isEnabled())
        emit clicked();
}

void ClickableLabel::keyPressEvent(QKeyEvent* event) {
    if (isEnabled() &&
        (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        emit clicked();
        return;
    }
    QLabel::keyPressEvent(event);
}
