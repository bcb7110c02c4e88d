#include "ShellFixture.h"

#include "data/Schema.h"
#include "data/Stores.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QWidget>

void FakeClock::yield() {
    elapsedMs_ += 100;
    QCoreApplication::processEvents();
    if (onYield)
        onYield(++yields_);
}

Installation::Installation() {
    for (const char* folder : {"prog", "app", "machine", "system"})
        QDir().mkpath(dir.path(QString::fromLatin1(folder)));
    for (const QString& t : {StoreFile::BudgetsTemplate, StoreFile::TrendTemplate})
        QFile::copy(QStringLiteral(VANTREL_SYSTEM_DIR "/") + t, systemFile(t));
}

void Installation::writeAllStores() const {
    createDatabaseFromSchema(appFile(StoreFile::Budgets), QStringLiteral("budgets"));
    createDatabaseFromSchema(appFile(StoreFile::Trend), QStringLiteral("trend"));
    createDatabaseFromSchema(appFile(StoreFile::CostCentres), QStringLiteral("costcentres"));
    createDatabaseFromSchema(appFile(StoreFile::Telephones), QStringLiteral("tel"));
}

std::unique_ptr<cPathControl> Installation::paths() const {
    auto p =
        std::make_unique<cPathControl>(dir.path(QStringLiteral("prog")), dir.path(QStringLiteral("machine")),
                                       dir.path(QStringLiteral("system")));
    p->AppFolder = dir.path(QStringLiteral("app"));
    p->DataSystemFolder = dir.path(QStringLiteral("system"));
    return p;
}

QList<QWidget*> visibleWindows(const char* className) {
    QList<QWidget*> out;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->isVisible() && w->inherits(className))
            out << w;
    return out;
}
