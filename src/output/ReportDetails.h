#pragma once
// The simplified view of the deviation reports: in their total view the rows of the
// single charge families fold away, leaving the budget, live, difference and percent
// rows, and come back on demand.
#include <QString>

struct Report;

namespace DetailsText {
inline const QString Show = QStringLiteral("Show Details");
inline const QString Hide = QStringLiteral("Hide Details");
} // namespace DetailsText

// Reports 6 and 7 in view 5 have the fold.
bool hasDetailsFold(const Report& report);

// Folds the detail rows away when the button says "Hide...", else brings them back, and
// turns the button's caption. False, with nothing changed, for a report without the fold.
bool ToggleReportDetails(Report& report);

// The hint of the details button for its present caption.
QString detailsButtonHint(const Report& report);
