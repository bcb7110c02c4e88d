#pragma once
// A demo installation for the selector and the trend form: the stores and a few monthly
// bills written by the demo generator, opened as the program opens them.
#include "TempDir.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "tools/DemoGenerator.h"

#include <QStringList>

class DemoSite {
public:
    DemoSite();
    // The monthly bills of an account (0 or 1; 1 is the "AC01" account), oldest first.
    QStringList bills(int account) const;
    QString account(int account) const { return demo.accounts.value(account); }
    // A copy of the first account's first bill at a path (relative to the project folder),
    // with an SQL script run on it.
    QString copyOf(const QString& path, const QString& script = QString()) const;
    // A bill the program takes from another source: no trend work.
    QString otherSource() const {
        return copyOf(QStringLiteral("other.mdb"), "UPDATE Tbl50 SET Imports = 'A'");
    }
    qint64 trendRows(const QString& account);

    testing::TempDir dir;
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};
    DemoSummary demo;
};
