// vantrel-cli: batch work on an installation, beside the desktop program.
#include "cli/Commands.h"

#include <QApplication>
#include <QByteArray>

namespace {

// Report images and pages are drawn with the chart library's widgets; every other
// command runs on the core alone.
bool drawsImages(int argc, char** argv) {
    for (int i = 1; i + 1 < argc; ++i) {
        const QByteArray option(argv[i]);
        const QByteArray value = QByteArray(argv[i + 1]).toLower();
        if (option == "--format" && (value == "png" || value == "pdf"))
            return true;
        if (option == "--out" && value.endsWith(".pdf"))
            return true;
    }
    return false;
}

} // namespace

int main(int argc, char** argv) {
    if (!drawsImages(argc, argv)) {
        QCoreApplication app(argc, argv);
        return runCli(app.arguments());
    }
    // The tool shows no window, so unless a platform is chosen it draws off screen: the
    // images come out the same with or without a display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    return runCli(app.arguments());
}
