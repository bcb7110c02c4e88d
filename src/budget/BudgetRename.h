#pragma once
// Renaming a budget in place, as the budget list edits a name.
#include <QString>
#include <optional>

class Database;

// The title stored for a name typed into the list: quotes removed and, for a child, the
// shown prefix of its master's title and "." removed wherever it stands (an orphan's shown
// prefix is a lone leading "."), cut to the 50 characters a title holds.
QString renamedTitle(const QString& typed, bool isChild, const std::optional<QString>& masterTitle);

struct BudgetRenameResult {
    int status = 0; // BudgetStatus: Ok, Refused (no such budget), TitleExists
    QString title;  // the title now stored
};

// Stores renamedTitle() of the typed text as the budget's title. With requireUnique, a title
// already used by another budget under the same master (or by another master) is refused.
BudgetRenameResult renameBudget(Database& budgetDb, int budgetId, const QString& typed,
                                bool requireUnique = true);
