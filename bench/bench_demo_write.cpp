// Times the writing of one demo bill project: bench_demo_write [LINES] [FILE]
// (default one million lines into a temporary file).
#include "data/Database.h"
#include "tools/DemoGenerator.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>
#include <exception>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    bool ok = true;
    const qint64 lines = args.size() > 1 ? args[1].toLongLong(&ok) : 1'000'000;
    if (!ok || lines < 1) {
        std::fprintf(stderr, "usage: bench_demo_write [LINES] [FILE]\n");
        return 2;
    }
    QTemporaryDir scratch;
    const QString path = args.size() > 2 ? args[2] : scratch.filePath(QStringLiteral("bench.mdb"));
    try {
        QElapsedTimer timer;
        timer.start();
        const DemoFile file = writeDemoProject(path, QStringLiteral("VL100200"), Date(2025, 6, 5), lines, 7);
        const double seconds = double(timer.nsecsElapsed()) / 1e9;
        qint64 written = 0;
        for (const auto& [table, rows] : file.tables) {
            if (table == QLatin1String("Tbl307"))
                written = rows;
        }
        std::printf("%lld charge lines written in %.2f s (%.0f lines/s), file %.1f MB\n",
                    static_cast<long long>(written), seconds, double(written) / seconds,
                    double(QFile(path).size()) / 1e6);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "bench_demo_write: %s\n", e.what());
        return 1;
    }
    return 0;
}
