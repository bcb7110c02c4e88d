#include "DemoQueries.h"
#include "TempDir.h"
#include "TestRegistry.h"
#include "tools/DemoGenerator.h"

#include <QFileInfo>
#include <QTest>

using namespace demotest;

// The sub-classes with a column of their own in the trend table.
static const std::set<int> NamedSubClasses = {26,  27,  28,  35,  38,  95,  106, 241, 242, 244, 130,
                                              131, 132, 133, 134, 135, 136, 210, 211, 212, 213, 224,
                                              225, 215, 221, 124, 125, 126, 127, 128, 129, 226, 227,
                                              228, 229, 230, 231, 232, 246, 237, 238, 239, 236};

// The product codes with a built-in family label, and the one looked up by service type.
static const QStringList ProductCodes = {
    "P00001", "P00002", "P00003", "P00004", "P00005", "P00006", "P00007", "P00008", "P00009", "P00014",
    "P00015", "P00018", "P00019", "P00020", "P00021", "P00022", "P00023", "P00024", "P00025", "P00026",
    "P00027", "P00028", "P00029", "P00030", "P00032", "P00042", "P00044", "P00045", "P00048", "P00031"};

class DemoDataTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void writesStoresAndProjects();
    void billsAreConsecutiveMonthsNamedByBillDate();
    void everyBillCoversEveryClassAndNamedSubClass_data();
    void everyBillCoversEveryClassAndNamedSubClass();
    void everyBillHasResidualLines_data();
    void everyBillHasResidualLines();
    void linesAreDatedByUsageOrRental();
    void amountsAddUp();
    void severalTaxRatesAndDiscounts();
    void productCodesFoundAndNotFoundInLookup();
    void ac01AccountKeepsCostCentresUnderShortenedAccount();
    void costCentresHaveFiveLevels();
    void specialProjects();
    void billsDriftFromMonthToMonth();
    void singleProjectForBenchmarks();

private:
    void addBillRows();
    testing::TempDir dir_;
    DemoSummary summary_;
};

void DemoDataTest::initTestCase() {
    DemoOptions o;
    o.folder = dir_.path();
    o.seed = 11;
    o.accounts = 2;
    o.bills = 3;
    o.linesPerBill = 400;
    summary_ = writeDemoInstallation(o);
}

void DemoDataTest::addBillRows() {
    QTest::addColumn<QString>("project");
    for (const QString& name : regularProjects(summary_.projectFolder))
        QTest::newRow(qPrintable(name)) << QDir(summary_.projectFolder).filePath(name);
}

void DemoDataTest::writesStoresAndProjects() {
    const QDir app(summary_.appFolder);
    for (const char* store : {"budgets.mdb", "trend.mdb", "costcentres2.mdb", "tel.mdb"})
        QVERIFY2(QFileInfo::exists(app.filePath(QLatin1String(store))), store);
    QCOMPARE(summary_.accounts.size(), 2);
    // Three bills per account plus the two special projects.
    QCOMPARE(projectFiles(summary_.projectFolder).size(), 8);
    QCOMPARE(regularProjects(summary_.projectFolder).size(), 6);
    QCOMPARE(int(summary_.files.size()), 4 + 8);

    Database trend = Database::open(app.filePath("trend.mdb"), Database::Mode::ReadOnly);
    QCOMPARE(queryInt(trend, QStringLiteral("SELECT COUNT(*) FROM tblSummaryTrend")), 0);
    Database budgets = Database::open(app.filePath("budgets.mdb"), Database::Mode::ReadOnly);
    QCOMPARE(queryInt(budgets, QStringLiteral("SELECT COUNT(*) FROM tblBudget")), 0);

    // The reported counts are the real ones.
    for (const DemoFile& f : summary_.files) {
        Database db = Database::open(f.path, Database::Mode::ReadOnly);
        for (const auto& [table, rows] : f.tables)
            QCOMPARE(queryInt(db, QStringLiteral("SELECT COUNT(*) FROM \"%1\"").arg(table)), rows);
    }
}

void DemoDataTest::billsAreConsecutiveMonthsNamedByBillDate() {
    for (const QString& account : summary_.accounts) {
        const QStringList bills = regularProjects(summary_.projectFolder, account);
        QCOMPARE(bills.size(), 3);
        int previousMonth = -1;
        for (const QString& name : bills) {
            const auto m = regularProjectName().match(name);
            Database db =
                Database::open(QDir(summary_.projectFolder).filePath(name), Database::Mode::ReadOnly);
            Statement st = db.prepare(QStringLiteral("SELECT VeloraAccount, CreateDate FROM Tbl50"));
            QVERIFY(st.step());
            QCOMPARE(st.text(0), account);
            const QString expected = m.captured(4) + "/" + m.captured(3) + "/" + m.captured(2);
            QCOMPARE(st.text(1), expected);
            QVERIFY(!st.step()); // one header row

            const int month = m.captured(2).toInt() * 12 + m.captured(3).toInt();
            if (previousMonth >= 0)
                QCOMPARE(month, previousMonth + 1);
            previousMonth = month;

            // The bill period is the month up to the day before the bill date.
            Statement period = db.prepare(QStringLiteral("SELECT StartDate, EndDate FROM TblCallSummary1"));
            QVERIFY(period.step());
            const Date billDate(m.captured(2).toInt(), m.captured(3).toUInt(), m.captured(4).toUInt());
            QCOMPARE(period.date(1), billDate.addDays(-1));
            QCOMPARE(period.date(0), billDate.addMonths(-1));
        }
    }
}

void DemoDataTest::everyBillCoversEveryClassAndNamedSubClass_data() {
    addBillRows();
}

void DemoDataTest::everyBillCoversEveryClassAndNamedSubClass() {
    QFETCH(QString, project);
    Database db = Database::open(project, Database::Mode::ReadOnly);
    QCOMPARE(intSet(db, QStringLiteral("SELECT DISTINCT EventClass FROM Tbl307")),
             (std::set<int>{1, 2, 3, 4}));
    const std::set<int> present = intSet(db, QStringLiteral("SELECT DISTINCT EventSubClass FROM Tbl307"));
    for (int sub : NamedSubClasses)
        QVERIFY2(present.count(sub), qPrintable(QStringLiteral("sub-class %1 missing").arg(sub)));
}

void DemoDataTest::everyBillHasResidualLines_data() {
    addBillRows();
}

void DemoDataTest::everyBillHasResidualLines() {
    QFETCH(QString, project);
    Database db = Database::open(project, Database::Mode::ReadOnly);
    QVERIFY(queryInt(db, QStringLiteral(
                             "SELECT COUNT(*) FROM Tbl307 WHERE EventClass = 2 AND EventSubClass NOT IN "
                             "(27, 238, 244)")) > 0);
    QVERIFY(queryInt(db, QStringLiteral(
                             "SELECT COUNT(*) FROM Tbl307 WHERE EventClass = 3 AND EventSubClass NOT IN "
                             "(26, 27, 28, 35, 38, 95, 106, 239, 241, 242)")) > 0);
    QVERIFY(queryInt(db, QStringLiteral(
                             "SELECT COUNT(*) FROM Tbl307 WHERE EventClass = 1 AND EventSubClass NOT IN "
                             "(124, 125, 126, 127, 128, 129, 130, 131, 132, 133, 134, 135, 136, 210, "
                             "211, 212, 213, 215, 221, 224, 225, 226, 227, 228, 229, 230, 231, 232, "
                             "236, 237, 246)")) > 0);
    // A residual of a rental period that a summary row can be matched with.
    QVERIFY(
        queryInt(db, QStringLiteral("SELECT COUNT(*) FROM Tbl307 WHERE EventClass = 3 AND EventSubClass IN "
                                    "(30, 243) AND RentalStartDate IS NOT NULL")) > 0);
}

void DemoDataTest::linesAreDatedByUsageOrRental() {
    for (const QString& name : regularProjects(summary_.projectFolder)) {
        Database db = Database::open(QDir(summary_.projectFolder).filePath(name), Database::Mode::ReadOnly);
        QVERIFY(queryInt(db, QStringLiteral("SELECT COUNT(*) FROM Tbl307 WHERE RentalStartDate IS NULL")) >
                0);
        QVERIFY(queryInt(
                    db, QStringLiteral("SELECT COUNT(*) FROM Tbl307 WHERE RentalStartDate IS NOT NULL")) > 0);
        QVERIFY(queryInt(db, QStringLiteral("SELECT COUNT(*) FROM Tbl307 WHERE UsageStartDate IS NOT NULL")) >
                0);
        QVERIFY(queryInt(db, QStringLiteral("SELECT COUNT(*) FROM Tbl307 WHERE UsageStartDate IS NULL AND "
                                            "RentalStartDate IS NULL")) > 0);
        // Every date is a real ISO date and no period ends before it starts.
        QCOMPARE(queryInt(db, QStringLiteral(
                                  "SELECT COUNT(*) FROM Tbl307 WHERE "
                                  "(RentalStartDate IS NOT NULL AND (date(RentalStartDate) IS NOT "
                                  "RentalStartDate OR date(RentalEndDate) IS NOT RentalEndDate OR "
                                  "RentalEndDate < RentalStartDate)) OR (UsageStartDate IS NOT NULL AND "
                                  "(date(UsageStartDate) IS NOT UsageStartDate OR UsageEndDate < "
                                  "UsageStartDate))")),
                 0);
    }
}

void DemoDataTest::amountsAddUp() {
    for (const QString& name : projectFiles(summary_.projectFolder)) {
        Database db = Database::open(QDir(summary_.projectFolder).filePath(name), Database::Mode::ReadOnly);
        QCOMPARE(
            queryInt(db, QStringLiteral("SELECT COUNT(*) FROM Tbl307 WHERE BillCost <> PreTaxCost + TaxCost "
                                        "OR PreTaxCost <> PreDiscountCost + TotalDiscount")),
            0);
        // Tax within a ten-thousandth of the rate, amounts stored as whole ten-thousandths.
        QCOMPARE(queryInt(db, QStringLiteral(
                                  "SELECT COUNT(*) FROM Tbl307 WHERE abs(TaxCost - PreTaxCost * TaxRate "
                                  "/ 100.0) > 0.5 OR typeof(BillCost) <> 'integer'")),
                 0);
    }
}

void DemoDataTest::severalTaxRatesAndDiscounts() {
    for (const QString& name : regularProjects(summary_.projectFolder)) {
        Database db = Database::open(QDir(summary_.projectFolder).filePath(name), Database::Mode::ReadOnly);
        const QStringList rates =
            textColumn(db, QStringLiteral("SELECT DISTINCT CAST(TaxRate * 10 AS INTEGER) FROM "
                                          "Tbl307 ORDER BY 1"));
        QCOMPARE(rates, (QStringList{"0", "175", "200"}));
        QCOMPARE(
            queryInt(db, QStringLiteral("SELECT COUNT(*) FROM Tbl307 WHERE ifnull(TaxDescription, '') = ''")),
            0);
        for (int cls : {1, 2, 3})
            QVERIFY(queryInt(db,
                             QStringLiteral("SELECT COUNT(*) FROM Tbl307 WHERE EventClass = ?1 AND "
                                            "TotalDiscount <> 0"),
                             cls) > 0);
        // Discount products of charged services, with a description in the look-up table.
        QVERIFY(queryInt(db, QStringLiteral(
                                 "SELECT COUNT(*) FROM Tbl407 d JOIN Tbl017 l ON l.Enumeration = "
                                 "d.DiscountProduct WHERE d.ServiceNo IN (SELECT ServiceNo FROM Tbl307)")) >
                0);
    }
}

void DemoDataTest::productCodesFoundAndNotFoundInLookup() {
    for (const QString& name : regularProjects(summary_.projectFolder)) {
        Database db = Database::open(QDir(summary_.projectFolder).filePath(name), Database::Mode::ReadOnly);
        const QStringList used = textColumn(db, QStringLiteral("SELECT DISTINCT ProductCode FROM Tbl307"));
        for (const QString& code : ProductCodes)
            QVERIFY2(used.contains(code), qPrintable(name + ": " + code));
        QVERIFY(used.contains(QStringLiteral("<null>")));

        const QString described = QStringLiteral("SELECT COUNT(DISTINCT t.ProductCode) FROM Tbl307 t WHERE "
                                                 "t.ProductCode <> 'P00031' AND %1 EXISTS (SELECT "
                                                 "1 FROM Tbl017 l WHERE l.ColumnName IN ('Product Service "
                                                 "Code', 'Service Type') AND l.Enumeration = "
                                                 "t.ProductCode)");
        QVERIFY(queryInt(db, described.arg("")) > 20);    // most codes are described
        QVERIFY(queryInt(db, described.arg("NOT")) >= 4); // some fall back to the built-in labels

        const QString mobile = QStringLiteral(
            "SELECT COUNT(*) FROM Tbl307 t WHERE t.ProductCode = 'P00031' AND %1 EXISTS (SELECT 1 FROM "
            "Tbl017 l "
            "WHERE l.ColumnName IN ('Product Service Code', 'Service Type') AND l.Enumeration = "
            "CAST(t.ServiceType AS TEXT))");
        QVERIFY(queryInt(db, mobile.arg("")) > 0);
        QVERIFY(queryInt(db, mobile.arg("NOT")) > 0);
    }
}

void DemoDataTest::ac01AccountKeepsCostCentresUnderShortenedAccount() {
    QStringList central;
    for (const QString& a : summary_.accounts) {
        if (a.endsWith(QLatin1String("AC01")))
            central << a;
    }
    QCOMPARE(central.size(), 1);
    const QString full = central.front();
    const QString shortened = full.chopped(2);
    Database cc =
        Database::open(QDir(summary_.appFolder).filePath("costcentres2.mdb"), Database::Mode::ReadOnly);
    QVERIFY(queryInt(cc, QStringLiteral("SELECT COUNT(*) FROM TblCC WHERE VeloraAccount = ?1"), shortened) >
            0);
    QCOMPARE(queryInt(cc, QStringLiteral("SELECT COUNT(*) FROM TblCC WHERE VeloraAccount = ?1"), full), 0);
    // The telephone store is searched with the full account.
    Database tel = Database::open(QDir(summary_.appFolder).filePath("tel.mdb"), Database::Mode::ReadOnly);
    QVERIFY(queryInt(tel, QStringLiteral("SELECT COUNT(*) FROM TblTel WHERE VeloraAccount = ?1"), full) > 0);
    QVERIFY(queryInt(tel, QStringLiteral("SELECT COUNT(*) FROM TblPhoneBook WHERE VeloraAccount = ?1"),
                     full) > 0);
    // The bills carry the full account.
    for (const QString& name : regularProjects(summary_.projectFolder, full)) {
        Database db = Database::open(QDir(summary_.projectFolder).filePath(name), Database::Mode::ReadOnly);
        QCOMPARE(textColumn(db, QStringLiteral("SELECT VeloraAccount FROM Tbl50")), QStringList{full});
    }
}

void DemoDataTest::costCentresHaveFiveLevels() {
    Database cc =
        Database::open(QDir(summary_.appFolder).filePath("costcentres2.mdb"), Database::Mode::ReadOnly);
    for (const QString& account : summary_.accounts) {
        const QString stored = account.endsWith(QLatin1String("AC01")) ? account.chopped(2) : account;
        QVERIFY(queryInt(cc,
                         QStringLiteral("SELECT COUNT(*) FROM TblCC WHERE VeloraAccount = ?1 AND "
                                        "CostCentre1 <> '' AND CostCentre2 <> '' AND CostCentre3 <> '' AND "
                                        "CostCentre4 <> '' AND CostCentre5 <> ''"),
                         stored) > 0);
        for (int level = 1; level <= 5; ++level)
            QVERIFY(queryInt(cc,
                             QStringLiteral("SELECT COUNT(DISTINCT CostCentre%1) FROM TblCC WHERE "
                                            "VeloraAccount = ?1")
                                 .arg(level),
                             stored) > 1);
        QVERIFY(
            queryInt(cc,
                     QStringLiteral("SELECT COUNT(*) FROM TblCC WHERE VeloraAccount = ?1 AND CostCentre5 = "
                                    "'St John''s'"),
                     stored) > 0);

        // Some charged services have no cost centre at all, or Null lower levels.
        const QString lastBill = regularProjects(summary_.projectFolder, account).last();
        Database db =
            Database::open(QDir(summary_.projectFolder).filePath(lastBill), Database::Mode::ReadOnly);
        const QStringList services = textColumn(db, QStringLiteral("SELECT DISTINCT ServiceNo FROM Tbl307"));
        const QStringList placed =
            textColumn(cc, QStringLiteral("SELECT TelNo FROM TblCC WHERE VeloraAccount = ?1"), stored);
        int unplaced = 0;
        for (const QString& s : services)
            unplaced += placed.contains(s) ? 0 : 1;
        QVERIFY(unplaced > 0);
    }
    QVERIFY(queryInt(cc, QStringLiteral("SELECT COUNT(*) FROM TblCC WHERE CostCentre5 IS NULL")) > 0);
}

void DemoDataTest::specialProjects() {
    int irish = 0;
    int otherImports = 0;
    for (const QString& name : projectFiles(summary_.projectFolder)) {
        Database db = Database::open(QDir(summary_.projectFolder).filePath(name), Database::Mode::ReadOnly);
        Statement st = db.prepare(QStringLiteral("SELECT CRV, IMPORTS FROM Tbl50"));
        QVERIFY(st.step());
        const bool isIrish = st.text(0) == QLatin1String("IRE");
        const bool isOther = st.text(1).toUpper() != QLatin1String("O");
        irish += isIrish;
        otherImports += isOther;
        QCOMPARE(isIrish || isOther, !regularProjectName().match(name).hasMatch());
        if (!isOther)
            QVERIFY2(queryInt(db, QStringLiteral("SELECT COUNT(*) FROM Tbl997")) > 0, qPrintable(name));
    }
    QCOMPARE(irish, 1);
    QCOMPARE(otherImports, 1);
}

void DemoDataTest::billsDriftFromMonthToMonth() {
    const QStringList bills = regularProjects(summary_.projectFolder, summary_.accounts.front());
    QStringList totals;
    for (const QString& name : bills) {
        Database db = Database::open(QDir(summary_.projectFolder).filePath(name), Database::Mode::ReadOnly);
        totals << QString::number(queryInt(db, QStringLiteral("SELECT SUM(PreTaxCost) FROM Tbl307 WHERE "
                                                              "EventClass = 1")));
    }
    QCOMPARE(totals.size(), 3);
    QVERIFY(totals[0] != totals[1] && totals[1] != totals[2]);
}

void DemoDataTest::singleProjectForBenchmarks() {
    testing::TempDir dir;
    const DemoFile big =
        writeDemoProject(dir.path("big.mdb"), QStringLiteral("VL100200"), Date(2025, 2, 28), 2500, 3);
    Database db = Database::open(big.path, Database::Mode::ReadOnly);
    QCOMPARE(queryInt(db, QStringLiteral("SELECT COUNT(*) FROM Tbl307")), 2500);
    QCOMPARE(textColumn(db, QStringLiteral(
                                "SELECT VeloraAccount || ' ' || CreateDate || ' ' || Imports FROM Tbl50")),
             QStringList{"VL100200 28/02/2025 O"});
    QVERIFY(queryInt(db, QStringLiteral("SELECT COUNT(*) FROM Tbl997")) > 0);

    // A tiny request still gets one line of every kind.
    const DemoFile tiny =
        writeDemoProject(dir.path("tiny.mdb"), QStringLiteral("VL100200"), Date(2025, 2, 28), 1, 3);
    Database small = Database::open(tiny.path, Database::Mode::ReadOnly);
    const std::set<int> present = intSet(small, QStringLiteral("SELECT DISTINCT EventSubClass FROM Tbl307"));
    for (int sub : NamedSubClasses)
        QVERIFY(present.count(sub));
}

VANTREL_TEST(DemoDataTest);
#include "tst_demodata.moc"
