#pragma once
// The real Access files of the shared test data, read-only.
#include <QString>

namespace testing {

inline QString accessTestFile(const char* name) {
    return QStringLiteral(VANTREL_TESTDATA_DIR "/access/") + QLatin1String(name);
}

} // namespace testing
