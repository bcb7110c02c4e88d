#pragma once
// A report's chart on screen. It tells a click on a bar apart from a click elsewhere on
// the chart, so that a report can open what either names.
#include "reports/Report.h"

#include <QChartView>

class cColours;

class ReportChartView : public QChartView {
    Q_OBJECT
public:
    ReportChartView(const ReportChart& chart, const cColours& colours, QWidget* parent = nullptr);

    const ReportChart& reportChart() const { return reportChart_; }

signals:
    // A bar (or a part of a stacked bar) of point `point` was clicked.
    void barClicked(int point);
    // The chart was clicked anywhere but on a bar.
    void chartClicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    ReportChart reportChart_;
    bool barHit_ = false;
};
