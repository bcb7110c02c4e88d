#include "data/TrendTotals.h"

#include "app/Date.h"
#include "data/Database.h"
#include "data/Stores.h"

namespace {

QString quoted(QString name) {
    return QLatin1Char('"') + name.replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"');
}

// Column names cannot be parameters; these come from the trend table itself.
QString totalsInsert(Database& trendDb, const QString& where) {
    QStringList names;
    QStringList sums;
    for (const QString& column : trendMoneyColumns(trendDb)) {
        names << quoted(column);
        sums << QStringLiteral("SUM(%1)").arg(quoted(column));
    }
    return QStringLiteral("INSERT INTO %1 (BillAccount, BillDate, \"Rows\", %2) "
                          "SELECT BillAccount, BillDate, count(*), %3 FROM TblSummaryTrend%4 "
                          "GROUP BY BillAccount, BillDate")
        .arg(TrendTotals::Table, names.join(QStringLiteral(", ")), sums.join(QStringLiteral(", ")), where);
}

// Codes that differ only in case are one product, shown by the first spelling in code order.
QString productInsert(const QString& where) {
    return QStringLiteral(
               "INSERT INTO %1 (BillAccount, BillDate, \"Product Code\", \"PreTax Cost\") "
               "SELECT BillAccount, BillDate, MIN(\"Product Code\"), SUM(\"PreTax Cost\") "
               "FROM TblSummaryTrend%2 GROUP BY BillAccount, BillDate, \"Product Code\" COLLATE NOCASE")
        .arg(TrendTotals::ProductTable, where);
}

} // namespace

void ensureTrendTotals(Database& trendDb) {
    if (!trendDb.tableExists(QStringLiteral("TblSummaryTrend")))
        return;
    const bool present =
        trendDb.tableExists(TrendTotals::Table) && trendDb.tableExists(TrendTotals::ProductTable);
    if (present &&
        queryInt(trendDb, QStringLiteral("SELECT count(*) FROM TblSummaryTrend")) ==
            queryInt(trendDb,
                     QStringLiteral("SELECT ifnull(SUM(\"Rows\"), 0) FROM %1").arg(TrendTotals::Table)))
        return;
    Transaction tx(trendDb);
    if (!present)
        createTrendTotalsTables(trendDb);
    rebuildTrendTotals(trendDb);
    tx.commit();
}

void createTrendTotalsTables(Database& trendDb) {
    QStringList columns;
    for (const QString& column : trendMoneyColumns(trendDb))
        columns << quoted(column) + QStringLiteral(" CURRENCY");
    trendDb.execScript(
        QStringLiteral(
            "DROP TABLE IF EXISTS %1; DROP TABLE IF EXISTS %3;"
            "CREATE TABLE %1 (BillAccount VARCHAR(50), BillDate DATE, \"Rows\" INTEGER, %2, "
            "PRIMARY KEY (BillAccount, BillDate));"
            "CREATE TABLE %3 (BillAccount VARCHAR(50), BillDate DATE, \"Product Code\" VARCHAR(30), "
            "\"PreTax Cost\" CURRENCY);"
            "CREATE INDEX idxTrendProductTotals ON %3 (BillAccount, BillDate);")
            .arg(TrendTotals::Table, columns.join(QStringLiteral(", ")), TrendTotals::ProductTable));
}

void refreshTrendTotals(Database& trendDb, const QString& account, const Date& billDate) {
    const QString where = QStringLiteral(" WHERE BillAccount = ? AND BillDate = ?");
    for (const QString& table : {TrendTotals::Table, TrendTotals::ProductTable})
        trendDb.exec(QStringLiteral("DELETE FROM %1").arg(table) + where, account, billDate);
    trendDb.exec(totalsInsert(trendDb, where), account, billDate);
    trendDb.exec(productInsert(where), account, billDate);
}

void rebuildTrendTotals(Database& trendDb) {
    trendDb.execScript(
        QStringLiteral("DELETE FROM %1; DELETE FROM %2;").arg(TrendTotals::Table, TrendTotals::ProductTable));
    trendDb.exec(totalsInsert(trendDb, QString()));
    trendDb.exec(productInsert(QString()));
}
