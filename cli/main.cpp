// vantrel-cli: batch work on an installation, beside the desktop program.
#include "cli/Commands.h"

#include <QApplication>

int main(int argc, char** argv) {
    // Report images are drawn with the desktop program's chart widgets, which need a
    // graphical platform. The tool shows no window, so unless one is chosen it draws off
    // screen: every command then runs the same with or without a display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    return runCli(app.arguments());
}
