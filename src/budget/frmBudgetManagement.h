#pragma once
// The list of all budgets, masters with their cost-centre budgets beneath them, and the
// place where budgets are made, opened, renamed and deleted.
#include <QDialog>
#include <functional>

class HoverHints;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;
class uctFooter;
class uctHeader;
struct AppContext;

class frmBudgetManagement : public QDialog {
    Q_OBJECT
public:
    // The list's columns: the shown ones, then the master's id kept out of sight.
    enum Column {
        NameColumn = 0,
        BillAccountColumn,
        CreatedColumn,
        DateCountColumn,
        StartDateColumn,
        EndDateColumn,
        FilterColumn,
        MasterIdColumn,
        ColumnCount
    };

    explicit frmBudgetManagement(AppContext& ctx, QWidget* parent = nullptr);

    // Puts the project selector beside "Selected Project". cancel closes its drop-down
    // (every button does that first); refresh re-reads the selection when the form is
    // shown. Connect the selector's project change to projectChanged().
    void setProjectSelector(QWidget* selector, std::function<void()> cancel, std::function<void()> refresh);
    QWidget* projectSelectorPlace() const { return projectPlace_; }

    // The selected budget and its master (its own id for a master); -1 with none selected.
    int selectedId() const { return selectedId_; }
    int selectedMasterId() const { return selectedMasterId_; }
    // Selects the row of a budget as a click would; false when the list has none.
    bool SelectBudget(int budgetId);
    // The row of a budget, or null.
    QTreeWidgetItem* rowOf(int budgetId) const;

    QTreeWidget* list() const { return lstBudgets_; }
    uctHeader* header() const { return header_; }
    uctFooter* footer() const { return footer_; }
    QLabel* hintLabel() const { return lblHint_; }

public slots:
    // The selected project changed: the list is filled again.
    void projectChanged();
    void RefreshBudgetList();
    void cmdAddMaster_Click();
    void cmdAddSlave_Click();
    void cmdEdit_Click();
    void cmdDel_Click();
    void cmdExit_Click();
    void cmdHelp_Click();

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void rowSelected();
    void nameEdited(QTreeWidgetItem* item, int column);
    void applyRename(int budgetId, const QString& typed);
    void cancelSelector();
    void reportFailure(const QString& source, const std::exception& e);

    AppContext& ctx_;
    uctHeader* header_;
    uctFooter* footer_;
    HoverHints* hints_;
    QLabel* lblHint_;
    QLabel* lblProject_;
    QWidget* projectPlace_;
    QTreeWidget* lstBudgets_;
    QPushButton* cmdAddMaster_;
    QPushButton* cmdAddSlave_;
    QPushButton* cmdEdit_;
    QPushButton* cmdDel_;
    QLabel* lblEdit_;
    std::function<void()> selectorCancel_;
    std::function<void()> selectorRefresh_;
    int selectedId_ = -1;
    int selectedMasterId_ = -1;
    bool filling_ = false;
};
