#pragma once
// Failures of the budget model that are not status codes: they pass to the caller,
// which shows them as any other unexpected failure.
#include <stdexcept>

// An entry index outside the live entries, a deletion that would leave a budget with no
// entries, or a stored budget with more dates than a budget can hold.
class BudgetSubscriptError : public std::out_of_range {
public:
    using std::out_of_range::out_of_range;
};

// LoadBudget of an id that has no row.
class BudgetNotFoundError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};
