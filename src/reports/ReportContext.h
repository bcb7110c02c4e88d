#pragma once
// What a report builder is given, and what it gives back.
#include "app/Progress.h"
#include "reports/Report.h"

#include <optional>

struct AppContext;

struct ReportContext {
    explicit ReportContext(AppContext& appContext, ProgressFn progressFn = {})
        : app(appContext)
        , progress(std::move(progressFn)) {}

    AppContext& app;
    // Long builders report here; a false answer stops them (status NotProduced).
    ProgressFn progress;
};

struct ReportResult {
    int status = ReportStatus::NotProduced;
    std::optional<Report> report; // present exactly when status is Shown

    bool shown() const { return status == ReportStatus::Shown && report.has_value(); }
};
