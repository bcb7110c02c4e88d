#pragma once
// Defines a master budget: its title, level and dated periods; also edits the dates of an existing master.
#include <QDialog>
#include <QList>
#include <memory>

class ClickableLabel;
class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class clsBudget;
class uctFooter;
class uctHeader;
struct AppContext;

class frmBudgetAddMaster : public QDialog {
    Q_OBJECT
public:
    static constexpr int PeriodCount = 12;

    explicit frmBudgetAddMaster(AppContext& ctx, QWidget* parent = nullptr);
    ~frmBudgetAddMaster() override;
    // Fills the form with an existing master for editing its dates. Throws
    // BudgetNotFoundError when no budget has the id.
    void SetupForEdit(int budgetId);

    bool isEditing() const { return editing_; }
    QCheckBox* periodCheck(int index) const { return chkPeriod_.value(index); }
    QDateEdit* periodDate(int index) const { return dtPeriod_.value(index); }
    QLabel* periodLabel(int index) const { return lblPeriod_.value(index); }
    QLineEdit* titleBox() const { return txtTitle_; }
    QComboBox* levelList() const { return cmbFilterLevel_; }
    ClickableLabel* createButton() const { return lblCreate_; }
    ClickableLabel* helpButton() const { return lblHelp_; }
    QLabel* noteLabel() const { return Label1_; }
    QLabel* matchLabel() const { return Label2_; }
    QLabel* hintLabel() const { return lblHint_; }
    uctHeader* header() const { return header_; }
    uctFooter* footer() const { return footer_; }

public slots:
    // Creates the master (a whole-bill master goes on to its amounts), or saves the edited dates.
    void cmdCreate_Click();
    void cmdExit_Click();
    void cmdHelp_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls();
    void layOut();
    // Sets the pickers from `index` on to the picker's date and the months after it.
    void Cascade(int index);
    void chkPeriod_Click(int index, bool ticked);
    void dtPeriod_Change(int index);
    void createMaster();
    void saveEditedDates();

    AppContext& ctx_;
    bool editing_ = false;
    bool cascading_ = false;
    std::unique_ptr<clsBudget> budget_;

    uctHeader* header_;
    uctFooter* footer_;
    QLabel* Label1_;
    QLabel* Label2_;
    QLabel* lblTitle_;
    QLineEdit* txtTitle_;
    QLabel* lblCC_;
    QComboBox* cmbFilterLevel_;
    QLabel* lblBudgetDate_;
    QList<QLabel*> lblPeriod_;
    QList<QCheckBox*> chkPeriod_;
    QList<QDateEdit*> dtPeriod_;
    ClickableLabel* lblCreate_;
    ClickableLabel* lblHelp_;
    QLabel* lblHint_;
};
