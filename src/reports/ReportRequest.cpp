#include "reports/ReportRequest.h"

#include "reports/BudgetReports.h"

namespace {

bool readWhole(const QString& text, int* out) {
    bool ok = false;
    const int v = text.toInt(&ok);
    if (ok)
        *out = v;
    return ok;
}

} // namespace

std::optional<ReportRequest> parseReportRequest(const QStringList& args, QString* error) {
    ReportRequest request;
    bool haveNumber = false;
    for (int i = 0; i < args.size(); ++i) {
        const QString& arg = args[i];
        if (!arg.startsWith(QLatin1String("--"))) {
            if (haveNumber || !readWhole(arg, &request.number)) {
                *error = QStringLiteral("unexpected argument '%1'").arg(arg);
                return std::nullopt;
            }
            haveNumber = true;
            continue;
        }
        if (i + 1 >= args.size()) {
            *error = QStringLiteral("%1 needs a value").arg(arg);
            return std::nullopt;
        }
        const QString& value = args[++i];
        bool ok = true;
        if (arg == QLatin1String("--project"))
            request.project = value;
        else if (arg == QLatin1String("--level")) {
            int level = 0;
            ok = readWhole(value, &level);
            request.level = level;
        } else if (arg == QLatin1String("--value"))
            request.value = value;
        else if (arg == QLatin1String("--view")) {
            int view = 0;
            ok = readWhole(value, &view);
            request.view = view;
        } else if (arg == QLatin1String("--service"))
            request.service = value;
        else if (arg == QLatin1String("--chart-type"))
            ok = readWhole(value, &request.chartType);
        else if (arg == QLatin1String("--budget"))
            request.budget = value;
        else if (arg == QLatin1String("--sort")) {
            const QStringList parts = value.split(QLatin1Char(':'));
            int column = 0;
            ok = readWhole(parts.first(), &column) && column >= 0 &&
                 (parts.size() == 1 ||
                  (parts.size() == 2 && parts[1].compare(QLatin1String("desc"), Qt::CaseInsensitive) == 0));
            request.sortColumn = column;
            request.sortDescending = parts.size() == 2;
        } else if (arg == QLatin1String("--format"))
            request.format = value.toLower();
        else if (arg == QLatin1String("--out"))
            request.out = value;
        else {
            *error = QStringLiteral("unknown option '%1'").arg(arg);
            return std::nullopt;
        }
        if (!ok) {
            *error = arg == QLatin1String("--sort")
                         ? QStringLiteral("--sort needs COLUMN or COLUMN:desc, not '%1'").arg(value)
                         : QStringLiteral("%1 needs a whole number, not '%2'").arg(arg, value);
            return std::nullopt;
        }
    }
    if (!haveNumber || request.number < ReportNumber::First || request.number > ReportNumber::Last) {
        *error = QStringLiteral("a report number from 1 to 10 is needed");
        return std::nullopt;
    }
    if (request.project.isEmpty()) {
        *error = QStringLiteral("--project is needed");
        return std::nullopt;
    }
    if (request.format.isEmpty() || request.out.isEmpty()) {
        *error = QStringLiteral("--format and --out are needed");
        return std::nullopt;
    }
    return request;
}

ReportParams reportParamsOf(const ReportRequest& request, QString* error, int budgetId) {
    const int number = request.number;
    const int level = request.level.value_or(number == ReportNumber::Top10CC ? 1 : FilterLevel::WholeBill);
    if (number >= ReportNumber::TotalCharges && number <= ReportNumber::ServiceLevel2 &&
        level == FilterLevel::ServiceNumber && request.value.isEmpty()) {
        *error = QStringLiteral("Please select a Service Number.");
        return {};
    }
    switch (number) {
    case ReportNumber::TotalCharges:
        return totalChargesParams(level, request.value);
    case ReportNumber::IndividualCharges:
        return individualChargesParams(level, request.value, request.view.value_or(ChargeView::Usage));
    case ReportNumber::Service:
        return serviceParams(level, request.value);
    case ReportNumber::ServiceLevel2:
        if (request.service.isEmpty()) {
            *error = QStringLiteral("report 4 needs --service");
            return {};
        }
        return serviceLevel2Params(level, request.value, request.service);
    case ReportNumber::Top10CC:
        return top10Params(level, request.value, request.chartType);
    default:
        break;
    }
    if (request.budget.isEmpty()) {
        *error = QStringLiteral("report %1 needs --budget").arg(number);
        return {};
    }
    if (number == ReportNumber::BudgetTop10CC || number == ReportNumber::FinancialReport)
        return {number, budgetId};
    // The budget reports open on the total view unless a family is asked for.
    return {number, budgetId, request.view.value_or(5)};
}

QString reportStatusText(int status, bool budgetReport) {
    if (budgetReport && status != ReportStatus::Shown) {
        if (status == ReportStatus::NoData)
            return BudgetReportStatusText::NoRecords;
        if (status == ReportStatus::NoCostCentreLevel)
            return BudgetReportStatusText::WholeBill;
        return BudgetReportStatusText::Failed;
    }
    switch (status) {
    case ReportStatus::Shown:
        return QString();
    case ReportStatus::NotProduced:
        return QStringLiteral("Report not available.");
    case ReportStatus::NoData:
        return QStringLiteral("No records found.");
    case ReportStatus::Error:
        return QStringLiteral("An error occurred while creating the report.");
    case ReportStatus::BadView:
        return QStringLiteral("Bad view number.");
    case ReportStatus::NoCostCentreLevel:
        return QStringLiteral("The budget has no cost centre level.");
    default:
        return QStringLiteral("Report not produced (status %1).").arg(status);
    }
}
