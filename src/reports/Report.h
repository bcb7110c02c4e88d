#pragma once
// A built report, as the report forms show it and the outputs write it: a caption, a
// note, one grid of formatted cells and zero or more charts. Builders fill it; nothing
// here knows about widgets.
#include "app/Date.h"
#include "app/Money.h"
#include "reports/ReportParams.h"

#include <QColor>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>
#include <stdexcept>
#include <variant>
#include <vector>

// A ratio shown as a percent: 0.125 is shown as 12.5 %.
struct Percent {
    double ratio = 0.0;
    bool operator==(const Percent&) const = default;
};

// What a cell holds beside its text: an exact amount, a percent, a date, or nothing but
// the text. Sorting, workbooks and charts read the value; nothing parses a text back.
using CellValue = std::variant<std::monostate, Money, Percent, Date>;

struct ReportCell {
    QString text;
    bool bold = false;
    QColor foreColor; // invalid: the grid's own text colour
    QColor backColor; // invalid: the grid's own background
    CellValue value;
};

// What a column holds, as the sort and the outputs read it.
enum class ColumnKind { Caption = 0, Value = 2 };

struct ReportColumn {
    int widthTwips = -1; // -1: the grid's default width
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    int colData = 0; // a ColumnKind, or another number a builder gives
};

struct ReportRow {
    QVariant rowData; // what a click on the row selects (a budget id, for instance)
    bool hidden = false;
    bool merge = false; // neighbouring equal cells of the row show as one
};

// A grid that keeps its cells when it is resized, as the table control does.
class ReportGrid {
public:
    int rowCount() const { return int(rows_.size()); }
    int colCount() const { return int(columns_.size()); }
    void setRowCount(int rows) { resize(rows, colCount()); }
    void setColCount(int cols) { resize(rowCount(), cols); }
    void resize(int rows, int cols);

    ReportCell& cell(int row, int col) { return cells_.at(size_t(row)).at(size_t(col)); }
    const ReportCell& cell(int row, int col) const { return cells_.at(size_t(row)).at(size_t(col)); }
    const QString& text(int row, int col) const { return cell(row, col).text; }
    // Text alone: any value the cell held is dropped.
    void setText(int row, int col, const QString& text) {
        ReportCell& c = cell(row, col);
        c.text = text;
        c.value = std::monostate{};
    }
    // An amount, shown as "£###,##0.00".
    void setMoney(int row, int col, Money amount);
    // A ratio, shown by a percent format such as "0.00%" or "00.0%".
    void setPercent(int row, int col, double ratio, const QString& format);
    // A ratio whose text the builder wrote itself (a signed change, for instance).
    void setPercentText(int row, int col, const QString& text, double ratio) {
        ReportCell& c = cell(row, col);
        c.text = text;
        c.value = Percent{ratio};
    }
    // A date, shown as dd/mm/yyyy.
    void setDate(int row, int col, const Date& date);
    void setBold(int row, int col, bool bold = true) { cell(row, col).bold = bold; }
    void setForeColor(int row, int col, const QColor& colour) { cell(row, col).foreColor = colour; }

    ReportColumn& column(int col) { return columns_.at(size_t(col)); }
    const ReportColumn& column(int col) const { return columns_.at(size_t(col)); }
    ReportRow& row(int row) { return rows_.at(size_t(row)); }
    const ReportRow& row(int row) const { return rows_.at(size_t(row)); }

    int fixedRows = 1;
    int fixedCols = 1;

private:
    std::vector<std::vector<ReportCell>> cells_;
    std::vector<ReportColumn> columns_;
    std::vector<ReportRow> rows_;
};

// The chart kinds, numbered as the chart control of the host platform numbers them
// (the workbook output maps these numbers to its own).
enum class ChartType {
    Bar3d = 0,
    Bar2d = 1,
    Line3d = 2,
    Line2d = 3,
    Area3d = 4,
    Area2d = 5,
    Step3d = 6,
    Step2d = 7,
    Pie2d = 14,
    XY2d = 16
};

// A chart as a table of series (columns of its data grid) by points (rows of it).
class ReportChart {
public:
    int seriesCount() const { return int(seriesLabels_.size()); }
    int pointCount() const { return int(pointLabels_.size()); }
    // Every value starts at 0, as the chart's data grid does; kept values stay.
    void resize(int series, int points);
    void setSeriesLabel(int series, const QString& label) {
        seriesLabels_[checked(series, seriesCount())] = label;
    }
    void setPointLabel(int point, const QString& label) {
        pointLabels_[checked(point, pointCount())] = label;
    }
    const QString& seriesLabel(int series) const { return seriesLabels_.at(size_t(series)); }
    const QString& pointLabel(int point) const { return pointLabels_.at(size_t(point)); }
    const QStringList& seriesLabels() const { return seriesLabels_; }
    const QStringList& pointLabels() const { return pointLabels_; }
    // nullopt is a null point: no value is drawn there.
    void setValue(int series, int point, std::optional<double> value) {
        values_.at(size_t(series)).at(size_t(point)) = value;
    }
    std::optional<double> value(int series, int point) const {
        return values_.at(size_t(series)).at(size_t(point));
    }

    ChartType type = ChartType::Line2d;
    QString title;
    QString xAxisTitle;
    QString yAxisTitle;
    bool showLegend = true;
    bool stacked = false;
    std::vector<QColor> seriesColours; // per series; an invalid colour keeps the default
    std::optional<int> budgetId;       // the budget a click on this chart opens
    std::vector<int> pointBudgetIds;   // or, per bar, the budget a click on it opens

private:
    static qsizetype checked(int index, int size) {
        if (index < 0 || index >= size)
            throw std::out_of_range("chart index out of range");
        return index;
    }

    QStringList seriesLabels_;
    QStringList pointLabels_;
    std::vector<std::vector<std::optional<double>>> values_;
};

// Which of the three report forms shows the report.
enum class ReportForm { ChartAndGrid, ReportArea, Grid };

struct ReportKeyEntry {
    QString label;
    QColor colour;
};

struct Report {
    int number = 0;
    ReportParams params;
    ReportForm form = ReportForm::ChartAndGrid;
    QString caption; // the window caption, which the outputs use as the report's title

    QString note;
    bool noteVisible = false;

    ReportGrid grid;
    std::vector<ReportChart> charts;

    // The key and period labels beside the charts of the report area.
    bool keyVisible = true;
    std::vector<ReportKeyEntry> key;
    QStringList periodLabels;

    // The details button of the deviation reports; empty when the report offers none.
    QString detailsButton;
};
