#pragma once
// Renaming a budget in place, as the budget list edits a name.
#include <QString>
#include <optional>

class Database;

// The title stored for a name typed into the list: quotes removed and, for a child, the
// shown prefix of its master's title and "." removed wherever it stands, cut to the 50
// characters a title holds. A child whose master is gone has no prefix to find: nullopt,
// and its title stays as stored.
std::optional<QString> renamedTitle(const QString& typed, bool isChild,
                                    const std::optional<QString>& masterTitle);

struct BudgetRenameResult {
    int status = 0; // BudgetStatus: Ok, Refused (no such budget, or a child whose master is gone)
    QString title;  // the title now stored
};

// Stores renamedTitle() of the typed text as the budget's title. A rename is not held to the
// uniqueness of titles that saving a budget is: two budgets may share a title.
BudgetRenameResult renameBudget(Database& budgetDb, int budgetId, const QString& typed);
