#include "cli/ReportCommand.h"

#include "app/AppContext.h"
#include "data/Project.h"
#include "data/ReferenceData.h"
#include "output/gui/ReportImage.h"
#include "reports/ReportCsv.h"
#include "reports/ReportNavigation.h"
#include "reports/ReportRequest.h"
#include "ui/Branding.h"

#include <QApplication>
#include <cstdio>

namespace {

int fail(const QString& text) {
    std::fprintf(stderr, "vantrel-cli report: %s\n", qPrintable(text));
    return 1;
}

} // namespace

int reportCommand(AppContext& ctx, const QStringList& args) {
    QString error;
    const std::optional<ReportRequest> request = parseReportRequest(args, &error);
    if (!request) {
        std::fprintf(
            stderr,
            "vantrel-cli report: %s\nusage: vantrel-cli report NUMBER --project PROJECT [--level L --value V "
            "--view N --service S --chart-type T --budget ID] --format csv|png --out FILE\n",
            qPrintable(error));
        return 2;
    }
    const bool png = request->format == QLatin1String("png");
    if (request->format != QLatin1String("csv") && !png)
        return fail(QStringLiteral("the %1 format is not available yet; use --format csv or --format png")
                        .arg(request->format));
    // Charts are drawn with the desktop program's widgets.
    if (png && !qobject_cast<QApplication*>(QCoreApplication::instance()))
        return fail(QStringLiteral("png output needs the graphical libraries, which did not start"));
    const ReportParams params = reportParamsOf(*request, &error);
    if (params.isEmpty())
        return fail(error);

    if (!OpenProjectDatabase(ctx, &ctx.projectDb, request->project, {}, &error))
        return fail(QStringLiteral("cannot open %1: %2").arg(request->project, error));
    ctx.projectPath = request->project;
    if (!LoadProjectDetails(ctx))
        return fail(QStringLiteral("The selected project file is not valid for use with this application"));

    ReportContext rc(ctx);
    const ReportResult result = RunReport(rc, params);
    if (!result.shown())
        return fail(reportStatusText(result.status));
    if (png && ctx.paths)
        LoadBrandFont(ctx.paths->AppFolder); // the images speak the program's type, as its windows do
    const bool written = png ? writeReportPng(*result.report, ctx.colours, request->out, &error)
                             : writeReportCsv(*result.report, request->out, &error);
    if (!written)
        return fail(QStringLiteral("cannot write %1: %2").arg(request->out, error));
    std::printf("%s\nwritten to %s\n", qPrintable(result.report->caption), qPrintable(request->out));
    return 0;
}
