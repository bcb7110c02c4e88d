#include "DemoSite.h"
#include "TestRegistry.h"
#include "app/frmMenu.h"
#include "app/gui/MenuForms.h"
#include "data/ucProjectSelector.h"
#include "trend/frmTrendManagement.h"

#include <QApplication>
#include <QFileInfo>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

class MenuFormsTest : public QObject {
    Q_OBJECT
private slots:
    void selectorStandsInItsPlace();
    void trendButtonsFollowTheSelection();
    void trendManagementOpensOverTheMenu();
};

void MenuFormsTest::selectorStandsInItsPlace() {
    DemoSite site;
    frmMenu menu(site.ctx);
    connectMenuForms(menu, site.ctx);
    auto* selector = menu.findChild<ucProjectSelector*>();
    QVERIFY(selector);
    QCOMPARE(selector->parentWidget(), menu.projectSelectorPlace());
    QCOMPARE(selector->textBox()->text(), QStringLiteral("Please select a project"));
    QVERIFY(menu.hasOpener(frmMenu::Opener::TrendManagement));
}

void MenuFormsTest::trendButtonsFollowTheSelection() {
    DemoSite site;
    frmMenu menu(site.ctx);
    connectMenuForms(menu, site.ctx);
    menu.show();
    auto* selector = menu.findChild<ucProjectSelector*>();
    QPushButton* trend = menu.button(frmMenu::Opener::TrendManagement);
    auto* frame = menu.findChild<QGroupBox*>(QStringLiteral("frameTrend"));
    QVERIFY(!trend->isEnabled());

    QVERIFY(selector->SelectProject(site.bills(0).first()));
    QVERIFY(trend->isEnabled() && frame->isEnabled());
    QVERIFY(selector->SelectProject(site.otherSourceBill()));
    QVERIFY(!trend->isEnabled() && !frame->isEnabled());
    // Budgets need no trend-fed project.
    QCOMPARE(menu.button(frmMenu::Opener::BudgetManagement)->isEnabled(),
             menu.hasOpener(frmMenu::Opener::BudgetManagement));
}

void MenuFormsTest::trendManagementOpensOverTheMenu() {
    DemoSite site;
    frmMenu menu(site.ctx);
    connectMenuForms(menu, site.ctx);
    menu.show();
    auto* selector = menu.findChild<ucProjectSelector*>();
    const QString bill = site.bills(0).first();
    QVERIFY(selector->SelectProject(bill));
    selector->cmdBrowse_Click();

    QString shownProject;
    bool modal = false;
    // Waits for the form: the menu yields to the event loop before it opens it.
    QTimer poll;
    poll.setInterval(10);
    connect(&poll, &QTimer::timeout, &menu, [&] {
        auto* form = qobject_cast<frmTrendManagement*>(QApplication::activeModalWidget());
        if (!form)
            return;
        poll.stop();
        modal = true;
        shownProject = form->projectSelector()->textBox()->text();
        // A project chosen on the form is the menu's project too.
        site.dialogs.files.push_back(site.otherSourceBill());
        form->projectSelector()->cmdBrowse_Click();
        form->projectSelector()->lstProjects_Click(0);
        form->cmdExit_Click();
    });
    poll.start();
    QTest::mouseClick(menu.button(frmMenu::Opener::TrendManagement), Qt::LeftButton);

    QVERIFY(modal);
    QCOMPARE(shownProject, QFileInfo(bill).fileName());
    // The menu's drop-down was closed before the form came, and its box was refreshed after.
    QVERIFY(!selector->isDroppedDown());
    QCOMPARE(selector->textBox()->text(), QFileInfo(site.otherSourceBill()).fileName());
    QVERIFY(!menu.button(frmMenu::Opener::TrendManagement)->isEnabled());
}

VANTREL_TEST(MenuFormsTest);
#include "tst_menuforms.moc"
