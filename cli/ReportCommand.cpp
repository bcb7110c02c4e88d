#include "cli/ReportCommand.h"

#include "app/AppContext.h"
#include "app/BrandFont.h"
#include "cli/CommandProject.h"
#include "output/GridSort.h"
#include "output/ReportWorkbook.h"
#include "render/ReportChartPainter.h"
#include "render/ReportImage.h"
#include "reports/BudgetReportChoices.h"
#include "reports/ReportCatalogue.h"
#include "reports/ReportCsv.h"
#include "reports/ReportNavigation.h"
#include "reports/ReportRequest.h"

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
            "--view N --service S --chart-type T --budget ID|TITLE --sort COL[:desc]] --format "
            "csv|png|xlsx|pdf --out FILE\n",
            qPrintable(error));
        return 2;
    }
    const bool png = request->format == QLatin1String("png");
    const bool xlsx = request->format == QLatin1String("xlsx");
    const bool pdf = request->format == QLatin1String("pdf");
    if (request->format != QLatin1String("csv") && !png && !xlsx && !pdf)
        return fail(QStringLiteral("the %1 format is not available yet; use --format csv, png, xlsx or pdf")
                        .arg(request->format));
    // Charts are drawn with the chart library's widgets.
    if ((png || pdf) && !qobject_cast<QApplication*>(QCoreApplication::instance()))
        return fail(QStringLiteral("%1 output needs the graphical libraries, which did not start")
                        .arg(request->format));
    const ReportCatalogueEntry* entry = catalogueEntry(request->number);
    if (request->sortColumn && !entry->sortable)
        return fail(QStringLiteral("report %1 has no heading sort").arg(request->number));
    if (const QString problem = selectCommandProject(ctx, request->project); !problem.isEmpty())
        return fail(problem);

    int budgetId = -1;
    if (entry->budgetReport && !request->budget.isEmpty()) {
        const std::optional<int> found =
            findBudgetChoice(budgetReportChoices(ctx.budgetDb, ctx.billAccount), request->budget);
        if (!found)
            return fail(
                QStringLiteral("no budget '%1' of account %2 has budget reports (see vantrel-cli budgets)")
                    .arg(request->budget, ctx.billAccount));
        budgetId = *found;
    }
    const ReportParams params = reportParamsOf(*request, &error, budgetId);
    if (params.isEmpty())
        return fail(error);

    ReportContext rc(ctx);
    ReportResult result = RunReport(rc, params);
    if (!result.shown())
        return fail(reportStatusText(result.status, entry->budgetReport));
    if (request->sortColumn) {
        ReportGrid& grid = result.report->grid;
        if (*request->sortColumn >= grid.colCount())
            return fail(QStringLiteral("--sort: the report has columns 0 to %1").arg(grid.colCount() - 1));
        GridSortState state;
        SortByHeading(grid, state, *request->sortColumn, ctx.colours);
        if (request->sortDescending)
            SortByHeading(grid, state, *request->sortColumn, ctx.colours);
    }
    if ((png || pdf) && ctx.paths)
        LoadBrandFont(ctx.paths->AppFolder); // images and pages speak the program's type, as its windows do
    const QString folder = ctx.paths ? ctx.paths->AppFolder : QString();
    const bool written =
        png    ? writeReportPng(*result.report, ctx.colours, request->out, &error)
        : pdf  ? writeReportPdf(*result.report, request->out, reportPageDecor(folder, ctx.colours), &error)
        : xlsx ? writeReportWorkbook(*result.report, request->out, workbookLook(ctx), &error)
               : writeReportCsv(*result.report, request->out, &error);
    if (!written)
        return fail(QStringLiteral("cannot write %1: %2").arg(request->out, error));
    std::printf("%s\nwritten to %s\n", qPrintable(result.report->caption), qPrintable(request->out));
    return 0;
}
