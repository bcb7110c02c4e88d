#include "app/AppContext.h"
#include "app/Format.h"
#include "app/TextHelpers.h"
#include "reports/ReportFrame.h"
#include "reports/TrendReports.h"

#include <QHash>

namespace {

struct ProductCost {
    Date date;
    QString product; // a missing product code is a product of its own, with no name
    std::optional<Money> cost;
};

// The amount a money cell shows, read back from its text.
Money amountOfCell(QString text) {
    text.remove(QStringLiteral("£")).remove(QLatin1Char(','));
    return Money::parse(text).value_or(Money());
}

} // namespace

ReportResult TrendReport_Service(ReportContext& rc, int level, const QString& value) {
    const BuilderTrap trap{builderCall(QStringLiteral("TrendReport_Service"), {level, value}), false, false};
    return runTrapped(rc, trap, [&](int& location) -> ReportResult {
        AppContext& ctx = rc.app;
        const QString title = trendTitle(QStringLiteral("Service Type Trend "), level, value);
        const ServiceFilter filter = makeServiceFilter(ctx, level, value);

        location = 100;
        BoundQuery query{
            QStringLiteral("SELECT BillDate, MIN(\"Product Code\"), SUM(\"PreTax Cost\") ") +
                filter.productsFrom() + QStringLiteral(" WHERE BillAccount = ?") + filter.condition() +
                QStringLiteral(" GROUP BY ") + filter.dateGroup() +
                QStringLiteral(
                    ", \"Product Code\" COLLATE NOCASE ORDER BY BillDate, \"Product Code\" COLLATE NOCASE"),
            {}};
        query.arg(ctx.billAccount);
        filter.bindTo(query);
        std::vector<ProductCost> records;
        {
            Statement st = prepareBound(ctx.trendDb, query);
            while (st.step())
                records.push_back(
                    {st.date(0), st.text(1), st.isNull(2) ? std::nullopt : std::optional(st.money(2))});
        }
        if (records.empty())
            return {ReportStatus::NoData, std::nullopt};

        // The axes: dates as sortable text and product codes, each once.
        location = 150;
        QStringList dates;
        QStringList products;
        for (const ProductCost& r : records) {
            const QString key = formatDate(r.date, QStringLiteral("yyyymmdd"));
            if (!ListContains(dates, key))
                dates << key;
            // Codes that differ only in case are one product.
            if (!products.contains(r.product, Qt::CaseInsensitive))
                products << r.product;
        }
        if (dates.size() > TrendDateWindow)
            dates = dates.mid(dates.size() - TrendDateWindow);
        dates = SortStrings(dates);
        products = SortStrings(products);

        location = 200;
        Report report;
        report.number = ReportNumber::Service;
        report.params = serviceParams(level, value);
        report.caption = title;
        report.note = ReportText::DrillDownNote;
        report.noteVisible = true;
        ReportGrid& grid = report.grid;
        grid.resize(int(products.size()) + 3, int(dates.size()) + 1);
        for (int c = 0; c < grid.colCount(); ++c)
            grid.column(c).alignment = ValueAlignment;
        grid.fixedCols = 1;
        grid.fixedRows = 1;
        grid.setText(0, 0, QStringLiteral("Entry Dates"));
        grid.setBold(0, 0);
        QHash<QString, int> columnOfDate;
        for (int d = 0; d < dates.size(); ++d) {
            const QString shown =
                ParseDateByMask(dates[d], QStringLiteral("yyyymmdd"), QStringLiteral("dd/mm/yyyy"));
            grid.setText(0, d + 1, shown);
            grid.setBold(0, d + 1);
            grid.column(d + 1).widthTwips = DateColumnTwips;
            grid.column(d + 1).colData = int(ColumnKind::Value);
            for (int p = 0; p < products.size(); ++p)
                grid.setMoney(p + 1, d + 1, Money());
            columnOfDate.insert(shown, d + 1);
        }
        QHash<QString, int> rowOfProduct;
        for (int p = 0; p < products.size(); ++p) {
            grid.setText(p + 1, 0, products[p] + QStringLiteral(" (£)"));
            grid.setBold(p + 1, 0);
            rowOfProduct.insert(products[p].toCaseFolded(), p + 1);
        }
        grid.column(0).widthTwips = CaptionColumnTwips;

        // Records of dates before the window have no column and count nowhere.
        location = 250;
        std::vector<Money> totals(size_t(dates.size()));
        for (const ProductCost& r : records) {
            const int col = columnOfDate.value(billDateText(r.date), -1);
            const int row = rowOfProduct.value(r.product.toCaseFolded(), -1);
            if (col < 0 || row < 0)
                continue;
            if (r.cost)
                grid.setMoney(row, col, *r.cost);
            else
                grid.setText(row, col, QString());
            if (r.cost)
                totals[size_t(col - 1)] += *r.cost;
        }

        location = 300;
        const int totalRow = grid.rowCount() - 2;
        const int percentRow = grid.rowCount() - 1;
        grid.setText(totalRow, 0, ReportText::Totals);
        grid.setBold(totalRow, 0);
        grid.setText(percentRow, 0, ReportText::PercentChange);
        grid.setBold(percentRow, 0);
        // Only the totals set the chart's scale. The percent of a change away from 0 stays
        // empty, and so does its colour's cause: the colour follows the last change worked out.
        Money maxValue;
        double pct = 0;
        for (int c = 1; c < grid.colCount(); ++c) {
            const Money present = totals[size_t(c - 1)];
            grid.setMoney(totalRow, c, present);
            grid.setBold(totalRow, c);
            if (maxValue < present)
                maxValue = present;
            if (c < 2)
                continue;
            const Money previous = totals[size_t(c - 2)];
            if (!previous.isZero()) {
                pct = double((present - previous).raw()) / double(previous.raw()) * 100.0;
                if ((present > previous && pct < 0) || (present < previous && pct > 0))
                    pct = -pct;
                grid.setPercentText(percentRow, c,
                                    (pct > 0 ? QStringLiteral("+") : QString()) +
                                        formatNumber(pct, QStringLiteral("###,###0.00")) +
                                        QStringLiteral("%"),
                                    pct / 100.0);
            } else if (present.isZero()) {
                grid.setPercentText(percentRow, c, QStringLiteral("0.00%"), 0.0);
            }
            grid.setBold(percentRow, c);
            if (pct > 0)
                grid.setForeColor(percentRow, c, qColor(IncreaseColour));
            else if (pct < 0)
                grid.setForeColor(percentRow, c, qColor(DecreaseColour));
        }
        for (int c = 0; c < grid.colCount(); ++c) {
            grid.setBold(totalRow, c);
            grid.setBold(percentRow, c);
        }

        location = 350;
        const std::int64_t scale = ChartScale(maxValue);
        ReportChart chart;
        chart.type = ChartType::Line2d;
        chart.title = title;
        chart.resize(int(products.size()) + 1, int(dates.size()));
        chart.setSeriesLabel(0, scaledLabel(QStringLiteral("Total Service Charges"), scale));
        for (int p = 0; p < products.size(); ++p)
            chart.setSeriesLabel(p + 1, scaledLabel(products[p], scale));
        for (int d = 0; d < dates.size(); ++d) {
            chart.setPointLabel(d, grid.text(0, d + 1));
            chart.setValue(0, d, scaledValue(totals[size_t(d)], scale));
            for (int p = 0; p < products.size(); ++p) {
                const QString& cell = grid.text(p + 1, d + 1);
                chart.setValue(p + 1, d,
                               cell.isEmpty() ? std::nullopt
                                              : std::optional(scaledValue(amountOfCell(cell), scale)));
            }
        }
        chart.seriesColours = graphColours(ctx.colours, false, chart.seriesCount());
        report.charts.push_back(std::move(chart));
        return {ReportStatus::Shown, std::move(report)};
    });
}
