#pragma once
// A throw-away installation for the start-up: program, application and system folders
// in a temporary directory, stores made from the real schemas, and a clock that moves
// only when the start-up yields or a test says so.
#include "TempDir.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/StartupClock.h"

#include <functional>
#include <memory>

class FakeClock : public StartupClock {
public:
    QDateTime now() override { return QDateTime(QDate(2012, 1, 31), QTime(9, 0)).addMSecs(elapsedMs_); }
    void yield() override; // takes 0.1 s
    void advance(qint64 ms) { elapsedMs_ += ms; }
    qint64 elapsedMs() const { return elapsedMs_; }
    // Runs at every yield, with the number of the yield (1 for the first).
    std::function<void(int)> onYield;

private:
    qint64 elapsedMs_ = 0;
    int yields_ = 0;
};

class Installation {
public:
    Installation();
    QString appFile(const QString& name) const { return dir.path(QStringLiteral("app/") + name); }
    QString systemFile(const QString& name) const { return dir.path(QStringLiteral("system/") + name); }
    void writeAllStores() const;
    std::unique_ptr<cPathControl> paths() const;

    testing::TempDir dir;
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};
};

// The visible top-level windows of a class, e.g. "frmMenu".
QList<QWidget*> visibleWindows(const char* className);
