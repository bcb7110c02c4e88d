#pragma once
// A selected project of one account with four bills, a level-1 master of five cost-centre
// budgets and a whole-bill master, for the budget report tests. The figures are laid out
// in BudgetFixture.cpp, where each expectation of the golden files can be worked out.
#include "TrendFixture.h"

class BudgetFixture : public TrendFixture {
public:
    BudgetFixture();

    int master(const QString& title, int level);
    int child(int masterId, const QString& costCentre);
    void entry(int budgetId, const Date& date, Money usage, Money recurring = {}, Money oneOff = {},
               Money adjustments = {});

    int levelMaster = 0, wholeBill = 0, finance = 0, sales = 0, exact = 0;
};
