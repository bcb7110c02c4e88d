#pragma once
// The start-up work that the desktop program and the command-line tool share.
#include <QString>
#include <memory>

struct AppContext;
class cPathControl;

// "major.minor(00).revision(0000)", e.g. 6.03.0000.
QString buildVersion(int major, int minor, int revision);
QString programVersion();

// The critical message when a store cannot be opened.
QString storesMissingMessage();

// The folders of the installation the program runs in: the paths file beside the
// program; appFolderOverride, when given, replaces its AppFolder.
std::unique_ptr<cPathControl> installedPaths(const QString& programFolder,
                                             const QString& appFolderOverride = QString());

// Takes the folders, opens the four stores with the template restore, upgrades them
// and zeroes the Null money columns of the trend table. When a store cannot be
// opened the critical message is shown through the context's dialog service and the
// result is false: the program must end.
bool startInstallation(AppContext& ctx, std::unique_ptr<cPathControl> paths);
