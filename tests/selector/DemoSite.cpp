#include "DemoSite.h"

#include "app/Startup.h"
#include "data/Database.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

DemoSite::DemoSite() {
    DemoOptions options;
    options.folder = dir.path(QStringLiteral("demo"));
    options.accounts = 2;
    options.bills = 3;
    options.linesPerBill = 40;
    demo = writeDemoInstallation(options);
    auto paths =
        std::make_unique<cPathControl>(dir.path(QStringLiteral("prog")), dir.path(QStringLiteral("machine")),
                                       QStringLiteral(VANTREL_SYSTEM_DIR));
    paths->AppFolder = demo.appFolder;
    paths->ProjectFolder = demo.projectFolder;
    paths->DataSystemFolder = QStringLiteral(VANTREL_SYSTEM_DIR);
    if (!startInstallation(ctx, std::move(paths)))
        qFatal("the demo installation does not start");
}

QStringList DemoSite::bills(int account) const {
    QStringList out;
    const QString prefix = demo.accounts.value(account) + QLatin1Char('_');
    for (const DemoFile& file : demo.files) {
        const QString name = QFileInfo(file.path).fileName();
        // Plain bills are "<account>_<yyyymmdd>.mdb"; the odd ones carry a tag.
        if (name.startsWith(prefix) && name.size() == prefix.size() + 12)
            out << file.path;
    }
    out.sort();
    return out;
}

QString DemoSite::copyOf(const QString& path, const QString& script) const {
    const QString copy = QDir(demo.projectFolder).filePath(path);
    QFile::remove(copy);
    if (!QDir().mkpath(QFileInfo(copy).path()) || !QFile::copy(bills(0).first(), copy))
        qFatal("cannot copy a bill");
    if (!script.isEmpty())
        Database::open(copy).execScript(script);
    return copy;
}

qint64 DemoSite::trendRows(const QString& account) {
    return queryInt(ctx.trendDb, QStringLiteral("SELECT count(*) FROM tblSummaryTrend WHERE BillAccount = ?"),
                    account);
}
