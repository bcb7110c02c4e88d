#include "cli/ConvertCommand.h"

#include "data/AccessReader.h"

#include <cstdio>

namespace {

const char* const ConvertUsage = "usage: vantrel-cli convert ACCESS_FILE OUT.sqlite\n";

} // namespace

int convertCommand(const QStringList& args) {
    if (args.size() != 2) {
        std::fprintf(stderr, "vantrel-cli convert: expected an Access file and an output file\n%s",
                     ConvertUsage);
        return 2;
    }
    QString error;
    QList<AccessTableCount> tables;
    if (!convertAccessFile(args[0], args[1], AccessProgress(), &error, &tables)) {
        std::fprintf(stderr, "vantrel-cli convert: %s\n", qPrintable(error));
        return 1;
    }
    for (const AccessTableCount& table : tables)
        std::printf("%s\t%lld\n", table.name.toUtf8().constData(), static_cast<long long>(table.rows));
    return 0;
}
