#pragma once
// The real Access files of the shared test data, read-only. They lie beside the
// checkout, not in it: a test that needs one skips when it is absent.
#include <QFileInfo>
#include <QString>
#include <QTest>

namespace testing {

inline constexpr const char* AccessFilesAbsent =
    "the shared Access test files are absent: " VANTREL_TESTDATA_DIR "/access does not exist "
    "(they are not part of the repository; check out ../shared beside it to run this test)";

inline QString accessTestFile(const char* name) {
    return QStringLiteral(VANTREL_TESTDATA_DIR "/access/") + QLatin1String(name);
}

} // namespace testing

// Skips the current test, or the current row of a data-driven one, when the shared file
// at `path` is absent.
#define SKIP_WITHOUT_SHARED_FILE(path)                                                                       \
    do {                                                                                                     \
        if (!QFileInfo::exists(path))                                                                        \
            QSKIP(testing::AccessFilesAbsent);                                                               \
    } while (false)
