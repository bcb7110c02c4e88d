#include "TempDir.h"
#include "TestRegistry.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "data/ProjectHistory.h"
#include "data/ProjectSelection.h"
#include "data/ReferenceData.h"
#include "data/Schema.h"

#include <QDir>
#include <QTest>

namespace {

// An installation with its central stores in memory, and a project of `account` open in memory.
struct Site {
    testing::TempDir dir;
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};

    explicit Site(const QString& account = QString()) {
        ctx.paths = std::make_unique<cPathControl>(dir.path(), dir.path(QStringLiteral("machine")));
        ctx.paths->AppFolder = dir.path(QStringLiteral("app"));
        QDir().mkpath(ctx.paths->AppFolder);
        for (auto [db, schema] : {std::pair{&ctx.projectDb, "project"},
                                  {&ctx.costCentreDb, "costcentres"},
                                  {&ctx.telDb, "tel"}}) {
            *db = Database::openMemory();
            db->execScript(schemaText(QLatin1String(schema)));
        }
        ctx.projectDb.exec(QStringLiteral("INSERT INTO Tbl50 (VeloraAccount, Imports) VALUES (?, 'AO')"),
                           account);
        ctx.costCentreDb.execScript(QStringLiteral(
            "INSERT INTO TblCC VALUES ('7000AC', '0200', 'SA', 'Sales', NULL, 'North', '', 'Team A'),"
            "('7000AC', '0100', 'SA', 'Finance', 'St John''s', '', '', ''), ('7000AC01', '0300', 'SA', "
            "'Wrong', "
            "'', '', '', ''), ('7000ACX', '0400', 'SA', 'Other', '', '', '', '')"));
    }
    // Every row of a project query, its cells joined by "|", Null as "<null>".
    QStringList rows(const QString& sql) {
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

// Selecting a project file, the recent-projects list it feeds, the project's copies of the
// central reference data, and the service numbers under a point of the cost-centre tree. The
// selector's own tests cover the refused region, the import letters and re-selection.
class ProjectTest : public QObject {
    Q_OBJECT
private slots:
    void validProjectIsSelectedThenClosed();
    void unreadableFilesLeaveNoSelection_data();
    void unreadableFilesLeaveNoSelection();
    void historyIsNewestFirstWithoutDoubles();
    void longPathsAreShortenedFolderByFolder();
    void projectDetailsBringTheCopiesUpToDate();
    void projectWithoutHeaderOrPeriod();
    void serviceNumbersByCostCentre_data();
    void serviceNumbersByCostCentre();
};

void ProjectTest::validProjectIsSelectedThenClosed() {
    Site s;
    const QString path = s.dir.path(QStringLiteral("bill.mdb"));
    createDatabaseFromSchema(path, QStringLiteral("project"));
    Database::open(path).execScript(
        QStringLiteral("INSERT INTO Tbl50 (VeloraAccount, Imports) VALUES ('7000AC01', 'O');"
                       "INSERT INTO Tbl997 (CallID) VALUES (1)"));
    QVERIFY(SelectProject(s.ctx, path));
    QVERIFY(s.dialogs.messages.empty());
    QCOMPARE(s.ctx.projectPath, path);
    QCOMPARE(s.ctx.billAccount, QStringLiteral("7000AC01"));
    QCOMPARE(s.ctx.projectPassword, QStringLiteral("Plumbago47"));
    QVERIFY(s.ctx.trendEnabled);
    QCOMPARE(LoadHistory(s.ctx.paths->AppFolder), QStringList(path));
    QCOMPARE(s.rows(QStringLiteral("SELECT VeloraAccount, TelNo FROM TblCC")),
             QStringList({"7000AC01|0100", "7000AC01|0200"}));

    QVERIFY(SelectProject(s.ctx, QString()));
    QCOMPARE(s.ctx.projectPath + s.ctx.billAccount + s.ctx.projectPassword, QString());
    QVERIFY(!s.ctx.projectDb.isOpen());
}

void ProjectTest::unreadableFilesLeaveNoSelection_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("garbage") << QByteArray(3000, '\x5a');
    QTest::newRow("empty") << QByteArray();
}

void ProjectTest::unreadableFilesLeaveNoSelection() {
    QFETCH(QByteArray, content);
    Site s;
    const QString path = s.dir.write(QStringLiteral("broken.mdb"), content);
    QVERIFY(!SelectProject(s.ctx, path));
    QCOMPARE(s.ctx.projectPath, QString());
    QVERIFY(!s.ctx.trendEnabled);
    QCOMPARE(testing::readAll(path), content);
    QVERIFY(LoadHistory(s.ctx.paths->AppFolder).isEmpty());
}

// Ten at the most, and an older one moving to the top, are checked through the selector.
void ProjectTest::historyIsNewestFirstWithoutDoubles() {
    testing::TempDir dir;
    // The same project in another letter case is no second entry.
    QVERIFY(SaveHistory(dir.path(), QStringLiteral("/p/b.mdb"), {"/p/B.mdb", "/p/a.mdb"}));
    QCOMPARE(testing::readAll(projectHistoryFile(dir.path())),
             QByteArray("\"More files ..\"\r\n\"/p/b.mdb\"\r\n\"/p/a.mdb\"\r\n"));
    QCOMPARE(LoadHistory(dir.path()), QStringList({"/p/b.mdb", "/p/a.mdb"}));
}

void ProjectTest::longPathsAreShortenedFolderByFolder() {
    const QString path = QStringLiteral("/srv-finance-share/accounts/bills/2012/bill.mdb");
    const auto fitsIn = [](int n) { return [n](const QString& s) { return s.size() <= n; }; };
    QCOMPARE(shortenPath(path, fitsIn(100)), path);
    QCOMPARE(shortenPath(path, fitsIn(40)), QStringLiteral("/sr.../accounts/bills/2012/bill.mdb"));
    QCOMPARE(shortenPath(path, fitsIn(30)), QStringLiteral("/sr.../bills/2012/bill.mdb"));
    // When nothing fits, the file name stays.
    QCOMPARE(shortenPath(path, fitsIn(5)), QStringLiteral("/sr.../bill.mdb"));
}

void ProjectTest::projectDetailsBringTheCopiesUpToDate() {
    Site s(QStringLiteral("7000AC01"));
    s.ctx.telDb.execScript(QStringLiteral(
        "INSERT INTO TblTel VALUES ('7000AC01', '0200', NULL, 'Reception'), ('7000AC01', '0100', 'Leeds', "
        "NULL), ('ACC2', '0300', 'X', 'Y');"
        "INSERT INTO TblPhoneBook VALUES ('7000AC01', '0100', NULL, 1), ('7000AC01', '0200', 'Mary O''Hara', "
        "0), ('7000AC01', NULL, NULL, 1)"));
    // Stale rows of an earlier load go.
    s.ctx.projectDb.execScript(
        QStringLiteral("INSERT INTO TblCC (VeloraAccount, TelNo) VALUES ('old', '9');"
                       "INSERT INTO TblTel (VeloraAccount) VALUES ('old');"
                       "INSERT INTO TblCallSummary1 VALUES ('2012-01-01', '2012-01-31')"));
    QVERIFY(LoadProjectDetails(s.ctx));
    QCOMPARE(s.ctx.billAccount, QStringLiteral("7000AC01"));
    QVERIFY(s.ctx.hasImports);
    QCOMPARE(s.ctx.billStart + ' ' + s.ctx.billEnd, QStringLiteral("01/01/2012 31/01/2012"));
    // An "AC01" account's cost centres lie under the account less its "01"; Null levels become "".
    QCOMPARE(s.rows(QStringLiteral("SELECT * FROM TblCC ORDER BY rowid")),
             QStringList({"7000AC01|0100|SA|Finance|St John's|||", "7000AC01|0200|SA|Sales||North||Team A"}));
    QCOMPARE(s.rows(QStringLiteral("SELECT * FROM TblTel ORDER BY rowid")),
             QStringList({"7000AC01|0100|Leeds|", "7000AC01|0200||Reception"}));
    // A holder without a name is listed under the number itself.
    QCOMPARE(s.rows(QStringLiteral("SELECT * FROM TblPhoneBook ORDER BY TelNo")),
             QStringList({"7000AC01|||1", "7000AC01|0100|0100|1", "7000AC01|0200|Mary O'Hara|0"}));
}

void ProjectTest::projectWithoutHeaderOrPeriod() {
    Site s(QStringLiteral("ACC1"));
    s.ctx.projectDb.execScript(QStringLiteral("DROP TABLE Tbl50; DROP TABLE TblCallSummary1"));
    s.ctx.billAccount = s.ctx.billStart = QStringLiteral("old");
    QVERIFY(!LoadProjectDetails(s.ctx));
    QCOMPARE(s.ctx.billAccount, QString());
    QVERIFY(!s.ctx.hasImports);
    LoadBillPeriod(s.ctx);
    QCOMPARE(s.ctx.billStart, QString());
}

void ProjectTest::serviceNumbersByCostCentre_data() {
    QTest::addColumn<int>("level");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("top level") << 0 << QStringList{"Sales"} << QStringList{"01", "02", "03"};
    QTest::newRow("letter case ignored") << 0 << QStringList{"SALES"} << QStringList{"01", "02", "03"};
    QTest::newRow("name with a quote") << 1 << QStringList{"St John's"} << QStringList{"02"};
    QTest::newRow("null counts as empty") << 1 << QStringList{""} << QStringList{"03"};
    QTest::newRow("fifth level") << 4 << QStringList{"T1"} << QStringList{"01"};
    QTest::newRow("the number itself") << 5 << QStringList{"03"} << QStringList{"03"};
    QTest::newRow("level out of range") << 6 << QStringList{"Sales"} << QStringList();
    QTest::newRow("no such centre") << 0 << QStringList{"Nobody"} << QStringList();
    QTest::newRow("several names") << 1 << QStringList{"North", "St John's"} << QStringList{"01", "02"};
    QTest::newRow("no names") << 1 << QStringList() << QStringList();
}

void ProjectTest::serviceNumbersByCostCentre() {
    QFETCH(int, level);
    QFETCH(QStringList, names);
    QFETCH(QStringList, expected);
    Site s(QStringLiteral("ACC1"));
    s.ctx.projectDb.exec(
        QStringLiteral("INSERT INTO TblCC VALUES ('ACC1', '01', 'S', 'Sales', 'North', '', '', 'T1'),"
                       "('ACC1', '02', 'S', 'Sales', 'St John''s', '', '', ''),"
                       "('ACC1', '03', 'S', 'Sales', NULL, '', '', ''),"
                       "('ACC2', '04', 'S', 'Sales', 'North', '', '', 'T1')"));
    if (names.size() == 1)
        QCOMPARE(GetServiceNumbersByCostCentre(s.ctx, QStringLiteral("ACC1"), level, names[0]), expected);
    QCOMPARE(GetServiceNumbersByCostCentres(s.ctx, QStringLiteral("ACC1"), level, names), expected);
}

VANTREL_TEST(ProjectTest);
#include "tst_project.moc"
