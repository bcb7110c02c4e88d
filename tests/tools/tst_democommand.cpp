#include "DemoQueries.h"
#include "TempDir.h"
#include "TestRegistry.h"
#include "data/ProjectHistory.h"
#include "tools/DemoCommand.h"
#include "tools/DemoGenerator.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QProcess>
#include <QTest>
#include <map>

using namespace demotest;

namespace {

// Relative path -> dump of every table, for every file of an installation.
std::map<QString, QString> dumpInstallation(const QString& folder) {
    std::map<QString, QString> dumps;
    QDirIterator it(folder, {QStringLiteral("*.mdb")}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        dumps[QDir(folder).relativeFilePath(path)] = dumpDatabase(path);
    }
    return dumps;
}

DemoOptions smallDemo(const QString& folder, quint64 seed) {
    DemoOptions o;
    o.folder = folder;
    o.seed = seed;
    o.accounts = 2;
    o.bills = 2;
    o.linesPerBill = 300;
    return o;
}

} // namespace

class DemoCommandTest : public QObject {
    Q_OBJECT
private slots:
    void sameSeedGivesSameContent();
    void otherSeedGivesOtherContent();
    void badArgumentsAreRefused_data();
    void badArgumentsAreRefused();
    void badBillsValueExplainsItself();
    void writesInstallation();
};

void DemoCommandTest::sameSeedGivesSameContent() {
    testing::TempDir a, b;
    writeDemoInstallation(smallDemo(a.path(), 42));
    writeDemoInstallation(smallDemo(b.path(), 42));
    const auto first = dumpInstallation(a.path());
    const auto second = dumpInstallation(b.path());
    QCOMPARE(int(first.size()), 4 + 2 * 2 + 2);
    QVERIFY(first.size() == second.size());
    for (const auto& [file, dump] : first) {
        QVERIFY2(second.count(file), qPrintable(file));
        QVERIFY2(dump == second.at(file), qPrintable(file));
    }
}

void DemoCommandTest::otherSeedGivesOtherContent() {
    testing::TempDir a, b;
    const DemoSummary one = writeDemoInstallation(smallDemo(a.path(), 1));
    const DemoSummary two = writeDemoInstallation(smallDemo(b.path(), 2));
    QVERIFY(one.accounts != two.accounts);
    const QString centralA = dumpDatabase(QDir(one.appFolder).filePath("costcentres2.mdb"));
    const QString centralB = dumpDatabase(QDir(two.appFolder).filePath("costcentres2.mdb"));
    QVERIFY(centralA != centralB);
}

void DemoCommandTest::badArgumentsAreRefused_data() {
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

void DemoCommandTest::badArgumentsAreRefused() {
    QFETCH(QStringList, args);
    testing::TempDir dir;
    const QString target = dir.path("demo");
    for (QString& a : args)
        a.replace(QLatin1Char('@'), target);
    QVERIFY(demoCommand(args) != 0);
    QVERIFY(!QFileInfo::exists(target)); // nothing written
}

void DemoCommandTest::badBillsValueExplainsItself() {
    const QString cli = QStringLiteral(VANTREL_BIN_DIR "/vantrel-cli");
    if (!QFileInfo::exists(cli))
        QSKIP("vantrel-cli is not built");
    testing::TempDir dir;
    QProcess p;
    p.start(cli,
            {QStringLiteral("demo"), dir.path("demo"), QStringLiteral("--bills"), QStringLiteral("many")});
    QVERIFY(p.waitForFinished(30000));
    QVERIFY(p.exitCode() != 0);
    const QString err = QString::fromUtf8(p.readAllStandardError());
    QVERIFY2(err.contains(QLatin1String("--bills")) && err.contains(QLatin1String("many")), qPrintable(err));
}

// Every account gets its budgets: a Whole Bill master of its bills, and a Level 1 master
// with one budget per level-1 cost centre of the central store.
void DemoCommandTest::writesInstallation() {
    testing::TempDir dir;
    const QString target = dir.path("demo");
    QCOMPARE(
        demoCommand({target, "--accounts", "2", "--bills", "3", "--lines-per-bill", "200", "--seed", "5"}),
        0);
    QCOMPARE(regularProjects(target + "/Projects").size(), 6);
    QCOMPARE(projectFiles(target + "/Projects").size(), 8);
    for (const char* store : {"budgets.mdb", "trend.mdb", "costcentres2.mdb", "tel.mdb"})
        QVERIFY(QFileInfo::exists(target + "/AppFolder/" + store));

    Database db = Database::open(target + "/AppFolder/budgets.mdb", Database::Mode::ReadOnly);
    db.exec(QStringLiteral("ATTACH ? AS t"), target + "/AppFolder/trend.mdb");
    db.exec(QStringLiteral("ATTACH ? AS c"), target + "/AppFolder/costcentres2.mdb");
    const QString levelMaster = QStringLiteral(
        "(SELECT BudgetID FROM tblBudget WHERE BillAccount = ?1 AND MasterID = -1 AND CCLevel = 1)");
    const QStringList accounts =
        textColumn(db, QStringLiteral("SELECT DISTINCT BillAccount FROM t.tblSummaryTrend"));
    QCOMPARE(accounts.size(), 2);
    for (const QString& account : accounts) {
        QCOMPARE(
            queryInt(db,
                     QStringLiteral("SELECT COUNT(*) FROM tblBudgetEntry JOIN tblBudget USING (BudgetID) "
                                    "WHERE BillAccount = ? AND CCLevel = 0"),
                     account),
            3);
        const QStringList centres =
            textColumn(db,
                       QStringLiteral("SELECT DISTINCT upper(CostCentre1) FROM c.TblCC WHERE "
                                      "VeloraAccount = ? AND trim(CostCentre1) <> '' ORDER BY 1"),
                       account.endsWith(QLatin1String("AC01")) ? account.chopped(2) : account);
        QVERIFY(!centres.isEmpty());
        QCOMPARE(
            textColumn(db,
                       QStringLiteral("SELECT upper(CCName) FROM tblBudget WHERE MasterID = %1 ORDER BY 1")
                           .arg(levelMaster),
                       account),
            centres);
    }
    // The recent projects hold each account's newest bill (the third of three).
    const QStringList recent = LoadHistory(target + "/AppFolder");
    QCOMPARE(recent.size(), 2);
    for (const QString& path : recent) {
        const QString name = QFileInfo(path).fileName();
        QCOMPARE(regularProjects(target + "/Projects", name.section(QLatin1Char('_'), 0, 0)).last(), name);
    }
}

VANTREL_TEST(DemoCommandTest);
#include "tst_democommand.moc"
