#pragma once
// The report-area window: one or more charts on a scrolling area, with a key and the
// periods beside them. In a report whose charts lead on (the budget top 10), a click on
// a chart, or on one of its bars, that names a budget opens that budget's periodic
// deviation report.
#include "output/gui/ReportWindow.h"

#include <QList>

class QFrame;
class ReportChartView;
class ucReportArea;

namespace ReportAreaText {
inline const QString NoRecords = QStringLiteral("No records found, unable to display report.");
inline const QString Failed = QStringLiteral("There was an error producing the report.");
} // namespace ReportAreaText

class frmReport2 : public ReportWindow {
    Q_OBJECT
public:
    frmReport2(AppContext& ctx, ReportSession& session, Report report, QWidget* parent = nullptr);

    ReportForm form() const override { return ReportForm::ReportArea; }

    ucReportArea* area() const { return RepArea_; }
    const QList<ReportChartView*>& charts() const { return charts_; }
    // The key and period labels; null when the report has none to show.
    QFrame* keyFrame() const { return FrameKey_; }

    // The size of one chart when several share the area.
    static constexpr QSize SmallChart{540, 340};
    // The least size of a chart that has the area to itself.
    static constexpr QSize LargeChart{900, 560};

public slots:
    // A click on chart `chart` of the report, on the bars of point `point` or, with -1,
    // elsewhere on the chart.
    void MSChart1_Click(int chart, int point);

protected:
    void render() override;

private:
    void buildKey();
    void layoutArea();

    ucReportArea* RepArea_;
    QList<ReportChartView*> charts_;
    QFrame* FrameKey_ = nullptr;
};
