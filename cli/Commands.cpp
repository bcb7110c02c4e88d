#include "cli/Commands.h"

#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/Startup.h"
#include "app/cPathControl.h"
#include "cli/BudgetCommands.h"
#include "cli/ConvertCommand.h"
#include "cli/PackCommand.h"
#include "cli/ReportCommand.h"
#include "cli/TrendCommands.h"
#include "tools/DemoCommand.h"

#include <QCoreApplication>
#include <cstdio>
#include <functional>

namespace {

const char* const Usage =
    "usage: vantrel-cli [--app-folder DIR] COMMAND [ARGS]\n"
    "\n"
    "Commands:\n"
    "  demo DIR [--seed S] [--accounts N] [--bills N] [--lines-per-bill N]\n"
    "      write a complete demo installation: DIR/AppFolder (the four stores, every\n"
    "      regular bill gathered, budgets of every account) and DIR/Projects (one\n"
    "      project file per bill)\n"
    "  gather PROJECT...\n"
    "      make one trend entry per project file (a bill gathered again replaces its entry)\n"
    "  trends --project PROJECT\n"
    "      list the trend entries of the project's account with their totals\n"
    "  convert ACCESS_FILE OUT.sqlite\n"
    "      write every table of an Access file, as the program reads it, to a SQLite file\n"
    "  report NUMBER --project PROJECT [--level L --value V --view N --service S --chart-type T\n"
    "         --budget ID|TITLE --sort COL[:desc]] --format csv|png|xlsx|pdf --out FILE\n"
    "      build any of the ten reports as the program would and write it\n"
    "  pack --project PROJECT [--budget ID|TITLE] --out FILE.pdf|FILE.xlsx\n"
    "      every trend report of the project and, with a budget, every budget report, in one\n"
    "      PDF (a contents page, numbered pages) or one workbook (a sheet per report)\n"
    "  stores\n"
    "      open the installation's stores as the program does at start and say what was found\n"
    "\n"
    "Options:\n"
    "  --app-folder DIR   use the stores in DIR instead of the AppFolder of Paths.txt\n"
    "  --help             show this text\n";

int usageError(const QString& text) {
    std::fprintf(stderr, "vantrel-cli: %s\n\n%s", qPrintable(text), Usage);
    return 2;
}

// Opens the installation as the desktop program does at start.
bool openInstallation(AppContext& ctx, const QString& appFolder) {
    return startInstallation(ctx, installedPaths(QCoreApplication::applicationDirPath(), appFolder));
}

// Runs a command that works on the installation's stores.
int withInstallation(const QString& appFolder, const std::function<int(AppContext&)>& command) {
    RecordingDialogService dialogs;
    dialogs.echoToStderr = true;
    AppContext ctx(dialogs);
    if (!openInstallation(ctx, appFolder))
        return 1;
    return command(ctx);
}

int storesCommand(AppContext& ctx) {
    std::printf("Vantrel %s\nAppFolder: %s\nDataSystemFolder: %s\nstores open\n", qPrintable(ctx.version),
                qPrintable(ctx.paths->AppFolder), qPrintable(ctx.paths->DataSystemFolder));
    return 0;
}

} // namespace

int runCli(const QStringList& arguments) {
    QStringList args = arguments.mid(1);
    QString appFolder;
    for (int i = 0; i < args.size();) {
        if (args[i] == QLatin1String("--help") || args[i] == QLatin1String("-h")) {
            std::printf("%s%s", Usage, BudgetCommandsUsage);
            return 0;
        }
        if (args[i] == QLatin1String("--app-folder")) {
            if (i + 1 >= args.size())
                return usageError(QStringLiteral("--app-folder needs a folder"));
            appFolder = args[i + 1];
            args.remove(i, 2);
            continue;
        }
        ++i;
    }
    if (args.isEmpty())
        return usageError(QStringLiteral("no command given"));
    const QString command = args.takeFirst();
    if (command == QLatin1String("demo"))
        return demoCommand(args);
    if (command == QLatin1String("convert"))
        return convertCommand(args);
    if (command == QLatin1String("gather"))
        return withInstallation(appFolder, [&](AppContext& ctx) { return gatherCommand(ctx, args); });
    if (command == QLatin1String("trends"))
        return withInstallation(appFolder, [&](AppContext& ctx) { return trendsCommand(ctx, args); });
    if (command == QLatin1String("budgets"))
        return withInstallation(appFolder, [&](AppContext& ctx) { return budgetsCommand(ctx, args); });
    if (command == QLatin1String("budget-master"))
        return withInstallation(appFolder, [&](AppContext& ctx) { return budgetMasterCommand(ctx, args); });
    if (command == QLatin1String("budget-cc"))
        return withInstallation(appFolder,
                                [&](AppContext& ctx) { return budgetCostCentreCommand(ctx, args); });
    if (command == QLatin1String("budget-delete"))
        return withInstallation(appFolder, [&](AppContext& ctx) { return budgetDeleteCommand(ctx, args); });
    if (command == QLatin1String("budget-rename"))
        return withInstallation(appFolder, [&](AppContext& ctx) { return budgetRenameCommand(ctx, args); });
    if (command == QLatin1String("report"))
        return withInstallation(appFolder, [&](AppContext& ctx) { return reportCommand(ctx, args); });
    if (command == QLatin1String("pack"))
        return withInstallation(appFolder, [&](AppContext& ctx) { return packCommand(ctx, args); });
    if (command == QLatin1String("stores"))
        return withInstallation(appFolder, storesCommand);
    return usageError(QStringLiteral("unknown command '%1'").arg(command));
}
