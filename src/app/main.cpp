// The desktop program: the start-up shows the splash, opens the stores and shows
// the menu; the program runs until ShutDown ends the event loop.
#include "app/gui/Main.h"
#include "app/AppContext.h"
#include "app/Startup.h"
#include "app/frmMenu.h"
#include "ui/QtDialogService.h"
#include "ui/WindowIcon.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Vantrel"));
    QApplication::setWindowIcon(resourceIcon(QStringLiteral("AAB")));
    QtDialogService dialogs;
    AppContext ctx(dialogs);
    std::unique_ptr<frmMenu> menu = Main(ctx, installedPaths(QCoreApplication::applicationDirPath()));
    if (!menu)
        return 1;
    return QApplication::exec();
}
