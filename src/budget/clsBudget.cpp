#include "budget/clsBudget.h"

#include "app/TextHelpers.h"
#include "budget/BudgetEntryRows.h"
#include "budget/BudgetErrors.h"
#include "budget/BudgetStatus.h"
#include "budget/MatchBillDates.h"
#include "data/Database.h"

#include <utility>

clsBudget::clsBudget(Database& budgetDb, Database& trendDb)
    : budgetDb_(budgetDb)
    , trendDb_(trendDb) {}

void clsBudget::Clear() {
    budgetId_ = NoID;
    masterId_ = NoID;
    billAccount_.clear();
    name_.clear();
    budgetType_ = CostCentreType;
    level_ = 1;
    costCentre_.clear();
    entries_.clear();
}

void clsBudget::CreateMaster(const QString& billAccount, int level) {
    Clear();
    budgetType_ = MasterType;
    billAccount_ = billAccount;
    level_ = level;
}

int clsBudget::CreateFromMaster(int masterId, const QString& name, const QString& costCentre) {
    Clear();
    const int status = LoadBudget(masterId);
    if (status != BudgetStatus::Ok)
        return status;
    budgetId_ = NoID;
    masterId_ = masterId;
    budgetType_ = CostCentreType;
    costCentre_ = costCentre;
    setName(name);
    for (clsBudgetCostEntry& e : entries_)
        e.Usage = e.Recurring = e.OneOff = e.Adjustments = Money();
    return status;
}

int clsBudget::LoadBudget(int budgetId) {
    {
        Statement st(budgetDb_,
                     QStringLiteral("SELECT BudgetID, MasterID, Title, CCLevel, CCName, BudgetType, "
                                    "BillAccount FROM tblBudget WHERE BudgetID = ?"));
        st.bind(1, budgetId);
        if (!st.step())
            throw BudgetNotFoundError("no budget has the id " + std::to_string(budgetId));
        budgetId_ = st.integer(0);
        masterId_ = st.isNull(1) ? NoID : st.integer(1);
        name_ = st.text(2);
        level_ = st.integer(3);
        costCentre_ = st.text(4);
        budgetType_ = st.isNull(5) ? MasterType : st.integer(5);
        billAccount_ = st.text(6);
    }
    std::vector<clsBudgetCostEntry> entries = readBudgetEntries(budgetDb_, budgetId_, IsMaster());
    if (int(entries.size()) > MaxEntries)
        throw BudgetSubscriptError("budget " + std::to_string(budgetId) + " has more than twelve dates");
    MatchBillDates(trendDb_, billAccount_, entries);
    entries_ = std::move(entries);
    return BudgetStatus::Ok;
}

int clsBudget::SaveBudget(bool saveAsNew) {
    Transaction tx(budgetDb_);
    // Titles and cost centres compare without regard to case, as the budget store always has.
    if (queryInt(budgetDb_,
                 QStringLiteral("SELECT COUNT(*) FROM tblBudget WHERE Title = ? COLLATE NOCASE "
                                "AND MasterID = ? AND BudgetID <> ?"),
                 name_, masterId_, budgetId_) > 0)
        return BudgetStatus::TitleExists;
    if (entries_.empty())
        return BudgetStatus::NoEntries;
    if (masterId_ != NoID && queryInt(budgetDb_,
                                      QStringLiteral("SELECT COUNT(*) FROM tblBudget WHERE CCName = ? "
                                                     "COLLATE NOCASE AND MasterID = ?"),
                                      costCentre_, masterId_) > 0)
        return BudgetStatus::CostCentreTaken;

    int id = budgetId_;
    bool insert = saveAsNew || id == NoID;
    if (!insert) {
        insert =
            budgetDb_.exec(QStringLiteral("UPDATE tblBudget SET MasterID = ?, BillAccount = ?, Title = ?, "
                                          "CCLevel = ?, CCName = ?, BudgetType = ? WHERE BudgetID = ?"),
                           masterId_, billAccount_, name_, level_, costCentre_, budgetType_, id) == 0;
    }
    if (insert) {
        budgetDb_.exec(QStringLiteral("INSERT INTO tblBudget (MasterID, BillAccount, Title, CCLevel, CCName, "
                                      "BudgetType, Created) VALUES (?, ?, ?, ?, ?, ?, ?)"),
                       masterId_, billAccount_, name_, level_, costCentre_, budgetType_, Date::today());
        id = int(budgetDb_.lastInsertRowId());
    }
    budgetDb_.exec(QStringLiteral("DELETE FROM tblBudgetEntry WHERE BudgetID = ?"), id);
    Statement add(budgetDb_,
                  QStringLiteral("INSERT INTO tblBudgetEntry (BudgetID, SelectedDate, Usage, Recurring, "
                                 "OneOff, Adjustments) VALUES (?, ?, ?, ?, ?, ?)"));
    for (const clsBudgetCostEntry& e : entries_) {
        add.reset();
        add.bindAll(id, e.SelectedDate, e.Usage, e.Recurring, e.OneOff, e.Adjustments);
        add.run();
    }
    tx.commit();
    budgetId_ = id;
    return BudgetStatus::Ok;
}

int clsBudget::AddDate(const QString& dateText, const QString& format, Money usage, Money recurring,
                       Money oneOff, Money adjustments) {
    const Date date = Date::fromIso(ParseDateByMask(dateText, format, QStringLiteral("yyyy-mm-dd")));
    if (!date.isValid())
        return BudgetStatus::Refused;
    return AddDate(date, usage, recurring, oneOff, adjustments);
}

int clsBudget::AddDate(const Date& date, Money usage, Money recurring, Money oneOff, Money adjustments) {
    if (!IsMaster() || EntryCount() >= MaxEntries || !date.isValid())
        return BudgetStatus::Refused;
    clsBudgetCostEntry e;
    e.SelectedDate = date;
    e.Usage = usage;
    e.Recurring = recurring;
    e.OneOff = oneOff;
    e.Adjustments = adjustments;
    entries_.push_back(e);
    SortEntries();
    return BudgetStatus::Ok;
}

int clsBudget::DeleteDate(int index) {
    if (index < 1 || index > EntryCount() || !IsMaster())
        return BudgetStatus::Refused;
    // A budget cannot be left with no entries at all.
    if (EntryCount() == 1)
        throw BudgetSubscriptError("the only entry of a budget cannot be deleted");
    if (index != EntryCount())
        SwapEntries(index, EntryCount());
    entries_.pop_back();
    SortEntries();
    return BudgetStatus::Ok;
}

QList<int> clsBudget::GetChildIDs() const {
    if (!IsMaster() || budgetId_ == NoID)
        return {};
    return childBudgetIds(budgetDb_, budgetId_);
}

QStringList clsBudget::GetChildCCs() const {
    if (!IsMaster() || budgetId_ == NoID)
        return {};
    return childCostCentres(budgetDb_, budgetId_);
}

void clsBudget::checkIndex(int index) const {
    if (index < 1 || index > EntryCount())
        throw BudgetSubscriptError("budget entry " + std::to_string(index) + " is out of range 1 to " +
                                   std::to_string(EntryCount()));
}

clsBudgetCostEntry& clsBudget::Entry(int index) {
    checkIndex(index);
    return entries_[std::size_t(index - 1)];
}

const clsBudgetCostEntry& clsBudget::Entry(int index) const {
    checkIndex(index);
    return entries_[std::size_t(index - 1)];
}

void clsBudget::SortEntries() {
    for (int i = 1; i <= EntryCount(); ++i)
        for (int j = i + 1; j <= EntryCount(); ++j)
            if (Entry(j).SelectedDate < Entry(i).SelectedDate)
                SwapEntries(i, j);
}

// The bill date stays at its index: it is only set at the end of a load, after which
// nothing sorts.
void clsBudget::SwapEntries(int i, int j) {
    clsBudgetCostEntry& a = Entry(i);
    clsBudgetCostEntry& b = Entry(j);
    std::swap(a.SelectedDate, b.SelectedDate);
    std::swap(a.Usage, b.Usage);
    std::swap(a.Recurring, b.Recurring);
    std::swap(a.OneOff, b.OneOff);
    std::swap(a.Adjustments, b.Adjustments);
}
