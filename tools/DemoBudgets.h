#pragma once
// The demo's history and budgets. Every regular bill is gathered into the trend store as
// the program gathers it; then each account gets a Whole Bill master over its last twelve
// bills and a Level 1 master with a cost-centre budget for every level-1 cost centre, their
// amounts taken from trend entries with percent changes, so that the budget reports have
// something to show from the first start.
#include "tools/DemoGenerator.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

struct DemoAccountBudgets {
    QString account;
    int billsGathered = 0;
    qint64 trendRows = 0;
    int wholeBillMaster = -1; // BudgetID, or -1 when the account has no bill
    int levelMaster = -1;
    QStringList costCentres; // one cost-centre budget each under the level master
};

// The titles of an account's two masters.
QString demoWholeBillTitle(const QString& account);
QString demoLevelMasterTitle(const QString& account);

// Works on the installation that writeDemoInstallation described. The level master's
// periods are the last eleven bills, one of them two days after its bill date, and a
// period a month after the last bill, which no bill has reached yet. Throws
// std::runtime_error or DbError when a bill cannot be gathered or a budget not saved.
std::vector<DemoAccountBudgets>
writeDemoTrendsAndBudgets(const DemoSummary& summary,
                          const std::function<void(const DemoAccountBudgets&)>& progress = {});
