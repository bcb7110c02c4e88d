#pragma once
// Budget and trend stores and a selected project's cost-centre table in memory, made from
// the real schemas, with hand-written rows.
#include "app/Date.h"
#include "app/Money.h"
#include "data/Database.h"

#include <QString>

namespace testing {

// Exact money from text: money("12.3456").
Money money(const char* text);

struct BudgetStores {
    BudgetStores();

    // One trend row for a service of a bill.
    void trendRow(const QString& account, const Date& billDate, const QString& service, Money usage = {},
                  Money recurring = {}, Money oneOff = {}, Money adjustments = {});
    // A service number under cost centres of levels 1 and 2 of an account, in the project's
    // TblCC as selection writes it.
    void costCentre(const QString& account, const QString& tel, const QString& level1,
                    const QString& level2 = {});

    // Rows written straight into the budget store, bypassing the model.
    int master(const QString& title, const QString& account, int level);
    int child(int masterId, const QString& title, const QString& account, int level,
              const QString& costCentre);
    void entry(int budgetId, const Date& date, Money usage = {}, Money recurring = {}, Money oneOff = {},
               Money adjustments = {});

    int budgetRows(int budgetId);
    int entryRows(int budgetId);
    // Every row of both budget tables as one text, to tell whether anything changed.
    QString budgetDump();

    Database budgetDb;
    Database trendDb;
    Database projectDb;
};

} // namespace testing
