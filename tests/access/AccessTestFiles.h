#pragma once
// The real Access files of the shared test data, read-only. They lie beside the
// checkout, not in it: a test that needs one skips when it is absent.
#include <QFileInfo>
#include <QTest>

namespace testing {

inline QString accessTestFile(const QString& name) {
    return QStringLiteral(VANTREL_TESTDATA_DIR "/access/") + name;
}

} // namespace testing

// Skips the current test, or the current row of a data-driven one, without the file at `path`.
#define SKIP_WITHOUT_SHARED_FILE(path)                                                                       \
    do {                                                                                                     \
        if (!QFileInfo::exists(path))                                                                        \
            QSKIP("the shared Access test files are absent (check out ../shared beside the repository)");    \
    } while (false)
