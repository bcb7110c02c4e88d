#include "ShellFixture.h"

#include "data/Schema.h"
#include "data/Stores.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QWidget>

void FakeClock::yield() {
    ++yields_;
    elapsedMs_ += stepMs_;
    QCoreApplication::processEvents();
    if (onYield)
        onYield(yields_);
}

Installation::Installation() {
    for (const char* folder : {"prog", "app", "machine", "system"})
        QDir().mkpath(dir.path(QString::fromLatin1(folder)));
    for (const QString& t : {StoreFile::BudgetsTemplate, StoreFile::TrendTemplate})
        QFile::copy(QStringLiteral(VANTREL_SYSTEM_DIR "/") + t, systemFile(t));
}

void Installation::writeStore(const QString& file, const QString& schema) const {
    createDatabaseFromSchema(appFile(file), schema);
}

void Installation::writeAllStores() const {
    writeStore(StoreFile::Budgets, QStringLiteral("budgets"));
    writeStore(StoreFile::Trend, QStringLiteral("trend"));
    writeStore(StoreFile::CostCentres, QStringLiteral("costcentres"));
    writeStore(StoreFile::Telephones, QStringLiteral("tel"));
}

std::unique_ptr<cPathControl> Installation::paths() const {
    auto p =
        std::make_unique<cPathControl>(dir.path(QStringLiteral("prog")), dir.path(QStringLiteral("machine")),
                                       dir.path(QStringLiteral("system")));
    p->AppFolder = dir.path(QStringLiteral("app"));
    p->DataSystemFolder = dir.path(QStringLiteral("system"));
    return p;
}

int visibleWindows(const char* className) {
    int n = 0;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->isVisible() && w->inherits(className))
            ++n;
    return n;
}
