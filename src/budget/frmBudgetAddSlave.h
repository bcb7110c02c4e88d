#pragma once
// Derives a cost-centre budget (or a whole-bill master's figures) from trend entries with a percent change.
#include <QDialog>
#include <QList>
#include <memory>

class ClickableLabel;
class QComboBox;
class QLabel;
class QLineEdit;
class clsBudget;
class uctFooter;
class uctHeader;
struct AppContext;
struct PeriodBasis;

class frmBudgetAddSlave : public QDialog {
    Q_OBJECT
public:
    static constexpr int PeriodCount = 12;

    explicit frmBudgetAddSlave(AppContext& ctx, QWidget* parent = nullptr);
    ~frmBudgetAddSlave() override;
    // masterId: the master the budget hangs under; wholeBill: fill the master itself.
    // Throws BudgetNotFoundError when no budget has the id.
    void Setup(int masterId, bool wholeBill);

    // Whole-bill mode: the title is the master's and cannot change.
    bool isWholeBill() const;
    // The budget being built; null before Setup.
    const clsBudget* budget() const { return budget_.get(); }
    QLabel* periodLabel(int index) const { return lblPeriod_.value(index); }
    QComboBox* trendList(int index) const { return cmbTrend_.value(index); }
    QLineEdit* percentBox(int index) const { return txtPercentage_.value(index); }
    QLineEdit* titleBox() const { return txtTitle_; }
    QComboBox* costCentreList() const { return cmbFilterCC_; }
    ClickableLabel* createButton() const { return lblCreate_; }
    ClickableLabel* helpButton() const { return lblHelp_; }
    QLabel* noteLabel() const { return Label1_; }
    QLabel* hintLabel() const { return lblHint_; }
    uctHeader* header() const { return header_; }
    uctFooter* footer() const { return footer_; }

public slots:
    // Builds the amounts from the chosen trend entries, saves the budget and opens it in the
    // budget editor.
    void cmdCreate_Click();
    // Closes without saving; in whole-bill mode the master stays with its zero amounts.
    void cmdExit_Click();
    void cmdHelp_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void buildControls();
    void layOut();
    void FillCostCentres();
    void FillTrendEntries();
    void SelectDefaultTrendEntries();
    QList<PeriodBasis> chosenPeriods() const;
    void percentLostFocus(QLineEdit* box);

    AppContext& ctx_;
    std::unique_ptr<clsBudget> budget_;
    bool warningShown_ = false;

    uctHeader* header_;
    uctFooter* footer_;
    QLabel* Label1_;
    QLabel* lblTitle_;
    QLineEdit* txtTitle_;
    QLabel* lblCC_;
    QComboBox* cmbFilterCC_;
    QLabel* lblBudget_;
    QLabel* lblTrendDate_;
    QLabel* lblPercent_;
    QList<QLabel*> lblPeriod_;
    QList<QLabel*> lblEquals_;
    QList<QComboBox*> cmbTrend_;
    QList<QLabel*> lblTimes_;
    QList<QLineEdit*> txtPercentage_;
    ClickableLabel* lblCreate_;
    ClickableLabel* lblHelp_;
    QLabel* lblHint_;
};
