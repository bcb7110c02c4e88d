#include "output/ucReportArea.h"

#include <QResizeEvent>
#include <QScrollBar>

ucReportArea::ucReportArea(QWidget* parent)
    : QScrollArea(parent)
    , surface_(new QWidget) {
    setObjectName(QStringLiteral("RepArea"));
    surface_->setObjectName(QStringLiteral("RepAreaSurface"));
    surface_->setAutoFillBackground(true);
    setWidget(surface_);
    setWidgetResizable(false);
    setFrameShape(QFrame::NoFrame);
    setBackColor(Qt::white);
}

void ucReportArea::addControl(QWidget* control, const QRect& geometry) {
    control->setParent(surface_);
    control->setGeometry(geometry);
    control->show();
}

void ucReportArea::clearControls() {
    for (QWidget* control : controls())
        delete control;
}

QList<QWidget*> ucReportArea::controls() const {
    return surface_->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
}

QColor ucReportArea::BackColor() const {
    return surface_->palette().color(QPalette::Window);
}

void ucReportArea::setBackColor(const QColor& colour) {
    QPalette palette = surface_->palette();
    palette.setColor(QPalette::Window, colour);
    surface_->setPalette(palette);
    QPalette own = viewport()->palette();
    own.setColor(QPalette::Window, colour);
    viewport()->setPalette(own);
    viewport()->setAutoFillBackground(true);
}

void ucReportArea::setScrollBarH(bool allowed) {
    scrollH_ = allowed;
    setHorizontalScrollBarPolicy(allowed ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
}

void ucReportArea::setScrollBarV(bool allowed) {
    scrollV_ = allowed;
    setVerticalScrollBarPolicy(allowed ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
}

void ucReportArea::setScrollBarWidth(int pixels) {
    scrollBarWidth_ = pixels;
    if (pixels > 0) {
        horizontalScrollBar()->setFixedHeight(pixels);
        verticalScrollBar()->setFixedWidth(pixels);
    }
}

QRect ucReportArea::extent() const {
    QRect covered;
    for (const QWidget* control : controls())
        if (!control->isHidden())
            covered = covered.united(control->geometry());
    return covered;
}

void ucReportArea::shiftContents(int dx, int dy) {
    if (dx == 0 && dy == 0)
        return;
    for (QWidget* control : controls())
        control->move(control->pos() + QPoint(dx, dy));
}

void ucReportArea::RecalculateBoundries() {
    QRect covered = extent();
    if (covered.isNull()) {
        surface_->resize(0, 0);
        return;
    }
    shiftContents(std::max(0, Margin - covered.left()), std::max(0, Margin - covered.top()));
    covered = extent();
    // The view around a smaller surface shows the same colour.
    surface_->resize(covered.right() + 1 + Margin, covered.bottom() + 1 + Margin);
}

void ucReportArea::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    emit viewResized(viewport()->size());
    RecalculateBoundries();
}
