#pragma once
// A demo installation for the selector and the trend form: the stores and a few
// monthly bills written by the demo generator, opened as the program opens them, with
// a dialog service that also remembers how file dialogs were asked for.
#include "TempDir.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "tools/DemoGenerator.h"

#include <QStringList>
#include <vector>

class FileDialogRecorder : public RecordingDialogService {
public:
    struct Asked {
        QString title;
        QString filter;
        QString folder;
    };
    QString openFile(const QString& title, const QString& filter, const QString& folder) override;
    std::vector<Asked> asked;
};

class DemoSite {
public:
    explicit DemoSite(int bills = 3, int linesPerBill = 40);

    // The monthly bills of an account (0 or 1; 1 is the "AC01" account), oldest first.
    QStringList bills(int account) const;
    QString account(int account) const { return demo.accounts.value(account); }
    // The two odd projects of the first account: a bill of the refused region, and one
    // imported from another source.
    QString refusedRegionBill() const;
    QString otherSourceBill() const;
    // A copy of a bill under another name in the project folder, with its import letters
    // and call rows changed as asked (callRows < 0 keeps them).
    QString copyOf(const QString& bill, const QString& name, const QString& imports = QString(),
                   int callRows = -1) const;

    QStringList recentProjects() const;
    qint64 trendRows(const QString& account);

    testing::TempDir dir;
    FileDialogRecorder dialogs;
    AppContext ctx{dialogs};
    DemoSummary demo;
};

// An amount of ten-thousandths of a pound written as the trend list writes its sums:
// pound sign, thousands grouped, three decimals rounded half away from zero.
QString listAmount(qint64 tenThousandths);

// One value of the first row of a query on a file.
qint64 queryFile(const QString& file, const QString& sql);
