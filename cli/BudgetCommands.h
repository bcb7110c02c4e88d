#pragma once
// The budget commands of vantrel-cli. Each returns the process exit code: 0 done, 1 refused
// or failed (the reason on stderr, in the words the budget forms use), 2 a usage error.
#include <QStringList>

struct AppContext;

// "budgets": every budget as the budget management list shows it, one tab-separated line
// each, BudgetID first, after a line of headings.
int budgetsCommand(AppContext& ctx, const QStringList& args);
// "budget-master --title T --level L (--account A | --project P) --dates D,D,...
//  [--trend-date D,...] [--percent P,...]": a new master budget; a Whole Bill master
// (level 0) with a trend date or percent also gets its amounts from the trend store.
int budgetMasterCommand(AppContext& ctx, const QStringList& args);
// "budget-cc --master ID|TITLE --project P --title T --cost-centre NAME [--trend-date D,...]
//  [--percent P,...]": a new cost-centre budget with amounts from the trend store; the cost
//  centres and their services are those of the selected project P.
int budgetCostCentreCommand(AppContext& ctx, const QStringList& args);
// "budget-delete ID": a budget; a master with all its cost-centre budgets.
int budgetDeleteCommand(AppContext& ctx, const QStringList& args);
// "budget-rename ID NAME": a new title, as an edit in the budget list stores it.
int budgetRenameCommand(AppContext& ctx, const QStringList& args);

// The usage lines of these commands, for the tool's help text.
extern const char* const BudgetCommandsUsage;
