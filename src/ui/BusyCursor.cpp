#include "ui/BusyCursor.h"

#include <QGuiApplication>

BusyCursor::BusyCursor() {
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        active_ = true;
    }
}

BusyCursor::~BusyCursor() {
    release();
}

void BusyCursor::release() {
    if (active_)
        QGuiApplication::restoreOverrideCursor();
    active_ = false;
}
