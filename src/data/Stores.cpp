#include "data/Stores.h"

#include "app/AppContext.h"
#include "data/Database.h"
#include "data/Schema.h"
#include "data/TrendTotals.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

// The tables a store must hold to be taken for that store.
QStringList requiredTables(const QString& file) {
    if (file == StoreFile::Budgets)
        return {QStringLiteral("tblBudget"), QStringLiteral("tblBudgetEntry")};
    if (file == StoreFile::CostCentres)
        return {QStringLiteral("TblCC")};
    if (file == StoreFile::Telephones)
        return {QStringLiteral("TblTel"), QStringLiteral("TblPhoneBook")};
    return {};
}

Database openStore(const QString& path, const QString& file) {
    Database db = Database::open(path, Database::Mode::ReadWrite);
    for (const QString& table : requiredTables(file))
        if (!db.tableExists(table))
            throw DbError(QStringLiteral("%1: the table %2 is missing").arg(path, table), 1);
    return db;
}

QString asideName(const QString& path) {
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    QString aside = path + QStringLiteral(".unreadable-") + stamp;
    for (int n = 2; QFileInfo::exists(aside); ++n)
        aside = path + QStringLiteral(".unreadable-") + stamp + QStringLiteral("-%1").arg(n);
    return aside;
}

// Opens one store; for the budget and trend stores, restores the template once when
// the store will not open. Returns a closed database on failure, with the report filled.
Database openWithRestore(AppContext& ctx, const QString& file, const QString& templateFile,
                         StoreOpenReport& report) {
    const QString path = QDir(ctx.paths->AppFolder).filePath(file);
    try {
        return openStore(path, file);
    } catch (const DbError& e) {
        if (e.isBusy() || templateFile.isEmpty()) {
            report.ok = false;
            report.locked = report.locked || e.isBusy();
            report.problems << (e.isBusy() ? QStringLiteral("%1 is in use by another program.").arg(path)
                                           : e.message());
            return Database();
        }
        const QString templatePath = QDir(ctx.paths->DataSystemFolder).filePath(templateFile);
        if (!QFileInfo::exists(templatePath)) {
            report.ok = false;
            report.problems << e.message() << QStringLiteral("The template %1 is missing.").arg(templatePath);
            return Database();
        }
        if (QFileInfo::exists(path)) {
            const QString aside = asideName(path);
            if (!QFile::rename(path, aside)) {
                report.ok = false;
                report.problems
                    << e.message()
                    << QStringLiteral("%1 could not be set aside, so it was not replaced.").arg(path);
                return Database();
            }
            report.setAside << aside;
        }
        if (!QFile::copy(templatePath, path)) {
            report.ok = false;
            report.problems << QStringLiteral("%1 could not be copied to %2.").arg(templatePath, path);
            return Database();
        }
        // A template copied from a read-only install keeps its mode; the store must be writable.
        QFile(path).setPermissions(QFile(path).permissions() | QFileDevice::WriteOwner);
        report.restored << path;
        try {
            return openStore(path, file);
        } catch (const DbError& again) {
            report.ok = false;
            report.problems << again.message();
            return Database();
        }
    }
}

} // namespace

StoreOpenReport openStores(AppContext& ctx) {
    StoreOpenReport report;
    ctx.budgetDb = openWithRestore(ctx, StoreFile::Budgets, StoreFile::BudgetsTemplate, report);
    ctx.trendDb = openWithRestore(ctx, StoreFile::Trend, StoreFile::TrendTemplate, report);
    ctx.costCentreDb = openWithRestore(ctx, StoreFile::CostCentres, QString(), report);
    ctx.telDb = openWithRestore(ctx, StoreFile::Telephones, QString(), report);
    return report;
}

void UpgradeStores(Database& budgetDb, Database& trendDb) {
    // Older budget stores lack the hierarchy columns. A store that already has
    // MasterID is taken as up to date, even without BudgetType.
    try {
        if (budgetDb.isOpen() &&
            !budgetDb.columnExists(QStringLiteral("tblBudget"), QStringLiteral("MasterID"))) {
            Transaction tx(budgetDb);
            budgetDb.execScript(
                QStringLiteral("ALTER TABLE tblBudget ADD COLUMN MasterID INTEGER DEFAULT -1"));
            if (!budgetDb.columnExists(QStringLiteral("tblBudget"), QStringLiteral("BudgetType")))
                budgetDb.execScript(
                    QStringLiteral("ALTER TABLE tblBudget ADD COLUMN BudgetType INTEGER DEFAULT -1"));
            budgetDb.exec(QStringLiteral("UPDATE tblBudget SET MasterID = -1 WHERE MasterID IS NULL"));
            budgetDb.exec(QStringLiteral("UPDATE tblBudget SET BudgetType = -1 WHERE BudgetType IS NULL"));
            tx.commit();
        }
    } catch (const DbError&) {
        // An upgrade that cannot be made leaves the store as it was; nothing is shown.
    }
    try {
        if (trendDb.isOpen() && !trendDb.tableExists(QStringLiteral("tblSummaryTrend")))
            CreateTrendTable(trendDb);
        else if (trendDb.isOpen())
            addTrendIndexes(trendDb);
    } catch (const DbError&) {
    }
}

void addTrendIndexes(Database& trendDb) {
    // Stores made before the figures index took its present shape get it once; the
    // narrower indexes it replaces go.
    const QStringList figures{
        QStringLiteral("BillAccount"),       QStringLiteral("BillDate"),
        QStringLiteral("Service No"),        QStringLiteral("Usage Charges"),
        QStringLiteral("Recurring Charges"), QStringLiteral("One Off Charges and Credits"),
        QStringLiteral("Adjustments"),       QStringLiteral("PreTax Cost"),
        QStringLiteral("Telemarketing")};
    QString shape;
    {
        Statement st(trendDb,
                     QStringLiteral("SELECT group_concat(name, '|') FROM (SELECT name FROM "
                                    "pragma_index_info('idxTrendAccountDateFigures') ORDER BY seqno)"));
        if (st.step())
            shape = st.text(0);
    }
    if (shape == figures.join(QLatin1Char('|')))
        return;
    Transaction tx(trendDb);
    trendDb.execScript(QStringLiteral("DROP INDEX IF EXISTS idxTrendAccountDate;"
                                      "DROP INDEX IF EXISTS idxTrendAccountDateTotals;"
                                      "DROP INDEX IF EXISTS idxTrendAccountDateFigures;"
                                      "CREATE INDEX idxTrendAccountDateFigures ON TblSummaryTrend (\"%1\");"
                                      "CREATE INDEX IF NOT EXISTS idxTrendAccountService ON TblSummaryTrend "
                                      "(BillAccount, \"Service No\");")
                           .arg(figures.join(QStringLiteral("\", \""))));
    tx.commit();
}

void CreateTrendTable(Database& trendDb) {
    Transaction tx(trendDb);
    trendDb.execScript(schemaText(QStringLiteral("trend")));
    createTrendTotalsTables(trendDb);
    tx.commit();
}

QStringList trendMoneyColumns(Database& trendDb) {
    QStringList names;
    Statement st(trendDb, QStringLiteral("SELECT name FROM pragma_table_info('tblSummaryTrend') "
                                         "WHERE upper(type) = 'CURRENCY' ORDER BY cid"));
    while (st.step())
        names << st.text(0);
    return names;
}

void ZeroNullTrendColumns(Database& trendDb) {
    const QStringList columns = trendMoneyColumns(trendDb);
    if (columns.isEmpty())
        return;
    // One pass over the table for all columns: the table can hold millions of rows.
    // Column names cannot be parameters; these come from the table itself.
    QStringList sets;
    QStringList tests;
    for (QString column : columns) {
        column.replace(QLatin1Char('"'), QStringLiteral("\"\""));
        sets << QStringLiteral("\"%1\" = coalesce(\"%1\", 0)").arg(column);
        tests << QStringLiteral("\"%1\" IS NULL").arg(column);
    }
    Transaction tx(trendDb);
    const int changed =
        trendDb.exec(QStringLiteral("UPDATE tblSummaryTrend SET %1 WHERE %2")
                         .arg(sets.join(QStringLiteral(", ")), tests.join(QStringLiteral(" OR "))));
    // A sum of Nulls was Null and is now 0: the bill totals follow.
    if (changed > 0 && trendDb.tableExists(TrendTotals::Table))
        rebuildTrendTotals(trendDb);
    tx.commit();
}
