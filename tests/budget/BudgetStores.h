#pragma once
// Budget and trend stores and a selected project's cost-centre table in memory, made from
// the real schemas, with hand-written rows.
#include "app/Date.h"
#include "app/Money.h"
#include "budget/clsBudget.h"
#include "data/Database.h"

namespace testing {

const QString Account = QStringLiteral("ACC1");

Money money(const char* text); // exact: money("12.3456")
Date d(unsigned month, unsigned day, int year = 2023);
// Amounts as "usage/recurring/oneOff/adjustments" in plain decimals: "10.1/2/0/-0.5".
QString amounts(Money usage, Money recurring, Money oneOff, Money adjustments);
QStringList entriesOf(const clsBudget& b); // "yyyy-mm-dd:amounts" for each entry in memory

struct BudgetStores {
    BudgetStores();

    void trendRow(const QString& account, const Date& billDate, const QString& service, Money usage = {},
                  Money recurring = {}, Money oneOff = {}, Money adjustments = {});
    // A number under cost centres of levels 1 and 2, in the project's TblCC as selection writes it.
    void costCentre(const QString& account, const QString& tel, const QString& level1,
                    const QString& level2 = {});

    // Rows written straight into the budget store, bypassing the model.
    int master(const QString& title, int level = 1, const QString& account = Account);
    int child(int masterId, const QString& title, const QString& costCentre, int level = 1);
    void entry(int budgetId, const Date& date, Money usage = {}, Money recurring = {}, Money oneOff = {},
               Money adjustments = {});

    QStringList entries(int budgetId); // the stored entries as entriesOf() shows them
    // Every row of both budget tables as one text, to tell whether anything changed.
    QString budgetDump();

    Database budgetDb = Database::openMemory();
    Database trendDb = Database::openMemory();
    Database projectDb = Database::openMemory();
};

} // namespace testing
