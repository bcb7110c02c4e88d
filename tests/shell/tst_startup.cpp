#include "ShellFixture.h"
#include "TestRegistry.h"
#include "app/Startup.h"
#include "app/frmMenu.h"
#include "app/frmSplash.h"
#include "app/gui/Main.h"
#include "data/Database.h"
#include "data/Stores.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QTest>

namespace {

frmSplash* findSplash() {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* s = qobject_cast<frmSplash*>(w); s && s->isUp())
            return s;
    return nullptr;
}

PrinterList noPrinters() {
    return {};
}

StartupEnvironment environment(FakeClock& clock, std::function<PrinterList()> printers = noPrinters) {
    StartupEnvironment env;
    env.clock = &clock;
    env.printers = std::move(printers);
    env.applyLook = false;
    return env;
}

} // namespace

class StartupTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup();
    void presentStoresLeadToTheMenu();
    void firstStartCopiesTheTemplatesAndStarts();
    void corruptBudgetStoreIsReplacedWithoutAQuestion();
    void missingStoreEndsTheProgramWithoutMenu_data();
    void missingStoreEndsTheProgramWithoutMenu();
    void splashIsUpWhileTheStoresOpen();
    void shortWorkHoldsTheSplashForThreeSeconds();
    void longWorkShowsTheMenuAtOnce();
    void clickOnSplashEndsTheWaitButNotTheWork();
    void printersOfTheSystemAreDetected();
    void shutDownClosesWindowsAndAllStoresButBudgets();
};

void StartupTest::cleanup() {
    for (QWidget* w : QApplication::topLevelWidgets())
        w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void StartupTest::presentStoresLeadToTheMenu() {
    Installation inst;
    inst.writeAllStores();
    FakeClock clock;
    auto menu = Main(inst.ctx, inst.paths(), environment(clock));
    QVERIFY(menu);
    QVERIFY(menu->isVisible());
    QCOMPARE(visibleWindows("frmSplash"), 0);
    QVERIFY(inst.dialogs.messages.empty());
    QVERIFY(inst.ctx.budgetDb.isOpen() && inst.ctx.trendDb.isOpen() && inst.ctx.costCentreDb.isOpen() &&
            inst.ctx.telDb.isOpen());
    QCOMPARE(inst.ctx.version, programVersion());
    QVERIFY(inst.ctx.projectPath.isEmpty());
    // PDF is written by the program itself even with no printer at all.
    QVERIFY(!inst.ctx.hasPrinter);
    QVERIFY(inst.ctx.hasPdfPrinter);
}

void StartupTest::firstStartCopiesTheTemplatesAndStarts() {
    Installation inst;
    inst.writeStore(StoreFile::CostCentres, QStringLiteral("costcentres"));
    inst.writeStore(StoreFile::Telephones, QStringLiteral("tel"));
    FakeClock clock;
    auto menu = Main(inst.ctx, inst.paths(), environment(clock));
    QVERIFY(menu);
    QVERIFY(inst.dialogs.messages.empty());
    QVERIFY(inst.ctx.budgetDb.tableExists(QStringLiteral("tblBudget")));
    QVERIFY(inst.ctx.trendDb.tableExists(QStringLiteral("tblSummaryTrend")));
}

void StartupTest::corruptBudgetStoreIsReplacedWithoutAQuestion() {
    Installation inst;
    inst.writeAllStores();
    {
        Database trend = Database::open(inst.appFile(StoreFile::Trend));
        trend.exec(QStringLiteral("INSERT INTO tblSummaryTrend (BillDate, BillAccount) VALUES (?, ?)"),
                   Date(2012, 1, 31), QStringLiteral("ACC1"));
    }
    inst.dir.write(QStringLiteral("app/budgets.mdb"), QByteArray(2048, 'x'));
    FakeClock clock;
    auto menu = Main(inst.ctx, inst.paths(), environment(clock));
    QVERIFY(menu);
    QVERIFY(inst.dialogs.messages.empty());
    QVERIFY(inst.ctx.budgetDb.tableExists(QStringLiteral("tblBudget")));
    // Only the store that failed was restored: the trend entry is still there.
    QCOMPARE(queryInt(inst.ctx.trendDb, QStringLiteral("SELECT count(*) FROM tblSummaryTrend")), 1);
}

void StartupTest::missingStoreEndsTheProgramWithoutMenu_data() {
    QTest::addColumn<QString>("missing");
    QTest::addColumn<bool>("removeTemplate");
    QTest::newRow("telephone store") << StoreFile::Telephones << false;
    QTest::newRow("cost-centre store") << StoreFile::CostCentres << false;
    QTest::newRow("budget store and its template") << StoreFile::Budgets << true;
}

void StartupTest::missingStoreEndsTheProgramWithoutMenu() {
    QFETCH(QString, missing);
    QFETCH(bool, removeTemplate);
    Installation inst;
    inst.writeAllStores();
    QVERIFY(QFile::remove(inst.appFile(missing)));
    if (removeTemplate)
        QVERIFY(QFile::remove(inst.systemFile(StoreFile::BudgetsTemplate)));
    FakeClock clock;
    auto menu = Main(inst.ctx, inst.paths(), environment(clock));
    QVERIFY(!menu);
    QCOMPARE(int(inst.dialogs.messages.size()), 1);
    QCOMPARE(inst.dialogs.messages[0].icon, MessageIcon::Critical);
    QCOMPARE(
        inst.dialogs.messages[0].text,
        QStringLiteral("Required files are missing, please ensure Meridane is installed in the same folder.\n"
                       "Program can not continue."));
    QCOMPARE(visibleWindows("frmMenu"), 0);
    QCOMPARE(visibleWindows("frmSplash"), 0);
    QVERIFY(!inst.ctx.trendDb.isOpen());
    QVERIFY(!inst.ctx.telDb.isOpen());
}

void StartupTest::splashIsUpWhileTheStoresOpen() {
    Installation inst;
    inst.writeAllStores();
    FakeClock clock;
    bool splashSeen = false;
    bool storesOpenBeforeMenu = false;
    QString versionShown;
    clock.onYield = [&](int n) {
        if (n == 1) {
            frmSplash* splash = findSplash();
            splashSeen = splash && splash->isVisible();
            if (splash)
                if (auto* label = splash->findChild<QLabel*>(QStringLiteral("lblVersion")))
                    versionShown = label->text();
        }
    };
    auto env = environment(clock, [&] {
        storesOpenBeforeMenu = inst.ctx.budgetDb.isOpen() && visibleWindows("frmMenu") == 0;
        return PrinterList{};
    });
    auto menu = Main(inst.ctx, inst.paths(), env);
    QVERIFY(menu);
    QVERIFY(splashSeen);
    QCOMPARE(versionShown, QStringLiteral("Version: ") + programVersion());
    QVERIFY(storesOpenBeforeMenu);
}

void StartupTest::shortWorkHoldsTheSplashForThreeSeconds() {
    Installation inst;
    inst.writeAllStores();
    FakeClock clock(100);
    int yieldsBeforeWait = -1;
    auto env = environment(clock, [&] {
        clock.advance(1000); // the stores took a second
        yieldsBeforeWait = clock.yields();
        return PrinterList{};
    });
    auto menu = Main(inst.ctx, inst.paths(), env);
    QVERIFY(menu);
    // 5 paint yields (0.5 s) and 1 s of work: the rest of the 3 s is waited out.
    QCOMPARE(clock.elapsedMs(), qint64(3000));
    QCOMPARE(clock.yields() - yieldsBeforeWait, 15);
}

void StartupTest::longWorkShowsTheMenuAtOnce() {
    Installation inst;
    inst.writeAllStores();
    FakeClock clock(100);
    int yieldsBeforeWait = -1;
    auto env = environment(clock, [&] {
        clock.advance(4200);
        yieldsBeforeWait = clock.yields();
        return PrinterList{};
    });
    auto menu = Main(inst.ctx, inst.paths(), env);
    QVERIFY(menu);
    QCOMPARE(clock.yields(), yieldsBeforeWait);
    QCOMPARE(clock.elapsedMs(), qint64(4700));
}

void StartupTest::clickOnSplashEndsTheWaitButNotTheWork() {
    Installation inst;
    inst.writeAllStores();
    FakeClock clock(100);
    clock.onYield = [](int n) {
        if (n == 1)
            if (frmSplash* splash = findSplash())
                QTest::mouseClick(splash->backdrop(), Qt::LeftButton);
    };
    bool menuBeforeStores = true;
    bool splashGoneDuringWork = false;
    auto env = environment(clock, [&] {
        clock.advance(1000);
        menuBeforeStores = visibleWindows("frmMenu") > 0;
        splashGoneDuringWork = findSplash() == nullptr;
        return PrinterList{};
    });
    auto menu = Main(inst.ctx, inst.paths(), env);
    QVERIFY(menu);
    QVERIFY(splashGoneDuringWork);
    QVERIFY(!menuBeforeStores);
    QVERIFY(inst.ctx.budgetDb.isOpen());
    // No waiting after the work: 5 paint yields and the work's second.
    QCOMPARE(clock.elapsedMs(), qint64(1500));
}

void StartupTest::printersOfTheSystemAreDetected() {
    Installation inst;
    inst.writeAllStores();
    FakeClock clock;
    auto env = environment(clock, [] {
        return PrinterList{{QStringLiteral("Office Laser"), QStringLiteral("Adobe PDF")},
                           QStringLiteral("Office Laser")};
    });
    auto menu = Main(inst.ctx, inst.paths(), env);
    QVERIFY(menu);
    QVERIFY(inst.ctx.hasPrinter);
    QCOMPARE(inst.ctx.defaultPrinterName, QStringLiteral("Office Laser"));
    QCOMPARE(inst.ctx.pdfPrinterName, QStringLiteral("Adobe PDF"));
    QVERIFY(inst.ctx.hasExcel);
}

void StartupTest::shutDownClosesWindowsAndAllStoresButBudgets() {
    Installation inst;
    inst.writeAllStores();
    FakeClock clock;
    auto menu = Main(inst.ctx, inst.paths(), environment(clock));
    QVERIFY(menu);
    inst.ctx.projectDb = Database::openMemory();
    ShutDown(inst.ctx);
    QVERIFY(!menu->isVisible());
    QVERIFY(!inst.ctx.projectDb.isOpen());
    QVERIFY(!inst.ctx.trendDb.isOpen());
    QVERIFY(!inst.ctx.costCentreDb.isOpen());
    QVERIFY(!inst.ctx.telDb.isOpen());
    QVERIFY(inst.ctx.budgetDb.isOpen());
}

VANTREL_TEST(StartupTest);
#include "tst_startup.moc"
