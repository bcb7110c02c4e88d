#pragma once
// One budget in memory: a header row of tblBudget and up to twelve dated rows of
// tblBudgetEntry. A master budget fixes the dates and the cost-centre level of a bill
// account; a cost-centre budget hangs under one master, takes its dates and holds the
// amounts of one cost centre. A master with children has no amounts of its own: it
// shows the sum of its children.
//
// Failures: status codes for what the forms answer (BudgetStatus.h); a store failure
// passes on as DbError; LoadBudget of a missing id throws BudgetNotFoundError; an entry
// index outside 1..EntryCount, and DeleteDate of the only entry, throw
// BudgetSubscriptError and leave the budget as it was.
#include "budget/clsBudgetCostEntry.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <vector>

class Database;

class clsBudget {
public:
    static constexpr int MaxEntries = 12;
    static constexpr int MaxNameLength = 50;
    static constexpr int NoID = -1;
    static constexpr int MasterType = -1;
    static constexpr int CostCentreType = 0;

    // The budget store holds the budgets; the trend store gives the bill dates.
    clsBudget(Database& budgetDb, Database& trendDb);

    void Clear();
    void CreateMaster(const QString& billAccount, int level);
    // A new, unsaved cost-centre budget under a master: the master's dates, account and
    // level with all amounts zero.
    int CreateFromMaster(int masterId, const QString& name, const QString& costCentre);
    // Reads the budget and pairs its dates with bill dates. Always 0.
    int LoadBudget(int budgetId);
    // Checks the title (4), then the entries (6), then the cost centre (5), then writes the
    // row and replaces its entries, all in one transaction: on a failure nothing is written.
    // The cost-centre test counts the budget's own row too, so a cost-centre budget is saved
    // through here once only.
    int SaveBudget(bool saveAsNew);
    // Masters only, at most twelve dates; a text that is no date of `format` is refused too.
    int AddDate(const QString& dateText, const QString& format, Money usage, Money recurring, Money oneOff,
                Money adjustments);
    int AddDate(const Date& date, Money usage, Money recurring, Money oneOff, Money adjustments);
    int DeleteDate(int index);

    // Empty unless this is a saved master.
    QList<int> GetChildIDs() const;
    QStringList GetChildCCs() const;

    int ID() const { return budgetId_; }
    int MasterID() const { return masterId_; }
    QString Name() const { return name_; }
    void setName(const QString& name) { name_ = name.left(MaxNameLength); }
    QString BillAccount() const { return billAccount_; }
    bool IsMaster() const { return budgetType_ == MasterType; }
    int CCLevel() const { return level_; }
    QString CostCentre() const { return costCentre_; }
    void setCostCentre(const QString& costCentre) { costCentre_ = costCentre; }
    int EntryCount() const { return int(entries_.size()); }
    // 1-based; the entry itself, so changing it changes the budget.
    clsBudgetCostEntry& Entry(int index);
    const clsBudgetCostEntry& Entry(int index) const;
    void setEntry(int index, const clsBudgetCostEntry& entry) { Entry(index) = entry; }

private:
    void SortEntries();
    void SwapEntries(int i, int j);
    void checkIndex(int index) const;

    Database& budgetDb_;
    Database& trendDb_;
    int budgetId_ = NoID;
    int masterId_ = NoID;
    QString billAccount_;
    QString name_;
    int budgetType_ = CostCentreType;
    int level_ = 1;
    QString costCentre_;
    std::vector<clsBudgetCostEntry> entries_;
};
