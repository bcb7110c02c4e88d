#pragma once
// Budget and trend stores and a selected project's cost-centre table in memory, made from
// the real schemas, with hand-written rows.
#include "app/Date.h"
#include "app/Money.h"
#include "budget/clsBudget.h"
#include "data/Database.h"

#include <QStringList>

namespace testing {

const QString Account = QStringLiteral("ACC1");

// Exact money from text: money("12.3456").
Money money(const char* text);
// A day of 2023 unless told.
inline Date d(unsigned month, unsigned day, int year = 2023) {
    return Date(year, month, day);
}
// Amounts as "usage/recurring/oneOff/adjustments" in plain decimals: "10.1/2/0/-0.5".
QString amounts(Money usage, Money recurring, Money oneOff, Money adjustments);
// A budget's entries in memory as "yyyy-mm-dd:amounts".
QStringList entriesOf(const clsBudget& b);

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
    int master(const QString& title, int level = 1, const QString& account = Account);
    int child(int masterId, const QString& title, const QString& costCentre, int level = 1);
    void entry(int budgetId, const Date& date, Money usage = {}, Money recurring = {}, Money oneOff = {},
               Money adjustments = {});

    // A budget's stored entries as "yyyy-mm-dd:amounts", by date and row.
    QStringList entries(int budgetId);
    // Every row of both budget tables as one text, to tell whether anything changed.
    QString budgetDump();

    Database budgetDb;
    Database trendDb;
    Database projectDb;
};

} // namespace testing
