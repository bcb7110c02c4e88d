#include "TestRegistry.h"
#include "app/BalloonText.h"
#include "ui/Branding.h"
#include "ui/ClickableLabel.h"
#include "ui/HoverHints.h"
#include "ui/WindowIcon.h"
#include "ui/uctFooter.h"
#include "ui/uctHeader.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEnterEvent>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

namespace {

void hover(QWidget* w) {
    QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QApplication::sendEvent(w, &enter);
}

void leave(QWidget* w) {
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(w, &event);
}

} // namespace

class StripsTest : public QObject {
    Q_OBJECT
private slots:
    void balloonTitleDropsAcceleratorMarks_data();
    void balloonTitleDropsAcceleratorMarks();
    void balloonHasABoldTitleLine();
    void hoverHintGoesIntoTheHintLabelAndBack();
    void headerTitleWritesBothTitles();
    void headerTypeChoosesTheTitleShown();
    void registeredButtonsTakeTheBrandColours();
    void enableButtonsTouchesOnlyRegisteredButtons();
    void reportDetailsShowOrHide();
    void freeDetailLines();
    void exitAndHelpRaiseTheirEvents();
    void exitButtonProperties();
    void footerTakesTheFormsHintLabel();
    void windowIconComesFromTheResources();
};

void StripsTest::balloonTitleDropsAcceleratorMarks_data() {
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("title");
    QTest::newRow("plain") << "Trend Management"
                           << "Trend Management";
    QTest::newRow("accelerator") << "&Exit"
                                 << "Exit";
    QTest::newRow("doubled ampersand") << "Save && Close"
                                       << "Save & Close";
    QTest::newRow("both") << "&Print && Save"
                          << "Print & Save";
}

void StripsTest::balloonTitleDropsAcceleratorMarks() {
    QFETCH(QString, caption);
    QFETCH(QString, title);
    QCOMPARE(balloonTitle(caption), title);
}

void StripsTest::balloonHasABoldTitleLine() {
    const QString tip = balloonToolTip(QStringLiteral("Reports"), QStringLiteral("Trend <analysis> reports"));
    QVERIFY(tip.contains(QStringLiteral("<b>Reports</b><br/>Trend &lt;analysis&gt; reports")));
    QVERIFY(!balloonToolTip(QString(), QStringLiteral("Show Help")).contains(QStringLiteral("<b>")));
    QVERIFY(balloonToolTip(QStringLiteral("Help"), QString()).isEmpty());
}

void StripsTest::hoverHintGoesIntoTheHintLabelAndBack() {
    QWidget form;
    QLabel hintLine(QStringLiteral("Help"), &form);
    QPushButton button(QStringLiteral("&Create"), &form);
    HoverHints hints(&hintLine);
    hints.watch(&button, QStringLiteral("Create from project"));
    QCOMPARE(hintOf(&button), QStringLiteral("Create from project"));
    QVERIFY(button.toolTip().contains(QStringLiteral("<b>Create</b>")));
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QElapsedTimer waited;
    waited.start();
    hover(&button);
    QCOMPARE(hintLine.text(), QStringLiteral("Create from project"));
    // The balloon waits half a second before it shows.
    QVERIFY(!QToolTip::isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(QToolTip::isVisible(), 3000);
    QVERIFY(waited.elapsed() >= 450);
    leave(&button);
    QCOMPARE(hintLine.text(), QStringLiteral("Help"));
    QTRY_VERIFY(!QToolTip::isVisible());
}

void StripsTest::headerTitleWritesBothTitles() {
    uctHeader header;
    header.setTitle(QStringLiteral("Vantrel"));
    header.setDetail(QStringLiteral("Budget Management"));
    QCOMPARE(header.Title(), QStringLiteral("Vantrel"));
    QCOMPARE(header.titleLabel()->text(), QStringLiteral("Vantrel"));
    QCOMPARE(header.appTitleLabel()->text(), QStringLiteral("Vantrel"));
    QCOMPARE(header.Detail(), QStringLiteral("Budget Management"));
}

void StripsTest::headerTypeChoosesTheTitleShown() {
    uctHeader header;
    header.setTitle(QStringLiteral("Vantrel"));
    header.setHeaderType(uctHeader::Type::Banner);
    QVERIFY(!header.appTitleLabel()->isHidden());
    QVERIFY(header.titleLabel()->isHidden());
    const int bannerHeight = header.height();
    header.setHeaderType(uctHeader::Type::Compact);
    QVERIFY(header.appTitleLabel()->isHidden());
    QVERIFY(!header.titleLabel()->isHidden());
    QVERIFY(header.height() < bannerHeight);
}

void StripsTest::registeredButtonsTakeTheBrandColours() {
    uctFooter footer;
    ClickableLabel print(QStringLiteral("Output to Printer"));
    ClickableLabel excel(QStringLiteral("Output to Excel"));
    footer.RegisterButton(&print);
    footer.RegisterButton(&excel);
    QCOMPARE(footer.registeredCount(), 2);
    QCOMPARE(footer.registeredButton(0), &print);
    QCOMPARE(footer.registeredButton(1), &excel);
    QCOMPARE(print.parentWidget(), &footer);
    QVERIFY(print.autoFillBackground());
    QCOMPARE(print.palette().color(QPalette::Active, QPalette::Window), QColor(85, 20, 180));
    QCOMPARE(print.palette().color(QPalette::Active, QPalette::WindowText), QColor(255, 255, 255));
    QCOMPARE(excel.font().family(), brandFontFamily());
    // Each fits its caption.
    QVERIFY(print.minimumWidth() >= print.fontMetrics().horizontalAdvance(print.text()));
    footer.RegisterButton(nullptr);
    QCOMPARE(footer.registeredCount(), 2);
}

void StripsTest::enableButtonsTouchesOnlyRegisteredButtons() {
    uctFooter footer;
    auto* print = new ClickableLabel(QStringLiteral("Print"));
    auto* excel = new ClickableLabel(QStringLiteral("Excel"));
    footer.RegisterButton(print);
    footer.RegisterButton(excel);
    footer.EnableButtons(false);
    QVERIFY(!print->isEnabled() && !excel->isEnabled());
    QVERIFY(footer.ExitEnabled());
    QVERIFY(footer.helpButton()->isEnabled());
    footer.EnableButtons(true);
    QVERIFY(print->isEnabled() && excel->isEnabled());
}

void StripsTest::reportDetailsShowOrHide() {
    uctFooter footer;
    footer.AddDetail(QStringLiteral("Account 0123456"));
    footer.SetReportDetails(QString(), QString());
    QVERIFY(footer.invoiceTitleLabel()->isHidden());
    QVERIFY(footer.invoiceTextLabel()->isHidden());
    QVERIFY(footer.taxPointTitleLabel()->isHidden());
    QVERIFY(footer.taxPointTextLabel()->isHidden());
    QVERIFY(!footer.detailLine(0)->isHidden());

    footer.SetReportDetails(QStringLiteral("INV-2012-01"), QStringLiteral("31/01/2012"));
    QCOMPARE(footer.invoiceTextLabel()->text(), QStringLiteral("INV-2012-01"));
    QCOMPARE(footer.taxPointTextLabel()->text(), QStringLiteral("31/01/2012"));
    QVERIFY(!footer.invoiceTitleLabel()->isHidden() && !footer.taxPointTextLabel()->isHidden());
    // The report details take the place of the free lines.
    QVERIFY(footer.detailLine(0)->isHidden());
}

void StripsTest::freeDetailLines() {
    uctFooter footer;
    footer.AddDetail(QStringLiteral("first"));
    footer.AddDetail(QStringLiteral("second"));
    QCOMPARE(footer.DetailCount(), 2);
    QCOMPARE(footer.detailLine(1)->text(), QStringLiteral("second"));
    footer.ClearDetails();
    QCOMPARE(footer.DetailCount(), 0);
    footer.AddDetail(QStringLiteral("again"));
    footer.SetReportDetails(QStringLiteral("INV"), QString());
    footer.RemoveDetails();
    QCOMPARE(footer.DetailCount(), 0);
    QVERIFY(footer.invoiceTextLabel()->isHidden());
}

void StripsTest::exitAndHelpRaiseTheirEvents() {
    uctFooter footer;
    footer.show();
    QSignalSpy buttons(&footer, &uctFooter::ButtonClicked);
    QSignalSpy help(&footer, &uctFooter::HelpClicked);
    QTest::mouseClick(footer.exitButton(), Qt::LeftButton);
    QCOMPARE(buttons.count(), 1);
    QCOMPARE(buttons.first().first().toInt(), 1);
    QTest::mouseClick(footer.helpButton(), Qt::LeftButton);
    QCOMPARE(help.count(), 1);
    footer.setExitEnabled(false);
    QTest::mouseClick(footer.exitButton(), Qt::LeftButton);
    QCOMPARE(buttons.count(), 1);
}

void StripsTest::exitButtonProperties() {
    uctFooter footer;
    footer.setExitButtonText(QStringLiteral("Cancel"));
    footer.setExitToolTipText(QStringLiteral("Exit without saving"));
    QCOMPARE(footer.ExitButtonText(), QStringLiteral("Cancel"));
    QCOMPARE(footer.ExitToolTipText(), QStringLiteral("Exit without saving"));
    QVERIFY(footer.exitButton()->toolTip().contains(QStringLiteral("<b>Cancel</b>")));
    footer.setHelpVisible(false);
    QVERIFY(!footer.HelpVisible());
    const int withoutHelp = footer.ButtonPanelWidth();
    footer.setHelpVisible(true);
    QVERIFY(footer.ButtonPanelWidth() > withoutHelp);
    footer.setExitButtonVisible(false);
    QVERIFY(!footer.ExitButtonVisible());
}

void StripsTest::footerTakesTheFormsHintLabel() {
    QWidget form;
    auto* footer = new uctFooter(&form);
    auto* hintLine = new QLabel(QStringLiteral("Help"), &form);
    footer->setHintLabel(hintLine);
    QCOMPARE(hintLine->parentWidget(), footer);
    hover(footer->helpButton());
    QCOMPARE(hintLine->text(), QStringLiteral("Show Help"));
    leave(footer->helpButton());
    QCOMPARE(hintLine->text(), QStringLiteral("Help"));
}

void StripsTest::windowIconComesFromTheResources() {
    QVERIFY(!resourceIcon(QStringLiteral("AAB")).isNull());
    QVERIFY(resourceIcon(QStringLiteral("AAB")).availableSizes().contains(QSize(32, 32)));
    QWidget window;
    SetIcon(&window);
    QVERIFY(!window.windowIcon().isNull());
    // An unknown resource leaves the icon there was, and no failure.
    const qint64 key = window.windowIcon().cacheKey();
    SetIcon(&window, QStringLiteral("NOSUCH"));
    QCOMPARE(window.windowIcon().cacheKey(), key);
}

VANTREL_TEST(StripsTest);
#include "tst_strips.moc"
