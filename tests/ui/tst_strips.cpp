#include "TestRegistry.h"
#include "app/BalloonText.h"
#include "app/BrandFontRules.h"
#include "ui/Branding.h"
#include "ui/ClickableLabel.h"
#include "ui/HoverHints.h"
#include "ui/uctFooter.h"
#include "ui/uctHeader.h"

#include <QApplication>
#include <QChartView>
#include <QDateEdit>
#include <QElapsedTimer>
#include <QEnterEvent>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QTextEdit>
#include <QToolTip>
#include <QVBoxLayout>

namespace {

void hover(QWidget* w, bool enter) {
    QEnterEvent in(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QEvent out(QEvent::Leave);
    QApplication::sendEvent(w, enter ? static_cast<QEvent*>(&in) : &out);
}

} // namespace

// The look every form shares: the brand font, balloons and hint lines, and the footer strip.
class StripsTest : public QObject {
    Q_OBJECT
private slots:
    void balloonTextFromCaptionAndHint();
    void hoverShowsTheHintAtOnceAndTheBalloonLater();
    void footerButtons();
    void brandFontSkipsControlsThatDrawTheirOwnText();
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

void StripsTest::footerButtons() {
    uctFooter footer;
    auto* print = new ClickableLabel(QStringLiteral("Output to Printer"));
    footer.RegisterButton(print);
    footer.RegisterButton(nullptr);
    QCOMPARE(footer.registeredCount(), 1);
    footer.EnableButtons(false);
    QVERIFY(!print->isEnabled() && footer.ExitEnabled() && footer.helpButton()->isEnabled());
    footer.EnableButtons(true);
    QVERIFY(print->isEnabled());

    // Exit and help raise their events; a disabled exit raises none.
    footer.show();
    QSignalSpy buttons(&footer, &uctFooter::ButtonClicked);
    QSignalSpy help(&footer, &uctFooter::HelpClicked);
    QTest::mouseClick(footer.helpButton(), Qt::LeftButton);
    QTest::mouseClick(footer.exitButton(), Qt::LeftButton);
    footer.setExitEnabled(false);
    QTest::mouseClick(footer.exitButton(), Qt::LeftButton);
    QCOMPARE(help.count(), 1);
    QCOMPARE(buttons.count(), 1);
    QCOMPARE(buttons.first().first().toInt(), uctFooter::ExitButton);

    // Report details take the place of the free lines, and go with them.
    footer.AddDetail(QStringLiteral("Account 0123456"));
    const QList<QLabel*> report{footer.invoiceTitleLabel(), footer.invoiceTextLabel(),
                                footer.taxPointTitleLabel(), footer.taxPointTextLabel()};
    for (bool details : {false, true}) {
        footer.SetReportDetails(details ? QStringLiteral("INV-2012-01") : QString(),
                                details ? QStringLiteral("31/01/2012") : QString());
        for (QLabel* label : report)
            QCOMPARE(label->isHidden(), !details);
        QCOMPARE(footer.detailLine(0)->isHidden(), details);
    }
    footer.RemoveDetails();
    QCOMPARE(footer.DetailCount(), 0);
    QVERIFY(footer.invoiceTextLabel()->isHidden());
}

void StripsTest::brandFontSkipsControlsThatDrawTheirOwnText() {
    // The first class of the chain that the rules know decides.
    for (const QStringList& chain :
         {QStringList{"ReportChart", "QChartView"}, QStringList{"ucReportArea", "QScrollArea"},
          QStringList{"ucProjectSelector", "QWidget"}})
        QVERIFY(!canTakeFont(chain));

    // Each control starts in a font the brand font is told apart from.
    const QString serif = QStringLiteral("DejaVu Serif");
    auto* frame = new QGroupBox(QStringLiteral("Trending"));
    auto* header = new uctHeader;
    auto* note = new QTextEdit;
    note->setObjectName(QStringLiteral("TXTNOTE"));
    const QList<QWidget*> brand{new QLabel, frame, new QPushButton(frame), new QTableWidget(2, 2)};
    const QList<QWidget*> own{new QDateEdit, new QChartView, header, header->titleLabel()};
    const QList<QWidget*> labelsOnly{new QLabel, new QTextEdit, new QPushButton, note};
    QWidget form, labelsForm;
    auto* layout = new QVBoxLayout(&form);
    auto* labelsLayout = new QVBoxLayout(&labelsForm);
    const auto place = [&](QWidget* w, QVBoxLayout* onto) {
        if (!w->parentWidget())
            onto->addWidget(w);
        QFont f = w->font();
        f.setFamily(serif);
        w->setFont(f);
    };
    for (QWidget* w : brand + own)
        place(w, layout);
    for (QWidget* w : labelsOnly)
        place(w, labelsLayout);
    ApplyBrandFont(&form);
    ApplyBrandFont(&labelsForm, true);
    QCOMPARE(form.font().family(), brandFontFamily());
    for (QWidget* w : brand)
        QCOMPARE(w->font().family(), brandFontFamily());
    // Strips, charts and pickers keep theirs, and controls inside a strip are the strip's business.
    for (QWidget* w : own)
        QCOMPARE(w->font().family(), serif);
    // Labels only: labels and text boxes take it, buttons and the note box keep theirs.
    const QStringList expected{brandFontFamily(), brandFontFamily(), serif, serif};
    for (int i = 0; i < 4; ++i)
        QCOMPARE(labelsOnly[i]->font().family(), expected[i]);
}

VANTREL_TEST(StripsTest);
#include "tst_strips.moc"
