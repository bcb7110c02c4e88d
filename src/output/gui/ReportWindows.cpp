#include "output/gui/ReportWindows.h"

#include "output/frmReport.h"
#include "output/frmReport2.h"
#include "output/frmReport3.h"

#include <map>

namespace {

std::map<ReportForm, ReportWindowFactory>& factories() {
    static std::map<ReportForm, ReportWindowFactory> registered{
        {ReportForm::ChartAndGrid,
         [](AppContext& ctx, ReportSession& session, Report report, QWidget* parent) {
             return std::unique_ptr<ReportWindow>(new frmReport(ctx, session, std::move(report), parent));
         }},
        {ReportForm::ReportArea,
         [](AppContext& ctx, ReportSession& session, Report report, QWidget* parent) {
             return std::unique_ptr<ReportWindow>(new frmReport2(ctx, session, std::move(report), parent));
         }},
        {ReportForm::Grid,
         [](AppContext& ctx, ReportSession& session, Report report, QWidget* parent) {
             return std::unique_ptr<ReportWindow>(new frmReport3(ctx, session, std::move(report), parent));
         }},
    };
    return registered;
}

} // namespace

void setReportWindowFactory(ReportForm form, ReportWindowFactory factory) {
    if (factory)
        factories()[form] = std::move(factory);
    else
        factories().erase(form);
}

std::unique_ptr<ReportWindow> makeReportWindow(AppContext& ctx, ReportSession& session, Report report,
                                               QWidget* parent) {
    const auto found = factories().find(report.form);
    if (found == factories().end())
        return nullptr;
    return found->second(ctx, session, std::move(report), parent);
}

bool ShowReportWindows(AppContext& ctx, ReportSession& session, Report report, QWidget* parent) {
    std::optional<Report> next = std::move(report);
    while (next) {
        std::unique_ptr<ReportWindow> window = makeReportWindow(ctx, session, std::move(*next), parent);
        if (!window)
            return false;
        window->exec();
        next = window->takeNextReport();
    }
    return true;
}
