#include "TestRegistry.h"
#include "app/BalloonText.h"
#include "app/cColours.h"
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

namespace {

void hover(QWidget* w, bool enter) {
    QEnterEvent in(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QEvent out(QEvent::Leave);
    QApplication::sendEvent(w, enter ? static_cast<QEvent*>(&in) : &out);
}

} // namespace

// The balloons and hint lines, and the header and footer strips of every form.
class StripsTest : public QObject {
    Q_OBJECT
private slots:
    void balloonTextFromCaptionAndHint();
    void hoverShowsTheHintAtOnceAndTheBalloonLater();
    void headerTypeChoosesTheTitleShown();
    void registeredButtonsTakeTheBrandLookAndFollowEnableButtons();
    void reportDetailsTakeThePlaceOfTheFreeLines();
    void exitAndHelpRaiseTheirEvents();
    void windowIconComesFromTheResources();
};

void StripsTest::balloonTextFromCaptionAndHint() {
    // The title drops accelerator marks and keeps a doubled ampersand as one.
    const char* captions[][2] = {{"Trend Management", "Trend Management"},
                                 {"&Exit", "Exit"},
                                 {"Save && Close", "Save & Close"},
                                 {"&Print && Save", "Print & Save"}};
    for (const auto& c : captions)
        QCOMPARE(balloonTitle(QString::fromLatin1(c[0])), QString::fromLatin1(c[1]));
    const QString tip = balloonToolTip(QStringLiteral("Reports"), QStringLiteral("Trend <analysis> reports"));
    QVERIFY(tip.contains(QStringLiteral("<b>Reports</b><br/>Trend &lt;analysis&gt; reports")));
    QVERIFY(!balloonToolTip(QString(), QStringLiteral("Show Help")).contains(QStringLiteral("<b>")));
    QVERIFY(balloonToolTip(QStringLiteral("Help"), QString()).isEmpty());
}

void StripsTest::hoverShowsTheHintAtOnceAndTheBalloonLater() {
    QWidget form;
    auto* hintLine = new QLabel(QStringLiteral("Help"), &form);
    QPushButton button(QStringLiteral("&Create"), &form);
    HoverHints hints(hintLine);
    hints.watch(&button, QStringLiteral("Create from project"));
    QVERIFY(button.toolTip().contains(QStringLiteral("<b>Create</b>")));
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QElapsedTimer waited;
    waited.start();
    hover(&button, true);
    QCOMPARE(hintLine->text(), QStringLiteral("Create from project"));
    // The balloon waits half a second before it shows.
    QVERIFY(!QToolTip::isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(QToolTip::isVisible(), 3000);
    QVERIFY(waited.elapsed() >= 450);
    hover(&button, false);
    QCOMPARE(hintLine->text(), QStringLiteral("Help"));
    QTRY_VERIFY(!QToolTip::isVisible());

    // A footer takes the form's hint line and shows its own buttons' hints there.
    auto* footer = new uctFooter(&form);
    auto* footerLine = new QLabel(QStringLiteral("Help"), &form);
    footer->setHintLabel(footerLine);
    QCOMPARE(footerLine->parentWidget(), footer);
    hover(footer->helpButton(), true);
    QVERIFY(footerLine->text() != QStringLiteral("Help"));
    hover(footer->helpButton(), false);
    QCOMPARE(footerLine->text(), QStringLiteral("Help"));
}

void StripsTest::headerTypeChoosesTheTitleShown() {
    uctHeader header;
    header.setTitle(QStringLiteral("Vantrel"));
    header.setHeaderType(uctHeader::Type::Banner);
    QVERIFY(!header.appTitleLabel()->isHidden() && header.titleLabel()->isHidden());
    const int bannerHeight = header.height();
    header.setHeaderType(uctHeader::Type::Compact);
    QVERIFY(header.appTitleLabel()->isHidden() && !header.titleLabel()->isHidden());
    QVERIFY(header.height() < bannerHeight);
}

void StripsTest::registeredButtonsTakeTheBrandLookAndFollowEnableButtons() {
    uctFooter footer;
    auto* print = new ClickableLabel(QStringLiteral("Output to Printer"));
    auto* excel = new ClickableLabel(QStringLiteral("Output to Excel"));
    footer.RegisterButton(print);
    footer.RegisterButton(excel);
    footer.RegisterButton(nullptr);
    QCOMPARE(footer.registeredCount(), 2);
    QCOMPARE(print->parentWidget(), &footer);
    QCOMPARE(print->palette().color(QPalette::Active, QPalette::Window), qColor(BrandColour));
    QCOMPARE(print->palette().color(QPalette::Active, QPalette::WindowText), qColor(White));
    QCOMPARE(excel->font().family(), brandFontFamily());

    footer.EnableButtons(false);
    QVERIFY(!print->isEnabled() && !excel->isEnabled());
    QVERIFY(footer.ExitEnabled() && footer.helpButton()->isEnabled());
    footer.EnableButtons(true);
    QVERIFY(print->isEnabled() && excel->isEnabled());
}

void StripsTest::reportDetailsTakeThePlaceOfTheFreeLines() {
    uctFooter footer;
    footer.AddDetail(QStringLiteral("Account 0123456"));
    const QList<QLabel*> report{footer.invoiceTitleLabel(), footer.invoiceTextLabel(),
                                footer.taxPointTitleLabel(), footer.taxPointTextLabel()};
    footer.SetReportDetails(QString(), QString());
    for (QLabel* label : report)
        QVERIFY(label->isHidden());
    QVERIFY(!footer.detailLine(0)->isHidden());

    footer.SetReportDetails(QStringLiteral("INV-2012-01"), QStringLiteral("31/01/2012"));
    QCOMPARE(footer.invoiceTextLabel()->text(), QStringLiteral("INV-2012-01"));
    QCOMPARE(footer.taxPointTextLabel()->text(), QStringLiteral("31/01/2012"));
    for (QLabel* label : report)
        QVERIFY(!label->isHidden());
    QVERIFY(footer.detailLine(0)->isHidden());

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
    QCOMPARE(buttons.first().first().toInt(), uctFooter::ExitButton);
    QTest::mouseClick(footer.helpButton(), Qt::LeftButton);
    QCOMPARE(help.count(), 1);
    footer.setExitEnabled(false);
    QTest::mouseClick(footer.exitButton(), Qt::LeftButton);
    QCOMPARE(buttons.count(), 1);
}

void StripsTest::windowIconComesFromTheResources() {
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
