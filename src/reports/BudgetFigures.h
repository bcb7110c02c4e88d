#pragma once
// What the budget reports read: the budget (or, for the cost-centre reports, its master),
// the scope of its live data, the live sums of its dates, and per cost-centre budget the
// budgeted and live amounts of each of the master's dates.
#include "app/Date.h"
#include "app/Money.h"
#include "budget/clsBudget.h"
#include "reports/ReportFrame.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

struct AppContext;

// The four charge families of a budget entry or a bill, in view order (1 to 4).
struct FamilyAmounts {
    std::array<Money, 4> family{};
    Money total() const { return family[0] + family[1] + family[2] + family[3]; }
    // View 1 to 4 is one family; any other view the total.
    Money ofView(int view) const { return view >= 1 && view <= 4 ? family[size_t(view - 1)] : total(); }
};

std::unique_ptr<clsBudget> loadBudget(AppContext& ctx, int budgetId);
// The budget, or its master when it is a cost-centre budget.
std::unique_ptr<clsBudget> loadMaster(AppContext& ctx, int budgetId);

// The name the titles give and the service numbers of the budget's live data: the numbers
// of its children's cost centres for a master with children ("Whole Bill"); the numbers of
// its own cost centre for a budget with a level; the whole bill otherwise.
struct BudgetScope {
    QString name;
    ServiceFilter filter;
    QStringList numbers; // with an active filter
};
BudgetScope budgetScope(AppContext& ctx, const clsBudget& budget);

// The live sums of the bill of each entry's own date (exact dates only): nullopt where the
// trend store holds no bill of that date within the scope.
std::vector<std::optional<FamilyAmounts>> liveSumsByEntryDate(AppContext& ctx, const clsBudget& budget,
                                                              const BudgetScope& scope);

// One cost-centre budget of a master with, per entry of the master, the amounts of its own
// entries at the master's date and the live amounts of its cost centre's numbers on the
// bill of that entry. nullopt: no entry of that date / no live row of the centre.
struct CentreFigures {
    int budgetId = 0;
    QString costCentre; // as stored
    std::vector<std::optional<FamilyAmounts>> budget;
    std::vector<std::optional<FamilyAmounts>> live;
    // The live "PreTax Cost" sum; nullopt where no row or only nulls were summed.
    std::vector<std::optional<Money>> livePreTax;
};

// The children of `master` in store order (or ordered by cost centre, without regard to
// case, when byName); a child with an empty cost centre looks its numbers up under
// `emptyName`. Budget amounts of a child are summed over the children that share its cost
// centre when `shareByName` (one line per centre name).
struct CentreOptions {
    bool byName = false;
    QString emptyName;
    bool shareByName = false;
};
// nullopt when the user stopped it.
std::optional<std::vector<CentreFigures>> centreFigures(AppContext& ctx, const clsBudget& master,
                                                        const CentreOptions& options,
                                                        const ProgressFn& progress);
