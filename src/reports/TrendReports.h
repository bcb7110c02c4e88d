#pragma once
// The five trend report builders. Each reads the trend store of the selected project's
// account and returns a status; on ReportStatus::Shown it returns the report as well.
// Level and value are the filter of the report (see FilterLevel).
#include "reports/ReportContext.h"

#include <QString>

// Report 1: the four charge families per bill date, their total and its change.
ReportResult TrendReport_TotalCharges(ReportContext& rc, int level, const QString& value);
// Report 2: one charge family (a ChargeView) broken into its charge types; a view
// outside 1 to 4 gives ReportStatus::BadView.
ReportResult TrendReport_IndividualCharges(ReportContext& rc, int level, const QString& value, int view);
// Report 3: the cost of every product code per bill date.
ReportResult TrendReport_Service(ReportContext& rc, int level, const QString& value);
// Report 4: one product code split into the four charge families.
ReportResult TrendReport_ServiceLevel2(ReportContext& rc, int level, const QString& value,
                                       const QString& service);
// Report 5: the ten cost centres of a level with the highest accumulated cost over the
// last twelve bill dates (from startDate on, when given), by chart type: 1 usage less
// telemarketing, 2 recurring, 3 one off, 4 adjustments, 6 telemarketing, any other the
// total. Reports progress per bill date; a stop gives ReportStatus::NotProduced.
ReportResult TrendReport_Top10CC(ReportContext& rc, int level, const QString& startDate, int chartType);
