// Build step: writes a store template (budgets.bak, trend.bak) from its schema.
#include "data/Database.h"
#include "data/Schema.h"

#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: make_template SCHEMA OUTPUT\n");
        return 2;
    }
    try {
        createDatabaseFromSchema(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[1]));
    } catch (const DbError& e) {
        std::fprintf(stderr, "make_template: %s\n", e.what());
        return 1;
    }
    return 0;
}
