#include "TestRegistry.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "data/ReferenceData.h"
#include "data/Schema.h"

#include <QTest>

namespace {

// A selected project with central stores beside it, all in memory.
struct Selected {
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};

    explicit Selected(const QString& account) {
        ctx.projectDb = Database::openMemory();
        ctx.projectDb.execScript(schemaText(QStringLiteral("project")));
        ctx.projectDb.exec(
            QStringLiteral("INSERT INTO Tbl50 (VeloraAccount, Imports, CreateDate) VALUES (?, 'AO', "
                           "'31/01/2012')"),
            account);
        ctx.costCentreDb = Database::openMemory();
        ctx.costCentreDb.execScript(schemaText(QStringLiteral("costcentres")));
        ctx.telDb = Database::openMemory();
        ctx.telDb.execScript(schemaText(QStringLiteral("tel")));
    }
    void central(const QString& account, const QString& tel, const QVariantList& levels) {
        Statement st(ctx.costCentreDb,
                     QStringLiteral("INSERT INTO TblCC (VeloraAccount, TelNo, SourceAccount, "
                                    "CostCentre1, CostCentre2, CostCentre3, CostCentre4, "
                                    "CostCentre5) VALUES (?, ?, 'SA', ?, ?, ?, ?, ?)"));
        st.bindAll(account, tel);
        for (int i = 0; i < 5; ++i) {
            if (levels.value(i).isNull())
                st.bindNull(3 + i);
            else
                st.bind(3 + i, levels.value(i).toString());
        }
        st.run();
    }
    QStringList projectRows(const QString& sql) {
        QStringList out;
        Statement st(ctx.projectDb, sql);
        while (st.step()) {
            QStringList cells;
            for (int i = 0; i < st.columnCount(); ++i)
                cells << (st.isNull(i) ? QStringLiteral("<null>") : st.text(i));
            out << cells.join(QLatin1Char('|'));
        }
        return out;
    }
};

} // namespace

class ReferenceDataTest : public QObject {
    Q_OBJECT
private slots:
    void costCentresOfAnAc01AccountComeFromTheShortAccount();
    void accountWithoutCentralRowsLeavesAnEmptyCopy();
    void telephoneDetailsAndPhoneBook();
    void projectDetailsSetAccountImportsAndPeriod();
    void projectWithoutHeaderHasNoAccount();
    void serviceNumbersByLevel_data();
    void serviceNumbersByLevel();
    void serviceNumbersBySeveralNames();
};

void ReferenceDataTest::costCentresOfAnAc01AccountComeFromTheShortAccount() {
    Selected s(QStringLiteral("7000AC01"));
    s.ctx.billAccount = QStringLiteral("7000AC01");
    s.central(QStringLiteral("7000AC"), QStringLiteral("0200"), {"Sales", QVariant(), "North", "", "Team A"});
    s.central(QStringLiteral("7000AC"), QStringLiteral("0100"), {"Finance", "St John's", "", "", ""});
    s.central(QStringLiteral("7000AC01"), QStringLiteral("0300"), {"Wrong", "", "", "", ""});
    s.central(QStringLiteral("7000ACX"), QStringLiteral("0400"), {"Other", "", "", "", ""});
    s.ctx.projectDb.exec(QStringLiteral("INSERT INTO TblCC (VeloraAccount, TelNo) VALUES ('stale', '9')"));
    LoadCostCentres(s.ctx);
    QCOMPARE(
        s.projectRows(QStringLiteral("SELECT VeloraAccount, TelNo, SourceAccount, CostCentre1, CostCentre2, "
                                     "CostCentre3, CostCentre4, CostCentre5 FROM TblCC ORDER BY rowid")),
        QStringList({"7000AC01|0100|SA|Finance|St John's|||", "7000AC01|0200|SA|Sales||North||Team A"}));
}

void ReferenceDataTest::accountWithoutCentralRowsLeavesAnEmptyCopy() {
    Selected s(QStringLiteral("NEW1"));
    s.ctx.billAccount = QStringLiteral("NEW1");
    s.central(QStringLiteral("OTHER"), QStringLiteral("0100"), {"Finance", "", "", "", ""});
    s.ctx.projectDb.exec(QStringLiteral("INSERT INTO TblCC (VeloraAccount, TelNo) VALUES ('NEW1', '9')"));
    LoadCostCentres(s.ctx);
    QCOMPARE(queryInt(s.ctx.projectDb, QStringLiteral("SELECT count(*) FROM TblCC")), 0);
}

void ReferenceDataTest::telephoneDetailsAndPhoneBook() {
    Selected s(QStringLiteral("ACC1"));
    s.ctx.telDb.exec(QStringLiteral("INSERT INTO TblTel VALUES ('ACC1', '0200', NULL, 'Reception'), "
                                    "('ACC1', '0100', 'Leeds', NULL), ('ACC2', '0300', 'X', 'Y')"));
    s.ctx.telDb.exec(QStringLiteral("INSERT INTO TblPhoneBook VALUES ('ACC1', '0100', NULL, 1), "
                                    "('ACC1', '0200', 'Mary O''Hara', 0), ('ACC1', NULL, NULL, 1)"));
    LoadTelephoneDetails(s.ctx);
    QCOMPARE(s.ctx.billAccount, QStringLiteral("ACC1"));
    QCOMPARE(s.projectRows(QStringLiteral("SELECT * FROM TblTel ORDER BY rowid")),
             QStringList({"ACC1|0100|Leeds|", "ACC1|0200||Reception"}));
    // A holder without a name is listed under the number itself.
    QCOMPARE(s.projectRows(QStringLiteral("SELECT * FROM TblPhoneBook ORDER BY TelNo")),
             QStringList({"ACC1|||1", "ACC1|0100|0100|1", "ACC1|0200|Mary O'Hara|0"}));
}

void ReferenceDataTest::projectDetailsSetAccountImportsAndPeriod() {
    Selected s(QStringLiteral("ACC1"));
    s.ctx.projectDb.exec(QStringLiteral("INSERT INTO TblCallSummary1 VALUES ('2012-01-01', '2012-01-31')"));
    QVERIFY(LoadProjectDetails(s.ctx));
    QCOMPARE(s.ctx.billAccount, QStringLiteral("ACC1"));
    QVERIFY(s.ctx.hasImports);
    QCOMPARE(s.ctx.billStart, QStringLiteral("01/01/2012"));
    QCOMPARE(s.ctx.billEnd, QStringLiteral("31/01/2012"));
    s.ctx.projectDb.execScript(QStringLiteral("DROP TABLE TblCallSummary1"));
    LoadBillPeriod(s.ctx);
    QCOMPARE(s.ctx.billStart, QString());
}

void ReferenceDataTest::projectWithoutHeaderHasNoAccount() {
    Selected s(QStringLiteral("ACC1"));
    s.ctx.projectDb.execScript(QStringLiteral("DROP TABLE Tbl50"));
    s.ctx.billAccount = QStringLiteral("old");
    QVERIFY(!LoadProjectDetails(s.ctx));
    QCOMPARE(s.ctx.billAccount, QString());
    QVERIFY(!s.ctx.hasImports);
}

void ReferenceDataTest::serviceNumbersByLevel_data() {
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("top level") << 0 << "Sales" << QStringList({"01", "02", "03"});
    QTest::newRow("name with a quote") << 1 << "St John's" << QStringList({"02"});
    QTest::newRow("null counts as empty") << 1 << "" << QStringList({"03"});
    QTest::newRow("fifth level") << 4 << "T1" << QStringList({"01"});
    QTest::newRow("the number itself") << 5 << "03" << QStringList({"03"});
    QTest::newRow("level out of range") << 6 << "Sales" << QStringList();
    QTest::newRow("no such centre") << 0 << "Nobody" << QStringList();
}

void ReferenceDataTest::serviceNumbersByLevel() {
    QFETCH(int, level);
    QFETCH(QString, name);
    QFETCH(QStringList, expected);
    Selected s(QStringLiteral("ACC1"));
    s.ctx.projectDb.exec(
        QStringLiteral("INSERT INTO TblCC VALUES ('ACC1', '01', 'S', 'Sales', 'North', '', '', 'T1'),"
                       "('ACC1', '02', 'S', 'Sales', 'St John''s', '', '', ''),"
                       "('ACC1', '03', 'S', 'Sales', NULL, '', '', ''),"
                       "('ACC2', '04', 'S', 'Sales', 'North', '', '', 'T1')"));
    QCOMPARE(GetServiceNumbersByCostCentre(s.ctx, QStringLiteral("ACC1"), level, name), expected);
}

void ReferenceDataTest::serviceNumbersBySeveralNames() {
    Selected s(QStringLiteral("ACC1"));
    s.ctx.projectDb.exec(
        QStringLiteral("INSERT INTO TblCC VALUES ('ACC1', '01', 'S', 'Sales', '', '', '', ''),"
                       "('ACC1', '02', 'S', 'O''Brien', '', '', '', ''),"
                       "('ACC1', '03', 'S', 'Finance', '', '', '', '')"));
    QCOMPARE(GetServiceNumbersByCostCentres(s.ctx, QStringLiteral("ACC1"), 0, {"Sales", "O'Brien"}),
             QStringList({"01", "02"}));
    QCOMPARE(GetServiceNumbersByCostCentres(s.ctx, QStringLiteral("ACC1"), 0, {}), QStringList());
}

VANTREL_TEST(ReferenceDataTest);
#include "tst_referencedata.moc"
