#include "TempDir.h"
#include "TestRegistry.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "data/ProjectHistory.h"
#include "data/ProjectSelection.h"
#include "data/Schema.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace {

struct Installation {
    testing::TempDir dir;
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};

    Installation() {
        QDir().mkpath(dir.path(QStringLiteral("app")));
        ctx.paths = std::make_unique<cPathControl>(dir.path(), dir.path(QStringLiteral("machine")));
        ctx.paths->AppFolder = dir.path(QStringLiteral("app"));
        ctx.costCentreDb = Database::openMemory();
        ctx.costCentreDb.execScript(schemaText(QStringLiteral("costcentres")));
        ctx.costCentreDb.exec(QStringLiteral("INSERT INTO TblCC (VeloraAccount, TelNo, CostCentre1) VALUES "
                                             "('7000AC', '0100', 'Sales')"));
        ctx.telDb = Database::openMemory();
        ctx.telDb.execScript(schemaText(QStringLiteral("tel")));
    }

    QString project(const QString& name, const QString& account, const QString& imports, const QString& crv,
                    int calls) {
        const QString path = dir.path(name);
        createDatabaseFromSchema(path, QStringLiteral("project"));
        Database db = Database::open(path);
        db.exec(QStringLiteral("INSERT INTO Tbl50 (VeloraAccount, LocID, Imports, CRV, CreateDate) "
                               "VALUES (?, 'L', ?, ?, '31/01/2012')"),
                account, imports, crv);
        for (int i = 0; i < calls; ++i)
            db.exec(QStringLiteral("INSERT INTO Tbl997 (CallID) VALUES (?)"), i);
        return path;
    }
    QStringList history() { return LoadHistory(ctx.paths->AppFolder); }
};

} // namespace

class SelectionTest : public QObject {
    Q_OBJECT
private slots:
    void validProjectIsSelectedForTrends();
    void projectsOfTheRefusedRegionAreNotSelected();
    void importsDecideTrendWork_data();
    void importsDecideTrendWork();
    void unreadableFilesLeaveNoSelection_data();
    void unreadableFilesLeaveNoSelection();
    void reselectingOpensNothing();
    void emptyPathClosesTheSelection();
};

void SelectionTest::validProjectIsSelectedForTrends() {
    Installation in;
    const QString path =
        in.project(QStringLiteral("bill.mdb"), QStringLiteral("7000AC01"), QStringLiteral("O"), QString(), 3);
    QVERIFY(SelectProject(in.ctx, path));
    QVERIFY(in.dialogs.messages.empty());
    QCOMPARE(in.ctx.projectPath, path);
    QCOMPARE(in.ctx.billAccount, QStringLiteral("7000AC01"));
    QCOMPARE(in.ctx.projectPassword, QStringLiteral("Plumbago47"));
    QVERIFY(in.ctx.trendEnabled);
    QCOMPARE(in.history(), QStringList(path));
    // The project's cost centres come from the shortened account, written under the full one.
    QCOMPARE(queryInt(in.ctx.projectDb,
                      QStringLiteral("SELECT count(*) FROM TblCC WHERE VeloraAccount = '7000AC01'")),
             1);
}

void SelectionTest::projectsOfTheRefusedRegionAreNotSelected() {
    Installation in;
    const QString path = in.project(QStringLiteral("ire.mdb"), QStringLiteral("ACC1"), QStringLiteral("O"),
                                    QStringLiteral("IRE"), 3);
    QVERIFY(!SelectProject(in.ctx, path));
    QCOMPARE(in.dialogs.texts(), QStringList(SelectionText::NotValid));
    QCOMPARE(in.ctx.projectPath, QString());
    QVERIFY(!in.ctx.projectDb.isOpen());
    QVERIFY(in.history().isEmpty());
}

void SelectionTest::importsDecideTrendWork_data() {
    QTest::addColumn<QString>("imports");
    QTest::addColumn<int>("calls");
    QTest::addColumn<bool>("trends");
    QTest::newRow("O with call data") << "O" << 2 << true;
    QTest::newRow("O without call data") << "O" << 0 << false;
    // The call-data test applies to a capital O only.
    QTest::newRow("o without call data") << "o" << 0 << true;
    QTest::newRow("another source") << "A" << 5 << false;
}

void SelectionTest::importsDecideTrendWork() {
    QFETCH(QString, imports);
    QFETCH(int, calls);
    QFETCH(bool, trends);
    Installation in;
    const QString path =
        in.project(QStringLiteral("bill.mdb"), QStringLiteral("ACC1"), imports, QString(), calls);
    QVERIFY(SelectProject(in.ctx, path));
    QCOMPARE(in.ctx.trendEnabled, trends);
    QCOMPARE(in.dialogs.texts(), trends ? QStringList() : QStringList(SelectionText::NoTrends));
    // Usable for budgets either way: it stays selected and enters the recent list.
    QCOMPARE(in.ctx.projectPath, path);
    QCOMPARE(in.history(), QStringList(path));
}

void SelectionTest::unreadableFilesLeaveNoSelection_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("garbage") << QByteArray(3000, '\x5a');
    QTest::newRow("empty") << QByteArray();
}

void SelectionTest::unreadableFilesLeaveNoSelection() {
    QFETCH(QByteArray, content);
    Installation in;
    const QString path = in.dir.write(QStringLiteral("broken.mdb"), content);
    QVERIFY(!SelectProject(in.ctx, path));
    QCOMPARE(in.ctx.projectPath, QString());
    QVERIFY(!in.ctx.trendEnabled);
    QCOMPARE(testing::readAll(path), content);
    QVERIFY(in.history().isEmpty());
}

void SelectionTest::reselectingOpensNothing() {
    Installation in;
    const QString path =
        in.project(QStringLiteral("bill.mdb"), QStringLiteral("ACC1"), QStringLiteral("O"), QString(), 1);
    QVERIFY(SelectProject(in.ctx, path));
    // Gone from the disk, but still open: selecting it again keeps it.
    QFile::remove(path);
    QVERIFY(SelectProject(in.ctx, path));
    QVERIFY(in.ctx.projectDb.isOpen());
}

void SelectionTest::emptyPathClosesTheSelection() {
    Installation in;
    const QString path =
        in.project(QStringLiteral("bill.mdb"), QStringLiteral("ACC1"), QStringLiteral("O"), QString(), 1);
    QVERIFY(SelectProject(in.ctx, path));
    QVERIFY(SelectProject(in.ctx, QString()));
    QCOMPARE(in.ctx.projectPath, QString());
    QCOMPARE(in.ctx.billAccount, QString());
    QVERIFY(!in.ctx.projectDb.isOpen());
}

VANTREL_TEST(SelectionTest);
#include "tst_selection.moc"
