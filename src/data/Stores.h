#pragma once
// Opening the four installed stores, restoring the budget and trend stores from
// their templates, and bringing older stores up to date.
#include <QString>
#include <QStringList>

struct AppContext;
class Database;
class cPathControl;

struct StoreOpenReport {
    bool ok = true;
    QStringList restored; // stores copied in from their templates
    QStringList setAside; // unreadable stores renamed before the restore
    QStringList problems; // one line per store that could not be opened
    bool locked = false;  // a store is held by another program
};

// The store file names, as the host product knows them.
namespace StoreFile {
inline const QString Budgets = QStringLiteral("budgets.mdb");
inline const QString Trend = QStringLiteral("trend.mdb");
inline const QString CostCentres = QStringLiteral("costcentres2.mdb");
inline const QString Telephones = QStringLiteral("tel.mdb");
inline const QString BudgetsTemplate = QStringLiteral("budgets.bak");
inline const QString TrendTemplate = QStringLiteral("trend.bak");
} // namespace StoreFile

// Opens budgets, trend, cost-centre and telephone stores into the context. A budget
// or trend store that will not open is renamed aside (name.unreadable-YYYYMMDD-HHMMSS)
// and replaced by its template; only the store that failed is touched. A store that
// another program holds locked is never replaced.
StoreOpenReport openStores(AppContext& ctx);

// Adds MasterID and BudgetType to an older budget store (a store that already has
// MasterID is left as it is) and creates the trend table when it is missing.
void UpgradeStores(Database& budgetDb, Database& trendDb);

// Sets every Null money column of the trend table to 0.
void ZeroNullTrendColumns(Database& trendDb);

// Gives an older trend table the indexes the reports read through.
void addTrendIndexes(Database& trendDb);

// Creates the trend table (82 columns) and its indexes.
void CreateTrendTable(Database& trendDb);

// The money columns of the trend table, in table order.
QStringList trendMoneyColumns(Database& trendDb);
