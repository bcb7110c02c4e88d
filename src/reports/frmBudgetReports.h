#pragma once
// The budget report menu: the budgets of the selected project in one list, and the
// periodic, accumulative, top-10 and financial directors reports of the one chosen.
#include "reports/BudgetReports.h"
#include "reports/ReportNavigation.h"

#include <QDialog>
#include <QList>
#include <functional>

struct BudgetChoice;
class HoverHints;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class uctFooter;
class uctHeader;
struct AppContext;

namespace BudgetReportsText {
inline const QString SelectProject = QStringLiteral("Please select a project.");
inline const QString SelectBudget = QStringLiteral("Please select a budget.");
inline const QString& NoRecords = BudgetReportStatusText::NoRecords;
inline const QString& WholeBill = BudgetReportStatusText::WholeBill;
inline const QString& Failed = BudgetReportStatusText::Failed;
inline const QString NoProjectItem = QStringLiteral("Please select a project");
inline const QString NoBudgetItem = QStringLiteral("Please select a budget");
} // namespace BudgetReportsText

class frmBudgetReports : public QDialog {
    Q_OBJECT
public:
    static constexpr int ChargeButtons = 4;

    explicit frmBudgetReports(AppContext& ctx, QWidget* parent = nullptr);

    // Puts the project selector in its place beside "Selected Project". cancel closes its
    // drop-down (every click on the form does that first), refresh re-reads the selection.
    // Connect the selector's project change to projectChanged().
    void setProjectSelector(QWidget* selector, std::function<void()> cancel, std::function<void()> refresh);
    QWidget* projectSelectorPlace() const { return ucProject_; }

    QComboBox* budgetList() const { return cmbBudget_; }
    QPushButton* periodicButton(int index) const { return cmdMonthlyDeviationReport_[index]; }
    QPushButton* accumulativeButton(int index) const { return cmdAccumulativeDeviations_[index]; }
    QPushButton* costCentreDeviationButton(int index) const { return cmdCCDeviation_[index]; }
    QPushButton* financialButton() const { return cmdFinancial_; }
    QPushButton* top10Button() const { return cmdTop10CC_; }
    QLabel* hintLabel() const { return lblHelp_; }
    uctHeader* header() const { return header_; }
    uctFooter* footer() const { return footer_; }
    // The report levels behind the report on show; cleared on every fresh start.
    ReportSession& session() { return session_; }

public slots:
    // The selected project changed: the list of budgets starts again.
    void projectChanged();
    // The chosen budget changed: the report buttons follow what fits it.
    void cmbBudget_Click();
    void cmdMonthlyDeviationReport_Click(int index);
    void cmdAccumulativeDeviations_Click(int index);
    // The reports of deviation by cost centre have no start from this menu: their
    // buttons stand on the form and do nothing.
    void cmdCCDeviation_Click(int index);
    void cmdFinancial_Click();
    void cmdTop10CC_Click();
    void cmdHelp_Click();
    void cmdExit_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void fillBudgets();
    QList<BudgetChoice> readChoices();
    // The id of the chosen budget; nullopt (after telling the user) when none is chosen.
    std::optional<int> chosenBudget();
    void runReport(const ReportParams& params, bool costCentreReport);
    void showStatus(int status, bool costCentreReport);
    void enableControls(bool enabled);
    void cancelSelector();
    QGroupBox* buildParametersFrame();
    QGroupBox* buildReportsFrame();

    AppContext& ctx_;
    ReportSession session_;
    uctHeader* header_;
    uctFooter* footer_;
    HoverHints* hints_ = nullptr;
    QLabel* lblProject_;
    QWidget* ucProject_;
    QGroupBox* frameParameters_ = nullptr;
    QGroupBox* frameReports_ = nullptr;
    QComboBox* cmbBudget_;
    QPushButton* cmdFinancial_;
    QPushButton* cmdMonthlyDeviationReport_[ChargeButtons];
    QPushButton* cmdAccumulativeDeviations_[ChargeButtons];
    QPushButton* cmdCCDeviation_[ChargeButtons];
    QPushButton* cmdTop10CC_;
    QPushButton* cmdHelp_;
    QPushButton* cmdExit_;
    QLabel* lblHelp_;
    std::function<void()> selectorCancel_;
    std::function<void()> selectorRefresh_;
};
