#include "app/StartupClock.h"

#include <QEventLoop>
#include <QTimer>

QDateTime SystemStartupClock::now() {
    return QDateTime::currentDateTime();
}

void SystemStartupClock::yield() {
    QEventLoop loop;
    QTimer::singleShot(20, &loop, &QEventLoop::quit);
    loop.exec();
}

bool splashTimeServed(const QDateTime& start, const QDateTime& now) {
    return start.secsTo(now) >= SplashMinimumSeconds;
}
