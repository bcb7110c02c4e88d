#pragma once
// One dated row of a budget: four budgeted amounts at a budget date, and the bill date
// that the budget date stands for.
#include "app/Date.h"
#include "app/Money.h"

struct clsBudgetCostEntry {
    Money Usage;
    Money Recurring;
    Money OneOff;
    Money Adjustments;
    Date SelectedDate;
    // Set only when the budget is loaded from the store; null on an entry made in memory.
    Date BillDate;
};
