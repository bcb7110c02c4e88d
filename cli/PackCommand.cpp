#include "cli/PackCommand.h"

#include "cli/CommandProject.h"

#include "app/AppContext.h"
#include "app/BrandFont.h"
#include "output/ReportPages.h"
#include "output/ReportWorkbook.h"
#include "render/ReportChartPainter.h"
#include "reports/BudgetReportChoices.h"
#include "reports/BudgetReports.h"
#include "reports/ReportCatalogue.h"
#include "reports/ReportNavigation.h"
#include "reports/ReportRequest.h"

#include <QApplication>
#include <cstdio>

namespace {

int fail(const QString& text) {
    std::fprintf(stderr, "vantrel-cli pack: %s\n", qPrintable(text));
    return 1;
}

// The month-end set: the whole bill, its four families, the service types and the top 10
// of level 1; with a budget its periodic and accumulative totals and, for a budget of a
// cost-centre level, the cost-centre reports.
QList<ReportParams> packReports(const std::optional<BudgetChoice>& budget) {
    QList<ReportParams> all{totalChargesParams(0, QString())};
    for (int view = ChargeView::Usage; view <= ChargeView::Adjustments; ++view)
        all << individualChargesParams(0, QString(), view);
    all << serviceParams(0, QString()) << top10Params(1, QString(), 5);
    if (budget) {
        all << monthlyDeviationParams(budget->budgetId, BudgetView::Total)
            << accumulativeDeviationParams(budget->budgetId, BudgetView::Total);
        if (budget->level != 0)
            all << budgetTop10Params(budget->budgetId)
                << deviationForCCParams(budget->budgetId, BudgetView::Total)
                << financialReportParams(budget->budgetId);
    }
    return all;
}

} // namespace

int packCommand(AppContext& ctx, const QStringList& args) {
    QString project;
    QString budgetText;
    QString out;
    for (int i = 0; i + 1 < args.size(); i += 2) {
        if (args[i] == QLatin1String("--project"))
            project = args[i + 1];
        else if (args[i] == QLatin1String("--budget"))
            budgetText = args[i + 1];
        else if (args[i] == QLatin1String("--out"))
            out = args[i + 1];
        else
            return fail(QStringLiteral("unknown option '%1'").arg(args[i]));
    }
    const bool pdf = out.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive);
    const bool xlsx = out.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive);
    if (args.size() % 2 != 0 || project.isEmpty() || (!pdf && !xlsx)) {
        std::fprintf(stderr,
                     "usage: vantrel-cli pack --project P [--budget ID|TITLE] --out FILE.pdf|FILE.xlsx\n");
        return 2;
    }
    if (pdf && !qobject_cast<QApplication*>(QCoreApplication::instance()))
        return fail(QStringLiteral("a PDF needs the graphical libraries, which did not start"));
    if (const QString problem = selectCommandProject(ctx, project); !problem.isEmpty())
        return fail(problem);
    std::optional<BudgetChoice> budget;
    if (!budgetText.isEmpty()) {
        const QList<BudgetChoice> choices = budgetReportChoices(ctx.budgetDb, ctx.billAccount);
        const std::optional<int> id = findBudgetChoice(choices, budgetText);
        for (const BudgetChoice& c : choices)
            if (id && c.budgetId == *id)
                budget = c;
        if (!budget)
            return fail(QStringLiteral("no budget '%1' of account %2 has budget reports")
                            .arg(budgetText, ctx.billAccount));
    }

    std::vector<Report> reports;
    ReportContext rc(ctx);
    for (const ReportParams& params : packReports(budget)) {
        ReportResult result = RunReport(rc, params);
        const ReportCatalogueEntry* entry = catalogueEntry(reportNumberOf(params));
        if (!result.shown()) {
            std::fprintf(stderr, "vantrel-cli pack: report %d left out: %s\n", reportNumberOf(params),
                         qPrintable(reportStatusText(result.status, entry && entry->budgetReport)));
            continue;
        }
        std::printf("%s\n", qPrintable(result.report->caption));
        reports.push_back(std::move(*result.report));
    }
    if (reports.empty())
        return fail(QStringLiteral("no report of the project has anything to show"));
    const QString folder = ctx.paths ? ctx.paths->AppFolder : QString();
    if (pdf && ctx.paths)
        LoadBrandFont(folder);
    QString error;
    const bool written = pdf ? writeReportsPdf(reports, out, reportPageDecor(folder, ctx.colours), &error)
                             : writeReportsWorkbook(reports, out, workbookLook(ctx), &error);
    if (!written)
        return fail(QStringLiteral("cannot write %1: %2").arg(out, error));
    std::printf("%d reports written to %s\n", int(reports.size()), qPrintable(out));
    return 0;
}
