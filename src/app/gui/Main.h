#pragma once
// How the desktop program starts and ends.
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

class StartupClock;
class cPathControl;
class frmMenu;
struct AppContext;

struct PrinterList {
    QStringList names;
    QString defaultName;
};

// What the start-up takes from its surroundings; tests put their own in.
struct StartupEnvironment {
    StartupClock* clock = nullptr;         // the system clock when null
    std::function<PrinterList()> printers; // the system's printers when empty
    bool applyLook = true;                 // style, palette and font for the application
};

// The printers the system knows, with its default.
PrinterList systemPrinters();

// Finds the printers and writes what the program can offer into the context.
void DetectOutputFacilities(AppContext& ctx, const PrinterList& printers);

// The start-up: the brand font and look, the splash, the stores (restored from their
// templates when they will not open, then brought up to date), the printers, at least
// three seconds of splash unless it was clicked away, then the menu. Returns the menu,
// shown; null when a store could not be opened: the message was shown, everything is
// closed and the program must end.
std::unique_ptr<frmMenu> Main(AppContext& ctx, std::unique_ptr<cPathControl> paths,
                              const StartupEnvironment& env = {});

// Closes every window, the modal forms first, then the project, trend, cost-centre and telephone
// stores, and ends the event loop. The budget store stays open until the process ends.
void ShutDown(AppContext& ctx);
