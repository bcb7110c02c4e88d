#pragma once
// Making a file the selected project: open it, read its header and reference data,
// and decide whether it may feed trend work. The selector widget wraps this.
#include "app/Progress.h"

#include <QString>

struct AppContext;

// Selects `path` (or closes the selection for ""). Shows the user messages through the
// context's dialog service and records the project in the recent list. True when the
// project is usable; on false nothing stays selected. Re-selecting the selected
// project opens nothing and succeeds. progress hears how the reading of an Access file
// goes; a cancel there leaves the project unreadable, and so not selected.
bool SelectProject(AppContext& ctx, const QString& path, const ProgressFn& progress = {});

// Closes the project and clears what belongs to it; trendEnabled is left as it is.
void CloseProject(AppContext& ctx);

// Messages of the selection.
namespace SelectionText {
inline const QString NotValid =
    QStringLiteral("The selected project file is not valid for use with this application");
inline const QString NoTrends =
    QStringLiteral("Please select a valid Velora project to enable Trend Reports");
inline const QString DoesNotExist = QStringLiteral("Project does not exist. Please try again.");
inline const QString PleaseSelect = QStringLiteral("Please select a project");
} // namespace SelectionText
