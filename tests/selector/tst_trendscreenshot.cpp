// A picture of the trend management form for the documentation. Runs only when
// VANTREL_SCREENSHOT_DIR names the folder to write it to, best under a real X server,
// e.g. with xvfb-run -a, QT_QPA_PLATFORM=xcb and "-class TrendScreenshotTest".
// VANTREL_SCREENSHOT_DROPDOWN adds pictures of the project drop-down on the form and the menu.
#include "DemoSite.h"
#include "TestRegistry.h"
#include "app/frmMenu.h"
#include "app/gui/MenuForms.h"
#include "data/Project.h"
#include "data/ucProjectSelector.h"
#include "trend/TrendGathering.h"
#include "trend/frmTrendManagement.h"
#include "ui/Branding.h"

#include <QApplication>
#include <QTest>
#include <QTreeWidget>

class TrendScreenshotTest : public QObject {
    Q_OBJECT
private slots:
    void trendManagement();
};

void TrendScreenshotTest::trendManagement() {
    const QString out = qEnvironmentVariable("VANTREL_SCREENSHOT_DIR");
    if (out.isEmpty())
        QSKIP("VANTREL_SCREENSHOT_DIR is not set");
    DemoSite site(8, 3000);
    const QStringList bills = site.bills(0);
    for (const QString& bill : bills) {
        Database project;
        QVERIFY(OpenProjectDatabase(site.ctx, &project, bill));
        QVERIFY(GatherTrend(site.ctx, project).ok());
    }
    LoadBrandFont(site.ctx.paths->AppFolder);
    ApplyApplicationLook();

    frmTrendManagement form(site.ctx);
    QVERIFY(form.projectSelector()->SelectProject(bills.last()));
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    form.trendList()->topLevelItem(5)->setSelected(true);
    QTest::qWait(300);
    QVERIFY(form.grab().save(out + QStringLiteral("/trend-management.png")));
    if (qEnvironmentVariableIsSet("VANTREL_SCREENSHOT_DROPDOWN")) {
        form.projectSelector()->cmdBrowse_Click();
        QTest::qWait(200);
        QVERIFY(form.grab().save(out + QStringLiteral("/trend-management-dropdown.png")));
        form.close();
        frmMenu menu(site.ctx);
        connectMenuForms(menu, site.ctx);
        menu.show();
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        menu.findChild<ucProjectSelector*>()->cmdBrowse_Click();
        QTest::qWait(200);
        QVERIFY(menu.grab().save(out + QStringLiteral("/menu-dropdown.png")));
    }
}

VANTREL_TEST(TrendScreenshotTest);
#include "tst_trendscreenshot.moc"
