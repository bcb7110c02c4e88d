#pragma once
// The budgets the budget reports can be run on, as their menu lists them: per master its
// own line (a level master only when it has cost-centre budgets: alone it has nothing to
// report), then its children as "Master.Child", masters by title, children by title.
#include <QList>
#include <QString>
#include <optional>

class Database;

struct BudgetChoice {
    int budgetId = 0;
    QString text;
    int level = 0;
};

QList<BudgetChoice> budgetReportChoices(Database& budgetDb, const QString& account);

// The budget a command line names: its id, or the text the list shows (a master's title
// or "Master.Child"), without regard to case.
std::optional<int> findBudgetChoice(const QList<BudgetChoice>& choices, const QString& idOrText);
