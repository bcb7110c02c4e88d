#pragma once
// A demo installation for the selector and the trend form: the stores and a few monthly
// bills written by the demo generator, opened as the program opens them.
#include "TempDir.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/Startup.h"
#include "data/Database.h"
#include "tools/DemoGenerator.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

class DemoSite {
public:
    DemoSite() {
        demo = writeDemoInstallation({dir.path(QStringLiteral("demo")), 1, 2, 3, 40});
        auto paths = std::make_unique<cPathControl>(dir.path(QStringLiteral("prog")),
                                                    dir.path(QStringLiteral("machine")),
                                                    QStringLiteral(VANTREL_SYSTEM_DIR));
        paths->AppFolder = demo.appFolder;
        paths->ProjectFolder = demo.projectFolder;
        paths->DataSystemFolder = QStringLiteral(VANTREL_SYSTEM_DIR);
        if (!startInstallation(ctx, std::move(paths)))
            qFatal("the demo installation does not start");
    }
    // The monthly bills of an account (0 or 1; 1 is the "AC01" account), oldest first.
    QStringList bills(int account) const {
        QStringList out;
        for (const QString& path : demo.bills)
            if (QFileInfo(path).fileName().startsWith(demo.accounts.value(account) + QLatin1Char('_')))
                out << path;
        out.sort();
        return out;
    }
    QString account(int account) const { return demo.accounts.value(account); }
    // A copy of the first account's first bill in the project folder, with an SQL script run on it.
    QString copyOf(const QString& name, const QString& script = QString()) const {
        const QString copy = QDir(demo.projectFolder).filePath(name);
        QFile::remove(copy);
        if (!QFile::copy(bills(0).first(), copy))
            qFatal("cannot copy a bill");
        if (!script.isEmpty())
            Database::open(copy).execScript(script);
        return copy;
    }
    // A bill the program takes from another source: no trend work.
    QString otherSource() const {
        return copyOf(QStringLiteral("other.mdb"), QStringLiteral("UPDATE Tbl50 SET Imports = 'A'"));
    }
    qint64 trendRows(const QString& account) {
        return queryInt(ctx.trendDb,
                        QStringLiteral("SELECT count(*) FROM tblSummaryTrend WHERE BillAccount = ?"),
                        account);
    }

    testing::TempDir dir;
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};
    DemoSummary demo;
};
