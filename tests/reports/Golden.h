#pragma once
// Whole reports against golden files in tests/reports/golden: the caption, the report as
// the command line writes it, then a map of the cells' colours. VANTREL_WRITE_GOLDEN=1
// rewrites the files, to be checked by hand before they go in.
#include "TrendFixture.h"
#include "app/cColours_Orvane.h"
#include "reports/Report.h"
#include "reports/ReportCsv.h"

#include <QFile>
#include <QTest>

namespace golden {

// "." the grid's own colour, C coral, B blue, K black, R a rise, G a fall.
inline QChar colourLetter(const QColor& colour) {
    const QList<QPair<QColor, char>> letters{{qColor(cColours().CoreColour_Coral()), 'C'},
                                             {QColor(0, 0, 255), 'B'},
                                             {QColor(Qt::black), 'K'},
                                             {riseColour(), 'R'},
                                             {fallColour(), 'G'}};
    for (const auto& [known, letter] : letters)
        if (colour == known)
            return QLatin1Char(letter);
    return colour.isValid() ? QLatin1Char('?') : QLatin1Char('.');
}

// Fails the test at the first line that differs; the caller returns after it.
inline void compare(const Report& report, const QString& name) {
    QString actual =
        report.caption + QLatin1Char('\n') + reportToCsv(report) + QStringLiteral("\n# colours\n");
    for (int r = 0; r < report.grid.rowCount(); ++r) {
        if (report.grid.row(r).hidden)
            continue;
        for (int c = 0; c < report.grid.colCount(); ++c)
            actual += colourLetter(report.grid.cell(r, c).foreColor);
        actual += QLatin1Char('\n');
    }
    QFile file(QStringLiteral(VANTREL_SOURCE_DIR "/tests/reports/golden/") + name + QStringLiteral(".csv"));
    if (qEnvironmentVariableIsSet("VANTREL_WRITE_GOLDEN")) {
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(actual.toUtf8());
        return;
    }
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
    const QStringList a = actual.split(QLatin1Char('\n'));
    const QStringList e = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (int i = 0; i < std::max(a.size(), e.size()); ++i)
        QVERIFY2(a.value(i) == e.value(i),
                 qPrintable(QStringLiteral("%1 line %2\n  got      %3\n  expected %4")
                                .arg(name)
                                .arg(i + 1)
                                .arg(a.value(i), e.value(i))));
}

} // namespace golden
