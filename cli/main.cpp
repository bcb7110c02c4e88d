// vantrel-cli: batch work on an installation, beside the desktop program.
#include "cli/Commands.h"

#include <QCoreApplication>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    return runCli(app.arguments());
}
