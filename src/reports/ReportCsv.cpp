#include "reports/ReportCsv.h"

#include "reports/Report.h"

#include <QFile>
#include <QLocale>
#include <QSaveFile>

namespace {

const QString LineEnd = QStringLiteral("\r\n");

QString csvLine(const QStringList& fields) {
    QStringList quoted;
    for (const QString& f : fields)
        quoted << csvField(f);
    return quoted.join(QLatin1Char(',')) + LineEnd;
}

// Chart values come from amounts of four decimals divided by a power of ten, so eight
// decimals hold them whole; binary noise beyond that is dropped. Never in exponent form.
QString numberText(double value) {
    QString text = QString::number(value, 'f', 8);
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

} // namespace

QString csvField(const QString& text) {
    const bool needsQuotes = text.contains(QLatin1Char(',')) || text.contains(QLatin1Char('"')) ||
                             text.contains(QLatin1Char('\n')) || text.contains(QLatin1Char('\r'));
    if (!needsQuotes)
        return text;
    QString inner = text;
    inner.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + inner + QLatin1Char('"');
}

QString reportToCsv(const Report& report) {
    QString out;
    const ReportGrid& grid = report.grid;
    for (int r = 0; r < grid.rowCount(); ++r) {
        if (grid.row(r).hidden)
            continue;
        QStringList cells;
        for (int c = 0; c < grid.colCount(); ++c)
            cells << grid.text(r, c);
        out += csvLine(cells);
    }
    for (const ReportChart& chart : report.charts) {
        out += LineEnd;
        out += csvLine(QStringList{chart.title} + chart.seriesLabels());
        for (int p = 0; p < chart.pointCount(); ++p) {
            QStringList fields{chart.pointLabel(p)};
            for (int s = 0; s < chart.seriesCount(); ++s) {
                const std::optional<double> v = chart.value(s, p);
                fields << (v ? numberText(*v) : QString());
            }
            out += csvLine(fields);
        }
    }
    return out;
}

bool writeReportCsv(const Report& report, const QString& path, QString* error) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        if (error)
            *error = file.errorString();
        return false;
    }
    file.write(reportToCsv(report).toUtf8());
    if (!file.commit()) {
        if (error)
            *error = file.errorString();
        return false;
    }
    return true;
}
