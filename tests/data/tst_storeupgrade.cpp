#include "StoreFixture.h"
#include "TestRegistry.h"
#include "data/Database.h"
#include "data/Schema.h"
#include "data/Stores.h"

#include <QTest>

namespace {

// The trend table's columns, letter for letter and in order (gathering fills them by position).
const QStringList TrendColumns =
    QStringLiteral(
        "BillDate|BillAccount|Service No|Source Account No|Bill Cost|Tax Cost|PreTax Cost|Total "
        "Discount|PreDiscount Cost|TaxRate|TaxDescription|Usage Charges|Recurring Charges|One Off Charges "
        "and Credits|Adjustments|Usage Start Date|Usage End Date|Rental Start Date|Rental End Date|Call "
        "Volume|Duration|Call Type|Product Code|Service Type|Source Bill Ref|CFB Account No|CFB Report "
        "No|Adjustment Description|Description 1|Description 2|Description 3|Broken Period "
        "Rental|Connection|Line Rental|Apparatus Rental|Maintenance|Network Advance Charges|Service "
        "Charge|Network Rental|Equipment Rental|Cessation Credit|Operator|Zandel Chargecard Local|Zandel "
        "Chargecard National|ZandelChargecard Inernational|Zandel Chargecard Mobile and Premium Rate|Zandel "
        "Chargecard Other|Telemarketing|Direct Dialled Local|Direct Dialled National|Direct Dialled "
        "International|Direct Dialled Mobile and Premium Rate|Direct Dialled National Rate|Direct Dialled "
        "Local Rate|Direct Dialled Other|Information Services|Network Services Local|Network Services "
        "National|Network Services International|Network Services Mobile and Premium Rate|Network Services "
        "National Rate|Network Services Local Rate|Network Services Other|Network Services Facilities|Mobile "
        "Direct Dialled|Mobile Data|Mobile Fax|Mobile SMS|Mobile Roamed|Mobile Internet|Mobile Usage "
        "Discounts|Mobile One Off Discounts|Mobile Recurring Discounts|Mobile Inclusive Calls|Discount "
        "Description|Usage Discount|Recurring Discount|One Off Discount|Mobile Other|Recurring Other|Usage "
        "Other|One Off Other")
        .split(QLatin1Char('|'));

const QString OldBudgetSchema = QStringLiteral(
    "CREATE TABLE tblBudget (BudgetID INTEGER PRIMARY KEY AUTOINCREMENT, Title TEXT, BillAccount TEXT, "
    "CCLevel INTEGER, CCName TEXT, Created DATE);"
    "CREATE TABLE tblBudgetEntry (DateID INTEGER PRIMARY KEY AUTOINCREMENT, BudgetID INTEGER, "
    "SelectedDate DATE, Usage CURRENCY, Recurring CURRENCY, OneOff CURRENCY, Adjustments CURRENCY);"
    "INSERT INTO tblBudget (Title) VALUES ('Old one');");

} // namespace

class StoreUpgradeTest : public QObject {
    Q_OBJECT
private slots:
    void trendTableHasEveryColumnInOrder();
    void upgradeAddsBothHierarchyColumns();
    void upgradeCreatesMissingTrendTable();
    void olderTrendStoreGetsTheTotalsIndex();
    void zeroingTouchesOnlyNullMoney();
};

void StoreUpgradeTest::trendTableHasEveryColumnInOrder() {
    Database db = Database::openMemory();
    CreateTrendTable(db);
    QCOMPARE(db.columnNames(QStringLiteral("tblSummaryTrend")), TrendColumns);
    QCOMPARE(trendMoneyColumns(db).size(), 59);
    // The template copied in at first start is the same table.
    Database tpl = Database::open(QStringLiteral(VANTREL_SYSTEM_DIR "/trend.bak"), Database::Mode::ReadOnly);
    QCOMPARE(tpl.columnNames(QStringLiteral("tblSummaryTrend")), TrendColumns);
    // A bill's rows are found through an index.
    Statement plan(db, QStringLiteral("EXPLAIN QUERY PLAN SELECT sum(\"Bill Cost\") FROM tblSummaryTrend "
                                      "WHERE BillAccount = ?1 AND BillDate = ?2"));
    plan.bindAll(QStringLiteral("A"), Date(2012, 1, 31));
    QString detail;
    while (plan.step())
        detail += plan.text(3);
    QVERIFY2(detail.contains(QStringLiteral("USING INDEX")), qPrintable(detail));
}

void StoreUpgradeTest::upgradeAddsBothHierarchyColumns() {
    Database budgets = Database::openMemory();
    budgets.execScript(OldBudgetSchema);
    Database trend = Database::openMemory();
    CreateTrendTable(trend);
    UpgradeStores(budgets, trend);
    QVERIFY(budgets.columnExists(QStringLiteral("tblBudget"), QStringLiteral("MasterID")));
    QVERIFY(budgets.columnExists(QStringLiteral("tblBudget"), QStringLiteral("BudgetType")));
    QCOMPARE(queryInt(budgets, QStringLiteral("SELECT MasterID = -1 AND BudgetType = -1 FROM tblBudget")), 1);
    // A new row takes the default.
    budgets.exec(QStringLiteral("INSERT INTO tblBudget (Title) VALUES ('New')"));
    QCOMPARE(queryInt(budgets, QStringLiteral("SELECT MasterID FROM tblBudget WHERE Title = 'New'")), -1);
    // A store that has MasterID already is left as it is.
    Database later = Database::openMemory();
    later.execScript(OldBudgetSchema + QStringLiteral("ALTER TABLE tblBudget ADD COLUMN MasterID INTEGER"));
    UpgradeStores(later, trend);
    QVERIFY(!later.columnExists(QStringLiteral("tblBudget"), QStringLiteral("BudgetType")));
    QCOMPARE(queryInt(later, QStringLiteral("SELECT MasterID IS NULL FROM tblBudget")), 1);
}

void StoreUpgradeTest::upgradeCreatesMissingTrendTable() {
    StoreFixture f;
    f.writeAllStores();
    Database budgets = Database::open(f.appFile(StoreFile::Budgets));
    Database trend = Database::open(f.appFile(StoreFile::Trend));
    trend.execScript(QStringLiteral("DROP TABLE tblSummaryTrend"));
    UpgradeStores(budgets, trend);
    QCOMPARE(trend.columnNames(QStringLiteral("tblSummaryTrend")), TrendColumns);
}

void StoreUpgradeTest::olderTrendStoreGetsTheTotalsIndex() {
    Database budgets = Database::openMemory();
    budgets.execScript(schemaText(QStringLiteral("budgets")));
    Database trend = Database::openMemory();
    CreateTrendTable(trend);
    trend.execScript(
        QStringLiteral("DROP INDEX idxTrendAccountDateFigures; DROP INDEX idxTrendAccountService;"
                       "CREATE INDEX idxTrendAccountDate ON TblSummaryTrend (BillAccount, BillDate)"));
    UpgradeStores(budgets, trend);
    const auto indexes = [&] {
        QStringList names;
        Statement st(trend, QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'index' AND "
                                           "tbl_name = 'TblSummaryTrend' ORDER BY name"));
        while (st.step())
            names << st.text(0);
        return names;
    };
    QCOMPARE(indexes(), QStringList({"idxTrendAccountDateFigures", "idxTrendAccountService"}));
    // A bill's totals by cost type come from the index alone.
    Statement plan(
        trend,
        QStringLiteral("EXPLAIN QUERY PLAN SELECT BillDate, sum(\"Usage Charges\"), "
                       "sum(\"Recurring Charges\"), sum(\"One Off Charges and Credits\"), "
                       "sum(Adjustments) FROM tblSummaryTrend WHERE BillAccount = ? GROUP BY BillDate"));
    plan.bind(1, QStringLiteral("A"));
    QString detail;
    while (plan.step())
        detail += plan.text(3);
    QVERIFY2(detail.contains(QStringLiteral("COVERING INDEX")), qPrintable(detail));
    UpgradeStores(budgets, trend);
    QCOMPARE(indexes().size(), 2);
}

void StoreUpgradeTest::zeroingTouchesOnlyNullMoney() {
    Database db = Database::openMemory();
    CreateTrendTable(db);
    db.exec(
        QStringLiteral("INSERT INTO tblSummaryTrend (BillDate, BillAccount, \"Bill Cost\") VALUES (?, ?, ?)"),
        Date(2012, 1, 31), QStringLiteral("O'Brien & Co"), Money::fromRaw(12345));
    ZeroNullTrendColumns(db);
    // Money that was Null is 0; text and numbers that are not money stay Null.
    Statement st(db,
                 QStringLiteral("SELECT quote(\"Bill Cost\") || ' ' || quote(\"Usage Charges\") || ' ' || "
                                "quote(\"Mobile Other\") || ' ' || quote(\"One Off Other\") || ' ' || "
                                "quote(\"Product Code\") || ' ' || quote(TaxRate) || ' ' || quote(\"Call "
                                "Volume\") FROM tblSummaryTrend"));
    QVERIFY(st.step());
    QCOMPARE(st.text(0), QStringLiteral("12345 0 0 0 NULL NULL NULL"));
}

VANTREL_TEST(StoreUpgradeTest);
#include "tst_storeupgrade.moc"
