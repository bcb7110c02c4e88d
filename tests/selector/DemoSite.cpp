#include "DemoSite.h"

#include "app/Startup.h"
#include "data/Database.h"
#include "data/ProjectHistory.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

QString FileDialogRecorder::openFile(const QString& title, const QString& filter, const QString& folder) {
    asked.push_back({title, filter, folder});
    return RecordingDialogService::openFile(title, filter, folder);
}

DemoSite::DemoSite(int bills, int linesPerBill) {
    DemoOptions options;
    options.folder = dir.path(QStringLiteral("demo"));
    options.accounts = 2;
    options.bills = bills;
    options.linesPerBill = linesPerBill;
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

QString DemoSite::refusedRegionBill() const {
    for (const DemoFile& file : demo.files)
        if (file.path.endsWith(QStringLiteral("_IRE.mdb")))
            return file.path;
    return QString();
}

QString DemoSite::otherSourceBill() const {
    for (const DemoFile& file : demo.files)
        if (file.path.endsWith(QStringLiteral("_ImportsA.mdb")))
            return file.path;
    return QString();
}

QString DemoSite::copyOf(const QString& bill, const QString& name, const QString& imports,
                         int callRows) const {
    const QString path = QDir(demo.projectFolder).filePath(name);
    QFile::remove(path);
    if (!QFile::copy(bill, path))
        qFatal("cannot copy a bill");
    Database db = Database::open(path);
    if (!imports.isNull())
        db.exec(QStringLiteral("UPDATE Tbl50 SET Imports = ?"), imports);
    if (callRows >= 0) {
        db.exec(QStringLiteral("DELETE FROM Tbl997"));
        for (int i = 0; i < callRows; ++i)
            db.exec(QStringLiteral("INSERT INTO Tbl997 (CallID) VALUES (?)"), i + 1);
    }
    return path;
}

QStringList DemoSite::recentProjects() const {
    return LoadHistory(ctx.paths->AppFolder);
}

qint64 DemoSite::trendRows(const QString& account) {
    return queryInt(ctx.trendDb, QStringLiteral("SELECT count(*) FROM tblSummaryTrend WHERE BillAccount = ?"),
                    account);
}

QString listAmount(qint64 tenThousandths) {
    const bool negative = tenThousandths < 0;
    const qint64 thousandths = ((negative ? -tenThousandths : tenThousandths) + 5) / 10;
    QString whole = QString::number(thousandths / 1000);
    for (int at = int(whole.size()) - 3; at > 0; at -= 3)
        whole.insert(at, QLatin1Char(','));
    const QString text = QStringLiteral("£%1.%2").arg(whole).arg(thousandths % 1000, 3, 10, QLatin1Char('0'));
    return negative && thousandths != 0 ? QLatin1Char('-') + text : text;
}

qint64 queryFile(const QString& file, const QString& sql) {
    Database db = Database::open(file, Database::Mode::ReadOnly);
    return queryInt(db, sql);
}
