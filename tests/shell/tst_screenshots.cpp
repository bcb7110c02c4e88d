// Pictures of the splash and the menu for the documentation. Runs only when
// VANTREL_SCREENSHOT_DIR names the folder to write them to, best under a real X
// server, e.g. with xvfb-run -a, QT_QPA_PLATFORM=xcb and the argument
// "-class ScreenshotTest" to tst_shell.
#include "ShellFixture.h"
#include "TestRegistry.h"
#include "app/Startup.h"
#include "app/frmMenu.h"
#include "app/frmSplash.h"
#include "ui/Branding.h"

#include <QApplication>
#include <QEnterEvent>
#include <QPushButton>
#include <QTest>

class ScreenshotTest : public QObject {
    Q_OBJECT
private slots:
    void splashAndMenu();
};

void ScreenshotTest::splashAndMenu() {
    const QString out = qEnvironmentVariable("VANTREL_SCREENSHOT_DIR");
    if (out.isEmpty())
        QSKIP("VANTREL_SCREENSHOT_DIR is not set");
    Installation inst;
    inst.writeAllStores();
    QVERIFY(startInstallation(inst.ctx, inst.paths()));
    LoadBrandFont(inst.ctx.paths->AppFolder);
    ApplyApplicationLook();

    frmSplash splash(inst.ctx.version);
    splash.show();
    QVERIFY(QTest::qWaitForWindowExposed(&splash));
    QTest::qWait(300);
    QVERIFY(splash.grab().save(out + QStringLiteral("/splash.png")));
    splash.close();

    frmMenu menu(inst.ctx);
    // The budget forms plugged in, no project selected: the trend side waits for one.
    menu.setOpener(frmMenu::Opener::BudgetManagement, [] {});
    menu.setOpener(frmMenu::Opener::BudgetReports, [] {});
    menu.show();
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QPushButton* hovered = menu.button(frmMenu::Opener::BudgetManagement);
    QEnterEvent enter(QPointF(4, 4), QPointF(4, 4), QPointF(4, 4));
    QApplication::sendEvent(hovered, &enter);
    QTest::qWait(300);
    QVERIFY(menu.grab().save(out + QStringLiteral("/menu.png")));
}

VANTREL_TEST(ScreenshotTest);
#include "tst_screenshots.moc"
