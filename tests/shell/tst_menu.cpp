#include "ShellFixture.h"
#include "TestRegistry.h"
#include "app/HelpTopics.h"
#include "app/Startup.h"
#include "app/frmMenu.h"
#include "ui/HelpWindow.h"
#include "ui/uctFooter.h"
#include "ui/uctHeader.h"

#include <QApplication>
#include <QEnterEvent>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>

namespace {

void hover(QWidget* w) {
    QEnterEvent enter(QPointF(2, 2), QPointF(2, 2), QPointF(2, 2));
    QApplication::sendEvent(w, &enter);
}

void leave(QWidget* w) {
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(w, &event);
}

} // namespace

class MenuTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void formCaptionsAndVersion();
    void buttonsHaveTheirCaptionsAndHints_data();
    void buttonsHaveTheirCaptionsAndHints();
    void hoverPutsTheHintIntoTheHelpLine();
    void openingButtonsStayDisabledUntilPluggedIn();
    void trendButtonsFollowTheSelectedProject();
    void openingAFormCancelsAndRefreshesTheSelector();
    void helpOpensTheMenuTopic();
    void exitGoesThroughShutDown();
    void closingTheWindowGoesThroughShutDown();

private:
    std::unique_ptr<Installation> inst_;
    std::unique_ptr<frmMenu> menu_;
};

void MenuTest::init() {
    inst_ = std::make_unique<Installation>();
    inst_->writeAllStores();
    QVERIFY(startInstallation(inst_->ctx, inst_->paths()));
    menu_ = std::make_unique<frmMenu>(inst_->ctx);
    menu_->show();
}

void MenuTest::cleanup() {
    for (QWidget* w : QApplication::topLevelWidgets())
        w->close();
    menu_.reset();
    inst_.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void MenuTest::formCaptionsAndVersion() {
    QCOMPARE(menu_->windowTitle(), QStringLiteral("Vantrel"));
    QVERIFY(!menu_->windowIcon().isNull());
    QCOMPARE(menu_->findChild<QLabel*>(QStringLiteral("lblProject"))->text(),
             QStringLiteral("Selected Project"));
    QCOMPARE(menu_->findChild<QGroupBox*>(QStringLiteral("frameTrend"))->title(), QStringLiteral("Trending"));
    QCOMPARE(menu_->findChild<QGroupBox*>(QStringLiteral("frameBudget"))->title(),
             QStringLiteral("Budget Tracking"));
    QCOMPARE(menu_->hintLabel()->text(), QStringLiteral("Help"));
    QCOMPARE(menu_->findChild<QLabel*>(QStringLiteral("lblVersion"))->text(),
             QStringLiteral("Version ") + programVersion());
    QCOMPARE(menu_->header()->Title(), QStringLiteral("Vantrel"));
    QCOMPARE(menu_->footer()->ExitButtonText(), QStringLiteral("Back"));
    QVERIFY(menu_->projectSelectorPlace());
}

void MenuTest::buttonsHaveTheirCaptionsAndHints_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("hint");
    QTest::newRow("trend management") << "cmdTrendManagement"
                                      << "Trend Management"
                                      << "Facility to allow trends data to be managed";
    QTest::newRow("trend reports") << "cmdTrendReports"
                                   << "Reports"
                                   << "Trend analysis reports";
    QTest::newRow("budget management") << "cmdBudgetManagement"
                                       << "Budget Management"
                                       << "Facility to allow budget data to be managed";
    QTest::newRow("budget reports") << "cmdBudgetReports"
                                    << "Reports"
                                    << "Budget analysis reports";
    QTest::newRow("help") << "cmdHelp"
                          << "Help"
                          << "Show Help";
    QTest::newRow("exit") << "cmdExit"
                          << "Exit"
                          << "Exit from the Vantrel";
}

void MenuTest::buttonsHaveTheirCaptionsAndHints() {
    QFETCH(QString, name);
    QFETCH(QString, caption);
    QFETCH(QString, hint);
    auto* button = menu_->findChild<QPushButton*>(name);
    QVERIFY(button);
    QCOMPARE(button->text(), caption);
    // The balloon: the caption in bold over the hint.
    QVERIFY(button->toolTip().contains(QStringLiteral("<b>") + caption + QStringLiteral("</b>")));
    QVERIFY(button->toolTip().contains(hint));
    hover(button);
    QCOMPARE(menu_->hintLabel()->text(), hint);
}

void MenuTest::hoverPutsTheHintIntoTheHelpLine() {
    QPushButton* reports = menu_->button(frmMenu::Opener::BudgetReports);
    QPushButton* management = menu_->button(frmMenu::Opener::BudgetManagement);
    hover(reports);
    QCOMPARE(menu_->hintLabel()->text(), QStringLiteral("Budget analysis reports"));
    leave(reports);
    QCOMPARE(menu_->hintLabel()->text(), QStringLiteral("Help"));
    hover(management);
    QCOMPARE(menu_->hintLabel()->text(), QStringLiteral("Facility to allow budget data to be managed"));
}

void MenuTest::openingButtonsStayDisabledUntilPluggedIn() {
    for (auto which : {frmMenu::Opener::TrendManagement, frmMenu::Opener::TrendReports,
                       frmMenu::Opener::BudgetManagement, frmMenu::Opener::BudgetReports})
        QVERIFY(!menu_->button(which)->isEnabled());
    menu_->setOpener(frmMenu::Opener::BudgetManagement, [] {});
    QVERIFY(menu_->button(frmMenu::Opener::BudgetManagement)->isEnabled());
    QVERIFY(!menu_->button(frmMenu::Opener::BudgetReports)->isEnabled());
    QVERIFY(menu_->findChild<QPushButton*>(QStringLiteral("cmdHelp"))->isEnabled());
    QVERIFY(menu_->findChild<QPushButton*>(QStringLiteral("cmdExit"))->isEnabled());
}

void MenuTest::trendButtonsFollowTheSelectedProject() {
    int opened = 0;
    for (auto which : {frmMenu::Opener::TrendManagement, frmMenu::Opener::TrendReports,
                       frmMenu::Opener::BudgetManagement, frmMenu::Opener::BudgetReports})
        menu_->setOpener(which, [&opened] { ++opened; });
    auto* frameTrend = menu_->findChild<QGroupBox*>(QStringLiteral("frameTrend"));
    QPushButton* trend = menu_->button(frmMenu::Opener::TrendManagement);
    QPushButton* trendReports = menu_->button(frmMenu::Opener::TrendReports);

    // No project: budgets only.
    QVERIFY(!frameTrend->isEnabled() && !trend->isEnabled() && !trendReports->isEnabled());
    QVERIFY(menu_->button(frmMenu::Opener::BudgetReports)->isEnabled());

    inst_->ctx.trendEnabled = true;
    menu_->projectChanged();
    QVERIFY(frameTrend->isEnabled() && trend->isEnabled() && trendReports->isEnabled());

    inst_->ctx.trendEnabled = false;
    menu_->projectChanged();
    QVERIFY(!frameTrend->isEnabled() && !trend->isEnabled());
    QVERIFY(menu_->button(frmMenu::Opener::BudgetManagement)->isEnabled());
    QCOMPARE(opened, 0);
}

void MenuTest::openingAFormCancelsAndRefreshesTheSelector() {
    QStringList calls;
    auto* selector = new QLabel(QStringLiteral("selector"));
    menu_->setProjectSelector(
        selector, [&calls] { calls << QStringLiteral("cancel"); },
        [&calls] { calls << QStringLiteral("refresh"); });
    QCOMPARE(selector->parentWidget(), menu_->projectSelectorPlace());
    menu_->setOpener(frmMenu::Opener::BudgetReports, [&calls] { calls << QStringLiteral("form"); });
    QTest::mouseClick(menu_->button(frmMenu::Opener::BudgetReports), Qt::LeftButton);
    QCOMPARE(calls, (QStringList{"cancel", "form", "refresh"}));
}

void MenuTest::helpOpensTheMenuTopic() {
    QTest::mouseClick(menu_->findChild<QPushButton*>(QStringLiteral("cmdHelp")), Qt::LeftButton);
    HelpWindow* help = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* h = qobject_cast<HelpWindow*>(w); h && h->isVisible())
            help = h;
    QVERIFY(help);
    QCOMPARE(help->topic(), HelpTopic::MainMenu);
    QVERIFY(help->pageFound());
    QVERIFY(help->browser()->toPlainText().contains(QStringLiteral("Trend Management")));
    help->close();

    // A click on the hint line does the same.
    QTest::mouseClick(menu_->hintLabel(), Qt::LeftButton);
    QVERIFY(visibleWindows("HelpWindow") == 1);
}

void MenuTest::exitGoesThroughShutDown() {
    QTest::mouseClick(menu_->findChild<QPushButton*>(QStringLiteral("cmdExit")), Qt::LeftButton);
    QVERIFY(!menu_->isVisible());
    QVERIFY(!inst_->ctx.trendDb.isOpen());
    QVERIFY(!inst_->ctx.telDb.isOpen());
    QVERIFY(inst_->ctx.budgetDb.isOpen());
}

void MenuTest::closingTheWindowGoesThroughShutDown() {
    menu_->close();
    QVERIFY(!inst_->ctx.trendDb.isOpen());
    QVERIFY(!inst_->ctx.costCentreDb.isOpen());
}

VANTREL_TEST(MenuTest);
#include "tst_menu.moc"
