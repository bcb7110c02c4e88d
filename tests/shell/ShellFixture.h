#pragma once
// A throw-away installation for the start-up: program, application and system folders
// in a temporary directory, stores made from the real schemas, and a clock that moves
// only when the start-up yields or a test says so.
#include "TempDir.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/StartupClock.h"
#include "data/Schema.h"
#include "data/Stores.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QWidget>
#include <functional>
#include <memory>

class FakeClock : public StartupClock {
public:
    QDateTime now() override { return QDateTime(QDate(2012, 1, 31), QTime(9, 0)).addMSecs(elapsedMs_); }
    void yield() override { // takes 0.1 s
        elapsedMs_ += 100;
        QCoreApplication::processEvents();
        if (onYield)
            onYield(++yields_);
    }
    void advance(qint64 ms) { elapsedMs_ += ms; }
    qint64 elapsedMs() const { return elapsedMs_; }
    // Runs at every yield, with the number of the yield (1 for the first).
    std::function<void(int)> onYield;

private:
    qint64 elapsedMs_ = 0;
    int yields_ = 0;
};

// All four stores are written from their schemas; a test spoils the ones it needs.
class Installation {
public:
    Installation() {
        for (const char* folder : {"prog", "app", "machine", "system"})
            QDir().mkpath(dir.path(QString::fromLatin1(folder)));
        for (const QString& t : {StoreFile::BudgetsTemplate, StoreFile::TrendTemplate})
            QFile::copy(QStringLiteral(VANTREL_SYSTEM_DIR "/") + t, systemFile(t));
        const std::pair<QString, const char*> stores[] = {{StoreFile::Budgets, "budgets"},
                                                          {StoreFile::Trend, "trend"},
                                                          {StoreFile::CostCentres, "costcentres"},
                                                          {StoreFile::Telephones, "tel"}};
        for (const auto& [file, schema] : stores)
            createDatabaseFromSchema(appFile(file), QString::fromLatin1(schema));
    }
    QString appFile(const QString& name) const { return dir.path(QStringLiteral("app/") + name); }
    QString systemFile(const QString& name) const { return dir.path(QStringLiteral("system/") + name); }
    std::unique_ptr<cPathControl> paths() const {
        auto p = std::make_unique<cPathControl>(dir.path(QStringLiteral("prog")),
                                                dir.path(QStringLiteral("machine")),
                                                dir.path(QStringLiteral("system")));
        p->AppFolder = dir.path(QStringLiteral("app"));
        p->DataSystemFolder = dir.path(QStringLiteral("system"));
        return p;
    }

    testing::TempDir dir;
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};
};

// The visible top-level windows of a class, e.g. "frmMenu".
inline QList<QWidget*> visibleWindows(const char* className) {
    QList<QWidget*> out;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->isVisible() && w->inherits(className))
            out << w;
    return out;
}

inline void closeAllWindows() {
    for (QWidget* w : QApplication::topLevelWidgets())
        w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
