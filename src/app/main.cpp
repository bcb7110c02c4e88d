// The desktop program. Until the main window exists it prepares the installation
// (stores opened, restored and upgraded) and ends.
#include "app/AppContext.h"
#include "app/Startup.h"
#include "ui/QtDialogService.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QtDialogService dialogs;
    AppContext ctx(dialogs);
    if (!startInstallation(ctx, installedPaths(QCoreApplication::applicationDirPath())))
        return 1;
    return 0;
}
