#include "TempDir.h"
#include "TestRegistry.h"
#include "data/Database.h"
#include "data/ProjectHistory.h"
#include "tools/DemoCommand.h"
#include "tools/DemoGenerator.h"

#include <QDirIterator>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

namespace {

template <typename... Args> QStringList textColumn(Database& db, const QString& sql, const Args&... args) {
    QStringList values;
    Statement st = db.prepare(sql);
    st.bindAll(args...);
    while (st.step())
        values << (st.isNull(0) ? QStringLiteral("<null>") : st.text(0));
    return values;
}

// A regular bill project: "<account>_<yyyymmdd>.mdb".
const QRegularExpression RegularName("^([A-Z0-9]+)_(\\d{4})(\\d{2})(\\d{2})\\.mdb$");

// The paths of a folder's regular bill projects (of one account when given), by name.
QStringList regularProjects(const QString& folder, const QString& account = QString()) {
    QStringList paths;
    for (const QString& name : QDir(folder).entryList({"*.mdb"}, QDir::Files, QDir::Name)) {
        const auto m = RegularName.match(name);
        if (m.hasMatch() && (account.isEmpty() || m.captured(1) == account))
            paths << QDir(folder).filePath(name);
    }
    return paths;
}

// The sub-classes with a column of their own in the trend table.
const QString NamedSubClasses =
    "26, 27, 28, 35, 38, 95, 106, 241, 242, 244, 130, 131, 132, 133, 134, 135, 136, 210, 211, 212, 213, 224, "
    "225, 215, 221, 124, 125, 126, 127, 128, 129, 226, 227, 228, 229, 230, 231, 232, 246, 237, 238, 239, 236";
// A product code described in the look-up table (%1 is the code).
const QString Described = "EXISTS (SELECT 1 FROM Tbl017 l WHERE l.ColumnName IN ('Product Service Code', "
                          "'Service Type') AND l.Enumeration = %1)";

} // namespace

// The demo installation and the demo command that writes it.
class DemoTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void billsAreConsecutiveMonthsNamedByBillDate();
    void everyBillHolds_data();
    void everyBillHolds();
    void costCentresAndTelephones();
    void specialProjects();
    void sameSeedGivesSameContent();
    void badArgumentsAreRefused_data();
    void badArgumentsAreRefused();
    void commandLineNamesABadValue();
    void commandWritesTrendsBudgetsAndRecentProjects();

private:
    testing::TempDir dir_;
    DemoSummary summary_;
    QStringList bills_; // the regular bills and the benchmark projects
};

void DemoTest::initTestCase() {
    summary_ = writeDemoInstallation({dir_.path(), 11, 2, 3, 400});
    // Three bills per account plus the two special projects, and the four stores.
    QCOMPARE(int(summary_.files.size()), 4 + 8);
    // The reported counts are the real ones.
    for (const DemoFile& f : summary_.files) {
        Database db = Database::open(f.path, Database::Mode::ReadOnly);
        for (const auto& [table, rows] : f.tables)
            QCOMPARE(queryInt(db, QString("SELECT COUNT(*) FROM \"%1\"").arg(table)), rows);
    }
    // A benchmark project holds what was asked; a tiny request still gets one line of every kind.
    const Date billDate(2025, 2, 28);
    const DemoFile big = writeDemoProject(dir_.path("big.mdb"), "VL100200", billDate, 2500, 3);
    const DemoFile tiny = writeDemoProject(dir_.path("tiny.mdb"), "VL100200", billDate, 1, 3);
    Database db = Database::open(big.path, Database::Mode::ReadOnly);
    QCOMPARE(textColumn(db, "SELECT VeloraAccount || ' ' || CreateDate || ' ' || Imports || ' ' || (SELECT "
                            "COUNT(*) FROM Tbl307) || ' ' || (SELECT COUNT(*) > 0 FROM Tbl997) FROM Tbl50"),
             QStringList{"VL100200 28/02/2025 O 2500 1"});
    bills_ = regularProjects(summary_.projectFolder) << big.path << tiny.path;
}

void DemoTest::billsAreConsecutiveMonthsNamedByBillDate() {
    for (const QString& account : summary_.accounts) {
        const QStringList bills = regularProjects(summary_.projectFolder, account);
        QCOMPARE(bills.size(), 3);
        int previousMonth = 0;
        for (const QString& bill : bills) {
            const auto m = RegularName.match(QFileInfo(bill).fileName());
            const Date billDate(m.captured(2).toInt(), m.captured(3).toUInt(), m.captured(4).toUInt());
            const int month = billDate.year() * 12 + int(billDate.month());
            QVERIFY(previousMonth == 0 || month == previousMonth + 1);
            previousMonth = month;
            // The bill period is the month up to the day before the bill date.
            Database db = Database::open(bill, Database::Mode::ReadOnly);
            QCOMPARE(textColumn(db, "SELECT VeloraAccount || ' ' || CreateDate || ' ' || (SELECT StartDate "
                                    "|| ' ' || EndDate FROM TblCallSummary1) FROM Tbl50"),
                     QStringList(QString("%1 %2/%3/%4 %5 %6")
                                     .arg(account, m.captured(4), m.captured(3), m.captured(2),
                                          billDate.addMonths(-1).toIso(), billDate.addDays(-1).toIso())));
        }
    }
}

// Each row is a query on Tbl307 (charge lines) that must give 1 for every bill.
void DemoTest::everyBillHolds_data() {
    QTest::addColumn<QString>("sql");
    const auto row = [](const char* name, const QString& sql) { QTest::newRow(name) << "SELECT " + sql; };
    row("every event class", "COUNT(DISTINCT EventClass) = 4 FROM Tbl307 WHERE EventClass BETWEEN 1 AND 4");
    row("every named sub-class",
        "COUNT(DISTINCT EventSubClass) = 43 FROM Tbl307 WHERE EventSubClass IN (" + NamedSubClasses + ")");
    // Residual lines, of no named sub-class; one of a rental period that a summary row can be matched with.
    row("residual lines of every class", "COUNT(DISTINCT EventClass) = 3 FROM Tbl307 WHERE EventClass IN (1, "
                                         "2, 3) AND EventSubClass NOT IN (" +
                                             NamedSubClasses + ")");
    row("residual rental with a period", "COUNT(*) > 0 FROM Tbl307 WHERE EventClass = 3 AND EventSubClass IN "
                                         "(30, 243) AND RentalStartDate IS NOT NULL");
    row("dated by rental, by usage, or not at all",
        "MIN(SUM(RentalStartDate IS NOT NULL), SUM(UsageStartDate IS NOT NULL), SUM(UsageStartDate IS NULL "
        "AND RentalStartDate IS NULL)) > 0 FROM Tbl307");
    row("only real ISO dates, no period ending before it starts",
        "COUNT(*) = 0 FROM Tbl307 WHERE (RentalStartDate IS NOT NULL AND (date(RentalStartDate) IS NOT "
        "RentalStartDate OR date(RentalEndDate) IS NOT RentalEndDate OR RentalEndDate < RentalStartDate)) OR "
        "(UsageStartDate IS NOT NULL AND (date(UsageStartDate) IS NOT UsageStartDate OR UsageEndDate < "
        "UsageStartDate))");
    // Tax within a ten-thousandth of the rate, amounts stored as whole ten-thousandths.
    row("amounts add up", "COUNT(*) = 0 FROM Tbl307 WHERE BillCost <> PreTaxCost + TaxCost OR PreTaxCost <> "
                          "PreDiscountCost + TotalDiscount OR abs(TaxCost - PreTaxCost * TaxRate / 100.0) > "
                          "0.5 OR typeof(BillCost) <> 'integer' OR ifnull(TaxDescription, '') = ''");
    row("three tax rates, no other", "group_concat(rate) = '0,175,200' FROM (SELECT DISTINCT CAST(TaxRate * "
                                     "10 AS INTEGER) AS rate FROM Tbl307 ORDER BY 1)");
    row("discounts in three classes",
        "COUNT(DISTINCT EventClass) = 3 FROM Tbl307 WHERE EventClass IN (1, 2, 3) AND TotalDiscount <> 0");
    row("discount products of charged services, described",
        "COUNT(*) > 0 FROM Tbl407 d JOIN Tbl017 l ON l.Enumeration = d.DiscountProduct WHERE d.ServiceNo IN "
        "(SELECT ServiceNo FROM Tbl307)");
    // The product codes with a built-in family label, and the one looked up by service type.
    row("every labelled product code, and lines without one",
        "COUNT(DISTINCT ProductCode) = 30 AND (SELECT COUNT(*) FROM Tbl307 WHERE ProductCode IS NULL) > 0 "
        "FROM Tbl307 WHERE ProductCode IN ('P00001', 'P00002', 'P00003', 'P00004', 'P00005', 'P00006', "
        "'P00007', 'P00008', 'P00009', 'P00014', 'P00015', 'P00018', 'P00019', 'P00020', 'P00021', 'P00022', "
        "'P00023', 'P00024', 'P00025', 'P00026', 'P00027', 'P00028', 'P00029', 'P00030', 'P00032', 'P00042', "
        "'P00044', 'P00045', 'P00048', 'P00031')");
    row("most codes described, some left to the built-in labels",
        "COUNT(DISTINCT CASE WHEN " + Described.arg("t.ProductCode") + " THEN ProductCode END) > 20 AND " +
            "COUNT(DISTINCT CASE WHEN NOT " + Described.arg("t.ProductCode") +
            " THEN ProductCode END) >= 4 FROM Tbl307 t WHERE ProductCode <> 'P00031'");
    row("mobile lines described by service type, and not",
        "MIN(SUM(" + Described.arg("CAST(t.ServiceType AS TEXT)") + "), SUM(NOT " +
            Described.arg("CAST(t.ServiceType AS TEXT)") +
            ")) > 0 FROM Tbl307 t WHERE ProductCode = 'P00031'");
}

void DemoTest::everyBillHolds() {
    QFETCH(QString, sql);
    for (const QString& bill : bills_) {
        Database db = Database::open(bill, Database::Mode::ReadOnly);
        QVERIFY2(queryInt(db, sql) == 1, qPrintable(bill));
    }
}

void DemoTest::costCentresAndTelephones() {
    Database db = Database::open(summary_.appFolder + "/costcentres2.mdb", Database::Mode::ReadOnly);
    db.exec("ATTACH ? AS tel", summary_.appFolder + "/tel.mdb");
    QCOMPARE(queryInt(db, "SELECT COUNT(*) FROM TblCC WHERE VeloraAccount LIKE '%AC01'"), 0);
    for (const QString& account : summary_.accounts) {
        // An "AC01" account's cost centres lie under the account less its "01"; the telephone
        // store and the bills carry the full account.
        const QString stored = account.endsWith("AC01") ? account.chopped(2) : account;
        const auto count = [&](const QString& sql, const QString& value) { return queryInt(db, sql, value); };
        QVERIFY(count("SELECT MIN((SELECT COUNT(*) FROM tel.TblTel WHERE VeloraAccount = ?1), (SELECT "
                      "COUNT(*) FROM tel.TblPhoneBook WHERE VeloraAccount = ?1))",
                      account) > 0);
        // Five levels with several names each, a name with a quote among them.
        QVERIFY(count("SELECT MIN(COUNT(DISTINCT CostCentre1), COUNT(DISTINCT CostCentre2), COUNT(DISTINCT "
                      "CostCentre3), COUNT(DISTINCT CostCentre4), COUNT(DISTINCT CostCentre5)) > 1 AND "
                      "SUM(CostCentre5 = 'St John''s') > 0 FROM TblCC WHERE VeloraAccount = ?",
                      stored) > 0);
        // Some charged services have no cost centre at all.
        db.exec("ATTACH ? AS bill", regularProjects(summary_.projectFolder, account).last());
        QVERIFY(count("SELECT COUNT(*) FROM bill.Tbl307 WHERE ServiceNo NOT IN (SELECT TelNo FROM TblCC "
                      "WHERE VeloraAccount = ?)",
                      stored) > 0);
        db.exec("DETACH bill");
    }
    QCOMPARE(summary_.accounts.filter(QRegularExpression("AC01$")).size(), 1);
    QVERIFY(queryInt(db, "SELECT COUNT(*) FROM TblCC WHERE CostCentre5 IS NULL") > 0);
}

void DemoTest::specialProjects() {
    QStringList headers;
    for (const QString& name : QDir(summary_.projectFolder).entryList({"*.mdb"}, QDir::Files)) {
        Database db = Database::open(summary_.projectFolder + '/' + name, Database::Mode::ReadOnly);
        headers << (RegularName.match(name).hasMatch() ? "regular " : "special ") +
                       textColumn(db, "SELECT CRV || '/' || upper(IMPORTS) || '/' || (SELECT COUNT(*) > 0 "
                                      "FROM Tbl997) FROM Tbl50")
                           .value(0);
    }
    // Beside the regular bills, one of the refused region and one of other imports; all hold call data.
    headers.sort();
    QCOMPARE(headers.join(", "), "regular /O/1, regular /O/1, regular /O/1, regular /O/1, regular /O/1, "
                                 "regular /O/1, special /A/1, special IRE/O/1");
}

void DemoTest::sameSeedGivesSameContent() {
    testing::TempDir a, b;
    const DemoSummary first = writeDemoInstallation({a.path(), 42, 2, 2, 300});
    writeDemoInstallation({b.path(), 42, 2, 2, 300});
    // Byte for byte, as the same steps write every file in the same order.
    for (const DemoFile& f : first.files) {
        const QString name = QDir(a.path()).relativeFilePath(f.path);
        QVERIFY2(testing::readAll(f.path) == testing::readAll(b.path(name)), qPrintable(name));
    }
    // Another seed, that of the shared installation, gives other accounts.
    QVERIFY(summary_.accounts != first.accounts);
}

void DemoTest::badArgumentsAreRefused_data() {
    QTest::addColumn<QStringList>("args");
    QTest::newRow("no folder") << QStringList{"--bills", "3"};
    QTest::newRow("bills not a number") << QStringList{"@", "--bills", "three"};
    QTest::newRow("no bills") << QStringList{"@", "--bills", "0"};
    QTest::newRow("too many bills") << QStringList{"@", "--bills", "121"};
    QTest::newRow("negative accounts") << QStringList{"@", "--accounts", "-1"};
    QTest::newRow("no lines") << QStringList{"@", "--lines-per-bill", "0"};
    QTest::newRow("seed not a number") << QStringList{"@", "--seed", "x1"};
    QTest::newRow("value missing") << QStringList{"@", "--seed"};
    QTest::newRow("unknown option") << QStringList{"@", "--colour", "red"};
    QTest::newRow("two folders") << QStringList{"@", "@other"};
}

void DemoTest::badArgumentsAreRefused() {
    QFETCH(QStringList, args);
    testing::TempDir dir;
    const QString target = dir.path("demo");
    for (QString& a : args)
        a.replace('@', target);
    QVERIFY(demoCommand(args) != 0);
    QVERIFY(!QFileInfo::exists(target)); // nothing written
}

void DemoTest::commandLineNamesABadValue() {
    const QString cli = QStringLiteral(VANTREL_BIN_DIR "/vantrel-cli");
    if (!QFileInfo::exists(cli))
        QSKIP("vantrel-cli is not built");
    QProcess p;
    p.start(cli, {"demo", dir_.path("refused"), "--bills", "many"});
    QVERIFY(p.waitForFinished(30000) && p.exitCode() != 0);
    const QString err = p.readAllStandardError();
    QVERIFY2(err.contains("--bills") && err.contains("'many'"), qPrintable(err));
}

// Every account gets its trend entries and budgets: a Whole Bill master of its bills, and a
// Level 1 master with one budget per level-1 cost centre of the central store.
void DemoTest::commandWritesTrendsBudgetsAndRecentProjects() {
    testing::TempDir dir;
    const QString target = dir.path("demo");
    QCOMPARE(
        demoCommand({target, "--accounts", "2", "--bills", "3", "--lines-per-bill", "200", "--seed", "5"}),
        0);
    Database db = Database::open(target + "/AppFolder/budgets.mdb", Database::Mode::ReadOnly);
    db.exec("ATTACH ? AS t", target + "/AppFolder/trend.mdb");
    db.exec("ATTACH ? AS c", target + "/AppFolder/costcentres2.mdb");
    const QStringList accounts = textColumn(db, "SELECT DISTINCT BillAccount FROM t.tblSummaryTrend");
    QCOMPARE(accounts.size(), 2);
    const auto column = [&](const char* sql, const QString& value) { return textColumn(db, sql, value); };
    QStringList newest;
    for (const QString& account : accounts) {
        newest << regularProjects(target + "/Projects", account).last();
        QCOMPARE(column("SELECT (SELECT COUNT(DISTINCT BillDate) FROM t.tblSummaryTrend WHERE BillAccount = "
                        "?1) || ' ' || COUNT(*) FROM tblBudgetEntry JOIN tblBudget USING (BudgetID) WHERE "
                        "BillAccount = ?1 AND CCLevel = 0",
                        account),
                 QStringList("3 3"));
        const QStringList centres = column("SELECT DISTINCT upper(CostCentre1) FROM c.TblCC WHERE "
                                           "VeloraAccount = ? AND trim(CostCentre1) <> '' ORDER BY 1",
                                           account.endsWith("AC01") ? account.chopped(2) : account);
        QVERIFY(!centres.isEmpty());
        QCOMPARE(column("SELECT upper(CCName) FROM tblBudget WHERE MasterID = (SELECT BudgetID FROM "
                        "tblBudget WHERE BillAccount = ?1 AND MasterID = -1 AND CCLevel = 1) ORDER BY 1",
                        account),
                 centres);
    }
    // The recent projects hold each account's newest bill.
    QStringList recent = LoadHistory(target + "/AppFolder");
    recent.sort();
    newest.sort();
    QCOMPARE(recent, newest);
}

VANTREL_TEST(DemoTest);
#include "tst_demo.moc"
