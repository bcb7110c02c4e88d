#pragma once
// Turning a bill into a trend entry: the charge lines of the project boiled down to one
// row per service, tax rate, usage and rental period, written to the trend store under
// the bill's date and account. Gathering a bill again replaces its entry.
#include "app/Date.h"
#include "app/Progress.h"

#include <QString>

struct AppContext;
class Database;

struct GatherResult {
    enum class Status { Gathered, Cancelled, Failed };
    Status status = Status::Failed;
    QString account;
    Date billDate;
    qint64 linesRead = 0;
    qint64 rowsWritten = 0;
    QString error;
    bool ok() const { return status == Status::Gathered; }
};

// Gathers the bill of an open project into ctx.trendDb in one transaction: on failure
// or cancel the trend store is as it was (an earlier entry of the bill survives).
GatherResult GatherTrend(AppContext& ctx, Database& project, const ProgressFn& progress = {});
