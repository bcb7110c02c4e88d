#pragma once
// The line that every report carries under its figures: in the windows, on paper and in
// workbooks.
#include <QString>

inline const QString ReportDisclaimer =
    QStringLiteral("This report reflects information from your Zandel billing data and is indicative only.  "
                   "Totals may differ from the Invoice by less than 5 pence due to rounding");
