#include "app/gui/Main.h"

#include "app/AppContext.h"
#include "app/OutputFacilities.h"
#include "app/Startup.h"
#include "app/StartupClock.h"
#include "app/frmMenu.h"
#include "app/frmSplash.h"
#include "app/gui/MenuForms.h"
#include "ui/Branding.h"
#include "ui/BusyCursor.h"

#include <QApplication>
#include <QDialog>
#include <QList>
#include <QPointer>
#include <QPrinterInfo>

namespace {

// Times enough for the splash to be painted before the stores are opened.
constexpr int SplashPaintYields = 5;

} // namespace

PrinterList systemPrinters() {
    return {QPrinterInfo::availablePrinterNames(), QPrinterInfo::defaultPrinterName()};
}

void DetectOutputFacilities(AppContext& ctx, const PrinterList& printers) {
    applyOutputFacilities(ctx, DetectOutputFacilities(printers.names, printers.defaultName));
}

std::unique_ptr<frmMenu> Main(AppContext& ctx, std::unique_ptr<cPathControl> paths,
                              const StartupEnvironment& env) {
    SystemStartupClock systemClock;
    StartupClock& clock = env.clock ? *env.clock : systemClock;

    ctx.version = programVersion();
    BusyCursor busy;
    if (paths)
        LoadBrandFont(paths->AppFolder);
    if (env.applyLook)
        ApplyApplicationLook();
    const QDateTime startTime = clock.now();

    QPointer<frmSplash> splash = new frmSplash(ctx.version);
    splash->setAttribute(Qt::WA_DeleteOnClose);
    splash->show();
    ctx.projectPath.clear();
    for (int i = 0; i < SplashPaintYields; ++i)
        clock.yield();

    if (!startInstallation(ctx, std::move(paths))) {
        ShutDown(ctx);
        return nullptr;
    }

    DetectOutputFacilities(ctx, env.printers ? env.printers() : systemPrinters());

    while (!splashTimeServed(startTime, clock.now()) && splash && splash->isUp())
        clock.yield();
    if (splash)
        splash->unload();

    auto menu = std::make_unique<frmMenu>(ctx);
    connectMenuForms(*menu, ctx);
    menu->show();
    busy.release();
    return menu;
}

void ShutDown(AppContext& ctx) {
    // Closing the menu comes back here; one pass is enough.
    static bool running = false;
    if (running)
        return;
    running = true;

    // Modal forms stand over each other, the newest on top: they go first.
    for (int guard = 0; guard < 100; ++guard) {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal)
            break;
        if (auto* dialog = qobject_cast<QDialog*>(modal))
            dialog->reject();
        else
            modal->close();
        if (QApplication::activeModalWidget() == modal)
            modal->hide();
    }
    QList<QPointer<QWidget>> windows;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible())
            windows << window;
    for (const QPointer<QWidget>& window : windows)
        if (window)
            window->close();

    ctx.projectDb.close();
    ctx.trendDb.close();
    ctx.costCentreDb.close();
    ctx.telDb.close();
    QCoreApplication::exit(0);
    running = false;
}
