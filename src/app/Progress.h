#pragma once
#include <QtGlobal>
#include <functional>

// Reports the progress of long work; returning false asks the work to stop and undo.
// The desktop program answers from a progress dialog with a cancel button (and keeps
// the window alive while it is called); batch callers may pass an empty function.
using ProgressFn = std::function<bool(qint64 done, qint64 total)>;

inline bool reportProgress(const ProgressFn& progress, qint64 done, qint64 total) {
    return !progress || progress(done, total);
}
