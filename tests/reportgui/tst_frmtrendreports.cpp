#include "ReportGuiHelpers.h"
#include "TestRegistry.h"
#include "output/frmReport.h"
#include "reports/frmTrendReports.h"
#include "ui/uctFooter.h"
#include "ui/uctHeader.h"

#include <QComboBox>
#include <QEnterEvent>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace {

void hover(QWidget* w) {
    QEnterEvent enter(QPointF(2, 2), QPointF(2, 2), QPointF(2, 2));
    QApplication::sendEvent(w, &enter);
}

QStringList itemsOf(const QComboBox* list) {
    QStringList items;
    for (int i = 0; i < list->count(); ++i)
        items << list->itemText(i);
    return items;
}

QList<int> dataOf(const QComboBox* list) {
    QList<int> data;
    for (int i = 0; i < list->count(); ++i)
        data << list->itemData(i).toInt();
    return data;
}

// Picks an item as the user does, so the list tells of the choice.
void choose(QComboBox* list, int index) {
    list->setCurrentIndex(index);
    emit list->activated(index);
}

} // namespace

class FrmTrendReportsTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup();
    void captionsOfTheForm();
    void buttonsHaveTheirCaptionsAndHints_data();
    void buttonsHaveTheirCaptionsAndHints();
    void levelListsAndServiceList();
    void costCentresFollowTheLevel();
    void optionFollowsTheListLastUsed();
    void buttonsFollowTheProject();
    void projectChangeStartsTheListsAgain();
    void reportsThatShowAMessage_data();
    void reportsThatShowAMessage();
    void serviceFilterRunsLevelSix();
    void costCentreWithoutValueRunsItsLevel();
};

void FrmTrendReportsTest::cleanup() {
    for (QWidget* w : QApplication::topLevelWidgets())
        w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void FrmTrendReportsTest::captionsOfTheForm() {
    TrendFixture f;
    frmTrendReports form(f.ctx);
    QCOMPARE(form.windowTitle(), QStringLiteral("Vantrel"));
    QCOMPARE(form.header()->Title(), QStringLiteral("Vantrel"));
    QCOMPARE(form.footer()->ExitButtonText(), QStringLiteral("Back"));
    const QList<QPair<QString, QString>> labels = {
        {"lblProject", "Selected Project"},
        {"lblCCLevel", "Cost Centre Level"},
        {"lblCC", "Cost Centre"},
        {"lblService", "Service Number"},
        {"Label1", "Accumulated Report's Cost Centre Level"},
    };
    for (const auto& [name, caption] : labels) {
        auto* label = form.findChild<QLabel*>(name);
        QVERIFY2(label, qPrintable(name));
        QCOMPARE(label->text(), caption);
    }
    QCOMPARE(form.findChild<QGroupBox*>(QStringLiteral("frameTrend"))->title(),
             QStringLiteral("Trend Reports"));
    QCOMPARE(form.findChild<QGroupBox*>(QStringLiteral("frameTop"))->title(),
             QStringLiteral("Top 10 Cost Centres Accumulated"));
    QVERIFY(form.projectSelectorPlace());
    QCOMPARE(form.projectSelectorPlace()->objectName(), QStringLiteral("ucProject"));
    QCOMPARE(form.filterOption(0)->text(), QString());
    QCOMPARE(form.filterOption(1)->text(), QString());
    // The first two trend reports stand in the dark button colour, D9D9D9.
    QVERIFY(form.trendButton(0)->styleSheet().contains(QStringLiteral("#d9d9d9")));
    QVERIFY(form.trendButton(1)->styleSheet().contains(QStringLiteral("#d9d9d9")));
    QVERIFY(!form.trendButton(2)->styleSheet().contains(QStringLiteral("#d9d9d9")));
}

void FrmTrendReportsTest::buttonsHaveTheirCaptionsAndHints_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("hint");
    QTest::newRow("total") << "cmdTRep0"
                           << "Total Charges Trend"
                           << "Total charges trend report showing breakdown of charges";
    QTest::newRow("service") << "cmdTRep1"
                             << "Service Type Trend"
                             << "Service type trend report";
    QTest::newRow("usage") << "cmdTRep2"
                           << "Usage Charges Trend"
                           << "Usage charges trend report";
    QTest::newRow("recurring") << "cmdTRep3"
                               << "Recurring Charges Trend"
                               << "Recurring charges trend report";
    QTest::newRow("top total") << "cmdCCRep0"
                               << "Total Charges"
                               << "Accumulated total charges report for top 10 cost centres";
    QTest::newRow("top recurring") << "cmdCCRep1"
                                   << "Recurring Charges"
                                   << "Accumulated recurring charges report for top 10 cost centres";
    QTest::newRow("top usage")
        << "cmdCCRep2"
        << "Usage Charges Ex. Telemarketing"
        << "Accumulated usage charges (excluding telemarketing) report for top 10 cost "
           "centres";
    QTest::newRow("top telemarketing")
        << "cmdCCRep3"
        << "Telemarketing Usage Charges"
        << "Accumulated telemarketing usage charges report for top 10 cost centres";
    QTest::newRow("help") << "cmdHelp"
                          << "Help"
                          << "Show Help";
    QTest::newRow("back") << "cmdExit"
                          << "Back"
                          << "Return to main menu";
}

void FrmTrendReportsTest::buttonsHaveTheirCaptionsAndHints() {
    QFETCH(QString, name);
    QFETCH(QString, caption);
    QFETCH(QString, hint);
    TrendFixture f;
    frmTrendReports form(f.ctx);
    auto* button = form.findChild<QPushButton*>(name);
    QVERIFY(button);
    QCOMPARE(button->text(), caption);
    QVERIFY(button->toolTip().contains(hint));
    hover(button);
    QCOMPARE(form.hintLabel()->text(), hint);
}

void FrmTrendReportsTest::levelListsAndServiceList() {
    TrendFixture f;
    fillThreeBills(f);
    f.add(Date(2012, 3, 31), "0050", {});
    frmTrendReports form(f.ctx);
    QCOMPARE(itemsOf(form.costCentreLevelList()), (QStringList{"No Filter", "CC Level 1", "CC Level 2",
                                                               "CC Level 3", "CC Level 4", "CC Level 5"}));
    QCOMPARE(dataOf(form.costCentreLevelList()), (QList<int>{0, 1, 2, 3, 4, 5}));
    QCOMPARE(itemsOf(form.accumulatedLevelList()),
             (QStringList{"CC Level 1", "CC Level 2", "CC Level 3", "CC Level 4", "CC Level 5"}));
    QCOMPARE(dataOf(form.accumulatedLevelList()), (QList<int>{1, 2, 3, 4, 5}));
    QCOMPARE(form.costCentreLevelList()->currentIndex(), 0);
    QCOMPARE(form.accumulatedLevelList()->currentIndex(), 0);
    QCOMPARE(itemsOf(form.costCentreList()), QStringList{"No Cost Centre Selected"});
    QCOMPARE(itemsOf(form.serviceList()),
             (QStringList{"No Service Number Selected", "0050", "0100", "0200"}));
    QVERIFY(form.filterOption(0)->isChecked());
}

void FrmTrendReportsTest::costCentresFollowTheLevel() {
    TrendFixture f;
    f.number("0100", {"sales", "North"});
    f.number("0200", {"Finance", "North"});
    f.number("0300", {"Ops", ""});
    f.number("0400", {QVariant(), "South"});
    f.number("0500", {"Finance", "South"});
    frmTrendReports form(f.ctx);
    form.costCentreLevelList()->setCurrentIndex(1);
    // Distinct, empty and missing ones left out, in alphabetical order whatever the case.
    QCOMPARE(itemsOf(form.costCentreList()),
             (QStringList{"No Cost Centre Selected", "Finance", "Ops", "sales"}));
    form.costCentreLevelList()->setCurrentIndex(2);
    QCOMPARE(itemsOf(form.costCentreList()), (QStringList{"No Cost Centre Selected", "North", "South"}));
    form.costCentreLevelList()->setCurrentIndex(0);
    QCOMPARE(itemsOf(form.costCentreList()), QStringList{"No Cost Centre Selected"});
}

void FrmTrendReportsTest::optionFollowsTheListLastUsed() {
    TrendFixture f;
    fillThreeBills(f);
    frmTrendReports form(f.ctx);
    choose(form.serviceList(), 1);
    QVERIFY(form.filterOption(1)->isChecked());
    choose(form.costCentreList(), 0);
    QVERIFY(form.filterOption(0)->isChecked());
    choose(form.serviceList(), 2);
    QVERIFY(form.filterOption(1)->isChecked());
    choose(form.costCentreLevelList(), 1);
    QVERIFY(form.filterOption(0)->isChecked());
    QCOMPARE(itemsOf(form.costCentreList()), (QStringList{"No Cost Centre Selected", "Finance", "Sales"}));
}

void FrmTrendReportsTest::buttonsFollowTheProject() {
    TrendFixture f;
    frmTrendReports form(f.ctx);
    for (int i = 0; i < 4; ++i) {
        QVERIFY(!form.trendButton(i)->isEnabled());
        QVERIFY(!form.topButton(i)->isEnabled());
    }
    selectProject(f);
    form.projectChanged();
    for (int i = 0; i < 4; ++i) {
        QVERIFY(form.trendButton(i)->isEnabled());
        QVERIFY(form.topButton(i)->isEnabled());
    }
    // A project that cannot feed trends keeps them off.
    f.ctx.trendEnabled = false;
    form.projectChanged();
    QVERIFY(!form.trendButton(0)->isEnabled());
    QVERIFY(!form.topButton(3)->isEnabled());
}

void FrmTrendReportsTest::projectChangeStartsTheListsAgain() {
    TrendFixture f;
    fillThreeBills(f);
    selectProject(f);
    frmTrendReports form(f.ctx);
    choose(form.costCentreLevelList(), 1);
    choose(form.accumulatedLevelList(), 3);
    choose(form.serviceList(), 1);
    f.add(Date(2012, 3, 31), "0999", {});
    form.projectChanged();
    QCOMPARE(form.costCentreLevelList()->currentIndex(), 0);
    QCOMPARE(form.accumulatedLevelList()->currentIndex(), 0);
    QCOMPARE(itemsOf(form.costCentreList()), QStringList{"No Cost Centre Selected"});
    QCOMPARE(itemsOf(form.serviceList()).last(), QStringLiteral("0999"));
    QCOMPARE(form.serviceList()->currentIndex(), 0);
    QVERIFY(form.filterOption(0)->isChecked());
}

void FrmTrendReportsTest::reportsThatShowAMessage_data() {
    QTest::addColumn<QString>("situation");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("icon");
    QTest::newRow("no project") << "no project"
                                << "cmdTRep0"
                                << "Please select a project." << int(MessageIcon::Information);
    QTest::newRow("no project, top 10") << "no project"
                                        << "cmdCCRep1"
                                        << "Please select a project." << int(MessageIcon::Information);
    QTest::newRow("service option without number")
        << "service option"
        << "cmdTRep2"
        << "Please select a Service Number." << int(MessageIcon::Information);
    QTest::newRow("no bills") << "empty store"
                              << "cmdTRep0"
                              << "No records found." << int(MessageIcon::Information);
    QTest::newRow("no bills, service trend") << "empty store"
                                             << "cmdTRep1"
                                             << "No records found." << int(MessageIcon::Information);
    QTest::newRow("cost centre without numbers") << "unknown centre"
                                                 << "cmdTRep3"
                                                 << "No records found." << int(MessageIcon::Information);
    QTest::newRow("no trend table") << "broken store"
                                    << "cmdTRep0"
                                    << "An error occurred while creating the report."
                                    << int(MessageIcon::Critical);
    QTest::newRow("no trend table, top 10")
        << "broken store"
        << "cmdCCRep0"
        << "An error occurred while creating the report." << int(MessageIcon::Critical);
}

void FrmTrendReportsTest::reportsThatShowAMessage() {
    QFETCH(QString, situation);
    QFETCH(QString, button);
    QFETCH(QString, message);
    QFETCH(int, icon);
    TrendFixture f;
    if (situation != QLatin1String("empty store"))
        fillThreeBills(f);
    selectProject(f);
    frmTrendReports form(f.ctx);
    form.show();
    // A level on the stack from an earlier report: a fresh start clears it, a refused one does not.
    form.session().reportStack.Push(totalChargesParams(0, QString()));
    if (situation == QLatin1String("no project"))
        f.ctx.projectPath.clear();
    if (situation == QLatin1String("service option"))
        form.filterOption(1)->setChecked(true);
    if (situation == QLatin1String("unknown centre")) {
        f.number("0900", {"Empty"});
        choose(form.costCentreLevelList(), 1);
        const int index = form.costCentreList()->findText(QStringLiteral("Empty"));
        QVERIFY(index > 0);
        choose(form.costCentreList(), index);
    }
    if (situation == QLatin1String("broken store"))
        f.ctx.trendDb.exec(QStringLiteral("DROP TABLE TblSummaryTrend"));

    form.findChild<QPushButton*>(button)->click();
    // The total charges trend alone tells of its failure in a box of its own first.
    const bool ownBox = situation == QLatin1String("broken store") && button == QLatin1String("cmdTRep0");
    QCOMPARE(int(f.dialogs.messages.size()), ownBox ? 2 : 1);
    QCOMPARE(f.dialogs.lastText(), message);
    QCOMPARE(int(f.dialogs.messages.back().icon), icon);
    const bool refused =
        situation == QLatin1String("no project") || situation == QLatin1String("service option");
    QCOMPARE(form.session().reportStack.Count(), refused ? 1 : 0);
    // The form is ready for the next report.
    QVERIFY(form.findChild<QGroupBox*>(QStringLiteral("frameTrend"))->isEnabled());
    QVERIFY(form.findChild<QPushButton*>(QStringLiteral("cmdExit"))->isEnabled());
}

void FrmTrendReportsTest::serviceFilterRunsLevelSix() {
    TrendFixture f;
    fillThreeBills(f);
    selectProject(f);
    frmTrendReports form(f.ctx);
    form.show();
    choose(form.serviceList(), form.serviceList()->findText(QStringLiteral("0200")));
    ReportParams params;
    QString cell;
    whenModal<frmReport>([&](frmReport* report) {
        params = report->report().params;
        cell = report->report().grid.text(5, 1);
    });
    form.trendButton(0)->click();
    QCOMPARE(params, totalChargesParams(6, QStringLiteral("0200")));
    // 0200 alone in January: 50.25 + 10 + 5 - 1.
    QCOMPARE(cell, QStringLiteral("£64.25"));
}

void FrmTrendReportsTest::costCentreWithoutValueRunsItsLevel() {
    TrendFixture f;
    fillThreeBills(f);
    selectProject(f);
    frmTrendReports form(f.ctx);
    form.show();
    choose(form.costCentreLevelList(), 2);
    ReportParams params;
    whenModal<frmReport>([&](frmReport* report) { params = report->report().params; });
    // No number has a level-2 cost centre, so all of them belong to the empty one.
    form.trendButton(3)->click();
    QCOMPARE(params, individualChargesParams(2, QString(), ChargeView::Recurring));
    QVERIFY(f.dialogs.messages.empty());
}

VANTREL_TEST(FrmTrendReportsTest);
#include "tst_frmtrendreports.moc"
