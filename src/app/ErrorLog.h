#pragma once
#include <QString>

class cPathControl;

// Appends one line to AppFolder/VantrelError.log:
// "dd/mm/yyyy hh:mm   source   Error#number:description". False when the log cannot be written.
bool LogError(const cPathControl& paths, const QString& source, long number, const QString& description);
QString errorLogPath(const cPathControl& paths);
