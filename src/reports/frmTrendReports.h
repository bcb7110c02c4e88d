#pragma once
// The trend report menu: the filter (whole bill, a cost centre of a level, or one service
// number), the four trend reports and the four top-10 cost-centre reports.
#include "reports/ReportNavigation.h"

#include <QDialog>
#include <functional>

class HoverHints;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class uctFooter;
class uctHeader;
struct AppContext;

namespace TrendReportsText {
inline const QString SelectProject = QStringLiteral("Please select a project.");
inline const QString SelectService = QStringLiteral("Please select a Service Number.");
inline const QString NotAvailable = QStringLiteral("Report not available.");
inline const QString NoRecords = QStringLiteral("No records found.");
inline const QString Failed = QStringLiteral("An error occurred while creating the report.");
inline const QString NoServiceSelected = QStringLiteral("No Service Number Selected");
} // namespace TrendReportsText

class frmTrendReports : public QDialog {
    Q_OBJECT
public:
    static constexpr int TrendButtons = 4;
    static constexpr int TopButtons = 4;

    explicit frmTrendReports(AppContext& ctx, QWidget* parent = nullptr);

    // Puts the project selector in its place beside "Selected Project". cancel closes its
    // drop-down (every click on the form does that first), refresh re-reads the selection.
    // Connect the selector's project change to projectChanged().
    void setProjectSelector(QWidget* selector, std::function<void()> cancel, std::function<void()> refresh);
    QWidget* projectSelectorPlace() const { return ucProject_; }

    QPushButton* trendButton(int index) const { return cmdTRep_[index]; }
    QPushButton* topButton(int index) const { return cmdCCRep_[index]; }
    QComboBox* costCentreLevelList() const { return cmbCCLevel_; }
    QComboBox* costCentreList() const { return cmbCC_; }
    QComboBox* serviceList() const { return cmbService_; }
    QComboBox* accumulatedLevelList() const { return cmbAccCCLevel_; }
    QRadioButton* filterOption(int index) const { return optFilter_[index]; }
    QLabel* hintLabel() const { return lblHelp_; }
    uctHeader* header() const { return header_; }
    uctFooter* footer() const { return footer_; }
    // The report levels behind the report on show; cleared on every fresh start.
    ReportSession& session() { return session_; }

public slots:
    // The selected project changed: the report buttons follow whether it may feed trend
    // reports, and the lists start again.
    void projectChanged();
    void cmdTRep_Click(int index);
    void cmdCCRep_Click(int index);
    void cmdHelp_Click();
    void cmdExit_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void fillCostCentres();
    void fillServices();
    void runReport(const ReportParams& params);
    void showStatus(int status);
    void enableControls(bool enabled);
    void cancelSelector();
    QGroupBox* buildTrendFrame();
    QGroupBox* buildTopFrame();

    AppContext& ctx_;
    ReportSession session_;
    uctHeader* header_;
    uctFooter* footer_;
    HoverHints* hints_;
    QLabel* lblProject_;
    QWidget* ucProject_;
    QGroupBox* frameTrend_ = nullptr;
    QGroupBox* frameTop_ = nullptr;
    QComboBox* cmbCCLevel_;
    QComboBox* cmbCC_;
    QComboBox* cmbService_;
    QComboBox* cmbAccCCLevel_;
    QRadioButton* optFilter_[2];
    QPushButton* cmdTRep_[TrendButtons];
    QPushButton* cmdCCRep_[TopButtons];
    QPushButton* cmdHelp_;
    QPushButton* cmdExit_;
    QLabel* lblHelp_;
    std::function<void()> selectorCancel_;
    std::function<void()> selectorRefresh_;
};
