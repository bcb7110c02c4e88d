#include "ShellFixture.h"
#include "TestRegistry.h"
#include "app/HelpTopics.h"
#include "app/Startup.h"
#include "app/frmMenu.h"
#include "data/Database.h"
#include "ui/HelpWindow.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

class MenuTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void openersAndTheProjectEnableTheButtons();
    void helpOpensTheMenuTopic();
    void exitAndClosingGoThroughShutDown_data();
    void exitAndClosingGoThroughShutDown();

private:
    std::unique_ptr<Installation> inst_;
    std::unique_ptr<frmMenu> menu_;
};

void MenuTest::init() {
    inst_ = std::make_unique<Installation>();
    QVERIFY(startInstallation(inst_->ctx, inst_->paths()));
    menu_ = std::make_unique<frmMenu>(inst_->ctx);
    menu_->show();
}

void MenuTest::cleanup() {
    closeAllWindows();
    menu_.reset();
    inst_.reset();
}

void MenuTest::openersAndTheProjectEnableTheButtons() {
    using O = frmMenu::Opener;
    const auto enabled = [this] {
        QString out;
        for (O which : {O::TrendManagement, O::TrendReports, O::BudgetManagement, O::BudgetReports})
            out += menu_->button(which)->isEnabled() ? 'y' : 'n';
        return out + (menu_->findChild<QGroupBox*>(QStringLiteral("frameTrend"))->isEnabled() ? 'y' : 'n');
    };
    // A button without its form stays disabled.
    QCOMPARE(enabled().left(4), QStringLiteral("nnnn"));
    menu_->setOpener(O::BudgetManagement, [] {});
    QCOMPARE(enabled().left(4), QStringLiteral("nnyn"));
    for (O which : {O::TrendManagement, O::TrendReports, O::BudgetReports})
        menu_->setOpener(which, [] {});
    // No project: budgets only. The trend buttons and their frame follow the project.
    QCOMPARE(enabled(), QStringLiteral("nnyyn"));
    inst_->ctx.trendEnabled = true;
    menu_->projectChanged();
    QCOMPARE(enabled(), QStringLiteral("yyyyy"));
    inst_->ctx.trendEnabled = false;
    menu_->projectChanged();
    QCOMPARE(enabled(), QStringLiteral("nnyyn"));
}

void MenuTest::helpOpensTheMenuTopic() {
    // The help button and a click on the hint line both open the menu's page.
    for (QWidget* clicked : {static_cast<QWidget*>(menu_->findChild<QPushButton*>(QStringLiteral("cmdHelp"))),
                             static_cast<QWidget*>(menu_->hintLabel())}) {
        QTest::mouseClick(clicked, Qt::LeftButton);
        const QList<QWidget*> windows = visibleWindows("HelpWindow");
        QCOMPARE(windows.size(), 1);
        auto* help = qobject_cast<HelpWindow*>(windows[0]);
        QCOMPARE(help->topic(), HelpTopic::MainMenu);
        QVERIFY(help->pageFound());
        help->close();
    }
}

void MenuTest::exitAndClosingGoThroughShutDown_data() {
    QTest::addColumn<bool>("exitButton");
    QTest::newRow("exit button") << true;
    QTest::newRow("closing the window") << false;
}

void MenuTest::exitAndClosingGoThroughShutDown() {
    QFETCH(bool, exitButton);
    inst_->ctx.projectDb = Database::openMemory();
    if (exitButton)
        QTest::mouseClick(menu_->findChild<QPushButton*>(QStringLiteral("cmdExit")), Qt::LeftButton);
    else
        menu_->close();
    QVERIFY(!menu_->isVisible());
    for (const Database* db :
         {&inst_->ctx.projectDb, &inst_->ctx.trendDb, &inst_->ctx.telDb, &inst_->ctx.costCentreDb})
        QVERIFY(!db->isOpen());
    // The budget store stays open to the end.
    QVERIFY(inst_->ctx.budgetDb.isOpen());
}

VANTREL_TEST(MenuTest);
#include "tst_menu.moc"
