#include "TempDir.h"
#include "TestRegistry.h"
#include "app/BrandFontRules.h"
#include "ui/Branding.h"
#include "ui/uctHeader.h"

#include <QChartView>
#include <QDateEdit>
#include <QFile>
#include <QFontDatabase>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

class BrandingTest : public QObject {
    Q_OBJECT
private slots:
    void brandFontComesFromItsFileOrTheFallback();
    void controlsThatDrawTheirOwnTextKeepTheirFont_data();
    void controlsThatDrawTheirOwnTextKeepTheirFont();
    void formsTakeTheBrandFamily();
};

void BrandingTest::brandFontComesFromItsFileOrTheFallback() {
    const bool calibri = QFontDatabase::families().contains(QStringLiteral("Calibri"), Qt::CaseInsensitive);
    testing::TempDir empty;
    QCOMPARE(LoadBrandFont(empty.path()), QString::fromLatin1(calibri ? "Calibri" : "Carlito"));
    QVERIFY(!brandFontFromFile());

    const QString source = QStringLiteral("/usr/share/fonts/truetype/crosextra/Carlito-Bold.ttf");
    if (!QFile::exists(source))
        QSKIP("no font file to stand in for the brand font");
    testing::TempDir app;
    QVERIFY(QFile::copy(source, app.path(BrandFontFile::Curve)));
    QCOMPARE(LoadBrandFont(app.path()), QStringLiteral("Carlito"));
    QVERIFY(brandFontFromFile());
    // Taking back the other two brand fonts leaves this one in force.
    UnloadBrandFonts(app.path());
    QCOMPARE(brandFontFamily(), QStringLiteral("Carlito"));
    LoadBrandFont(empty.path());
}

void BrandingTest::controlsThatDrawTheirOwnTextKeepTheirFont_data() {
    QTest::addColumn<QStringList>("chain");
    QTest::addColumn<bool>("takes");
    QTest::newRow("project selector") << QStringList{"ucProjectSelector", "QWidget"} << false;
    QTest::newRow("report area") << QStringList{"ucReportArea", "QScrollArea"} << false;
    QTest::newRow("subclass of a chart") << QStringList{"ReportChart", "QChartView"} << false;
    QTest::newRow("grid") << QStringList{"QTableWidget", "QTableView", "QWidget"} << true;
}

void BrandingTest::controlsThatDrawTheirOwnTextKeepTheirFont() {
    QFETCH(QStringList, chain);
    QFETCH(bool, takes);
    QCOMPARE(canTakeFont(chain), takes);
}

void BrandingTest::formsTakeTheBrandFamily() {
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
    // Controls inside a strip are the strip's business.
    for (QWidget* w : own)
        QCOMPARE(w->font().family(), serif);
    // Labels only: labels and text boxes take it, buttons and the note box keep theirs.
    const QStringList expected{brandFontFamily(), brandFontFamily(), serif, serif};
    for (int i = 0; i < 4; ++i)
        QCOMPARE(labelsOnly[i]->font().family(), expected[i]);
}

VANTREL_TEST(BrandingTest);
#include "tst_branding.moc"
