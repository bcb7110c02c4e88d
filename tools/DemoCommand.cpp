#include "tools/DemoCommand.h"

#include <cstdio>

int demoCommand(const QStringList&) {
    std::fprintf(stderr, "vantrel-cli: demo is not built yet\n");
    return 1;
}
