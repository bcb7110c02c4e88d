#pragma once
// The open-file dialog of the program: projects get their own title and filter.
#include <QString>

class DialogService;

struct BrowseSetup {
    QString title;
    QString filter; // "label|pattern|label|pattern"
};

// "mdb" in any case asks for a project; any other extension for any file.
BrowseSetup browseSetupFor(const QString& extension);

// Asks for a file to open; "" when the user cancels. initialFile gives the folder (or
// file) the dialog starts in.
QString BrowseForFile(DialogService& dialogs, const QString& extension,
                      const QString& initialFile = QString());
