#include "ShellFixture.h"
#include "TestRegistry.h"
#include "app/OutputFacilities.h"
#include "app/Startup.h"
#include "app/frmMenu.h"
#include "app/frmSplash.h"
#include "app/gui/Main.h"
#include "data/Database.h"

#include <QTest>

namespace {

frmSplash* findSplash() {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* s = qobject_cast<frmSplash*>(w); s && s->isUp())
            return s;
    return nullptr;
}

StartupEnvironment environment(
    FakeClock& clock, std::function<PrinterList()> printers = [] { return PrinterList{}; }) {
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
    void storesThatOpenLeadToTheMenu_data();
    void storesThatOpenLeadToTheMenu();
    void storeThatWillNotOpenEndsTheProgram_data();
    void storeThatWillNotOpenEndsTheProgram();
    void splashHoldsThreeSecondsUnlessClicked_data();
    void splashHoldsThreeSecondsUnlessClicked();
    void pdfPrinterIsChosenByName_data();
    void pdfPrinterIsChosenByName();
};

void StartupTest::cleanup() {
    closeAllWindows();
}

void StartupTest::storesThatOpenLeadToTheMenu_data() {
    QTest::addColumn<QString>("start");
    QTest::newRow("all stores present") << "present";
    // The budget and trend stores come from their templates, without a question.
    QTest::newRow("first start") << "first";
    QTest::newRow("corrupt budget store") << "corrupt";
}

void StartupTest::storesThatOpenLeadToTheMenu() {
    QFETCH(QString, start);
    Installation inst;
    Database::open(inst.appFile(StoreFile::Trend))
        .exec(QStringLiteral("INSERT INTO tblSummaryTrend (BillDate, BillAccount) VALUES (?, ?)"),
              Date(2012, 1, 31), QStringLiteral("ACC1"));
    if (start == "first")
        QVERIFY(QFile::remove(inst.appFile(StoreFile::Budgets)) &&
                QFile::remove(inst.appFile(StoreFile::Trend)));
    if (start == "corrupt")
        inst.dir.write(QStringLiteral("app/") + StoreFile::Budgets, QByteArray(2048, 'x'));
    FakeClock clock;
    auto env = environment(clock, [] {
        return PrinterList{{QStringLiteral("Office Laser"), QStringLiteral("Adobe PDF")},
                           QStringLiteral("Office Laser")};
    });
    auto menu = Main(inst.ctx, inst.paths(), env);
    QVERIFY(menu && menu->isVisible());
    QVERIFY(visibleWindows("frmSplash").isEmpty());
    QVERIFY(inst.dialogs.messages.empty());
    QVERIFY(inst.ctx.budgetDb.tableExists(QStringLiteral("tblBudget")));
    QVERIFY(inst.ctx.costCentreDb.isOpen() && inst.ctx.telDb.isOpen());
    // Only a store that failed is replaced: the trend entry stays unless its store is new.
    QCOMPARE(queryInt(inst.ctx.trendDb, QStringLiteral("SELECT count(*) FROM tblSummaryTrend")),
             start == "first" ? 0 : 1);
    QCOMPARE(inst.ctx.version, programVersion());
    QVERIFY(inst.ctx.projectPath.isEmpty());
    // The system's printers are looked at.
    QCOMPARE(inst.ctx.defaultPrinterName, QStringLiteral("Office Laser"));
    QCOMPARE(inst.ctx.pdfPrinterName, QStringLiteral("Adobe PDF"));
    QVERIFY(inst.ctx.hasPrinter && inst.ctx.hasExcel);
}

void StartupTest::storeThatWillNotOpenEndsTheProgram_data() {
    QTest::addColumn<QString>("store");
    QTest::addColumn<QString>("fault");
    QTest::newRow("telephone store missing") << StoreFile::Telephones << "missing";
    QTest::newRow("budget store and its template missing") << StoreFile::Budgets << "no template";
    QTest::newRow("telephone store unreadable") << StoreFile::Telephones << "garbage";
    // A store in use is neither replaced nor waited for.
    QTest::newRow("budget store locked") << StoreFile::Budgets << "locked";
}

void StartupTest::storeThatWillNotOpenEndsTheProgram() {
    QFETCH(QString, store);
    QFETCH(QString, fault);
    Installation inst;
    Database holder;
    if (fault == "locked") {
        holder = Database::open(inst.appFile(store));
        holder.execScript(QStringLiteral("BEGIN EXCLUSIVE; INSERT INTO tblBudget (Title) VALUES ('held')"));
    } else if (fault == "garbage") {
        inst.dir.write(QStringLiteral("app/") + store, QByteArray(2048, 'x'));
    } else {
        QVERIFY(QFile::remove(inst.appFile(store)));
        if (fault == "no template")
            QVERIFY(QFile::remove(inst.systemFile(StoreFile::BudgetsTemplate)));
    }
    FakeClock clock;
    auto menu = Main(inst.ctx, inst.paths(), environment(clock));
    QVERIFY(!menu);
    QCOMPARE(int(inst.dialogs.messages.size()), 1);
    QCOMPARE(inst.dialogs.messages[0].icon, MessageIcon::Critical);
    QCOMPARE(inst.dialogs.messages[0].text, storesMissingMessage());
    QVERIFY(fault == "locked" ? inst.dialogs.messages[0].details.contains(QStringLiteral("in use"))
                              : !inst.dialogs.messages[0].details.isEmpty());
    QVERIFY(visibleWindows("frmMenu").isEmpty() && visibleWindows("frmSplash").isEmpty());
    QVERIFY(!inst.ctx.trendDb.isOpen());
    QVERIFY(!inst.ctx.telDb.isOpen());
}

void StartupTest::splashHoldsThreeSecondsUnlessClicked_data() {
    QTest::addColumn<int>("workMs");
    QTest::addColumn<bool>("click");
    QTest::addColumn<int>("elapsedMs");
    // 5 paint yields of 0.1 s, the work, then the rest of the 3 s is waited out.
    QTest::newRow("short work waits") << 1000 << false << 3000;
    QTest::newRow("long work shows the menu at once") << 4200 << false << 4700;
    QTest::newRow("a click ends the wait") << 1000 << true << 1500;
}

void StartupTest::splashHoldsThreeSecondsUnlessClicked() {
    QFETCH(int, workMs);
    QFETCH(bool, click);
    QFETCH(int, elapsedMs);
    Installation inst;
    FakeClock clock;
    bool splashSeen = false;
    clock.onYield = [&](int n) {
        frmSplash* splash = n == 1 ? findSplash() : nullptr;
        splashSeen = splashSeen || (splash && splash->isVisible());
        if (splash && click)
            QTest::mouseClick(splash->backdrop(), Qt::LeftButton);
    };
    bool storesOpenBeforeMenu = false;
    bool splashDuringWork = false;
    auto env = environment(clock, [&] {
        clock.advance(workMs);
        storesOpenBeforeMenu = inst.ctx.budgetDb.isOpen() && visibleWindows("frmMenu").isEmpty();
        splashDuringWork = findSplash() != nullptr;
        return PrinterList{};
    });
    auto menu = Main(inst.ctx, inst.paths(), env);
    QVERIFY(menu);
    QVERIFY(splashSeen);
    QVERIFY(storesOpenBeforeMenu);
    // A click takes the splash down at once, but not the work.
    QCOMPARE(splashDuringWork, !click);
    QCOMPARE(clock.elapsedMs(), qint64(elapsedMs));
    // PDF files and workbooks are written by the program itself, printers or not.
    QVERIFY(!inst.ctx.hasPrinter && inst.ctx.hasPdfPrinter && inst.ctx.hasExcel);
}

void StartupTest::pdfPrinterIsChosenByName_data() {
    QTest::addColumn<QStringList>("printers");
    QTest::addColumn<QString>("pdfName");
    QTest::newRow("no printer") << QStringList() << QString();
    QTest::newRow("no PDF printer") << QStringList{"Office Laser"} << QString();
    QTest::newRow("one, exactly named") << QStringList{"Office Laser", "Adobe PDF"} << "Adobe PDF";
    QTest::newRow("one, longer name") << QStringList{"My Adobe PDF Writer"} << "My Adobe PDF Writer";
    QTest::newRow("two, the second exactly named")
        << QStringList{"Adobe PDF Copy", "Adobe PDF"} << "Adobe PDF";
    QTest::newRow("two, a network one first")
        << QStringList{"Adobe PDF on FILESRV", "Adobe PDF"} << "Adobe PDF on FILESRV";
    QTest::newRow("two, neither qualifies: the first")
        << QStringList{"Adobe PDF 9", "Adobe PDF 10"} << "Adobe PDF 9";
    QTest::newRow("name pattern is case-sensitive") << QStringList{"adobe pdf"} << QString();
}

void StartupTest::pdfPrinterIsChosenByName() {
    QFETCH(QStringList, printers);
    QFETCH(QString, pdfName);
    // The system's default printer is the first; with no printers it names a ghost.
    const OutputFacilities found =
        DetectOutputFacilities(printers, printers.value(0, QStringLiteral("ghost")));
    QCOMPARE(found.hasPrinter, !printers.isEmpty());
    QCOMPARE(found.defaultPrinterName, printers.value(0));
    QCOMPARE(found.hasPdfPrinter, !pdfName.isEmpty());
    QCOMPARE(found.pdfPrinterName, pdfName);
}

VANTREL_TEST(StartupTest);
#include "tst_startup.moc"
