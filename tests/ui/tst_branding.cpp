#include "TempDir.h"
#include "TestRegistry.h"
#include "app/BrandFontRules.h"
#include "ui/Branding.h"
#include "ui/uctFooter.h"
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

namespace {

const QString Serif = QStringLiteral("DejaVu Serif");

QString expectedFallback() {
    const QStringList installed = QFontDatabase::families();
    return installed.contains(QStringLiteral("Calibri"), Qt::CaseInsensitive) ? QStringLiteral("Calibri")
                                                                              : QStringLiteral("Carlito");
}

template <typename W> W* withSerif(W* w) {
    QFont f = w->font();
    f.setFamily(Serif);
    w->setFont(f);
    return w;
}

} // namespace

class BrandingTest : public QObject {
    Q_OBJECT
private slots:
    void missingFontFileLeavesTheFallback();
    void fontFileGivesItsFamily();
    void controlsThatDrawTheirOwnTextAreLeftOut_data();
    void controlsThatDrawTheirOwnTextAreLeftOut();
    void formAndControlsTakeTheBrandFamily();
    void labelsOnlyMode();
};

void BrandingTest::missingFontFileLeavesTheFallback() {
    testing::TempDir empty;
    QCOMPARE(LoadBrandFont(empty.path()), expectedFallback());
    QVERIFY(!brandFontFromFile());
    QCOMPARE(brandFontFamily(), expectedFallback());
    UnloadBrandFonts(empty.path());
}

void BrandingTest::fontFileGivesItsFamily() {
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
    testing::TempDir empty;
    LoadBrandFont(empty.path());
}

void BrandingTest::controlsThatDrawTheirOwnTextAreLeftOut_data() {
    QTest::addColumn<QStringList>("chain");
    QTest::addColumn<bool>("takes");
    QTest::newRow("label") << QStringList{"QLabel", "QFrame", "QWidget"} << true;
    QTest::newRow("grid") << QStringList{"QTableWidget", "QTableView", "QWidget"} << true;
    QTest::newRow("header strip") << QStringList{"uctHeader", "QWidget"} << false;
    QTest::newRow("footer strip") << QStringList{"uctFooter", "QWidget"} << false;
    QTest::newRow("chart") << QStringList{"QChartView", "QGraphicsView"} << false;
    QTest::newRow("date picker") << QStringList{"QDateEdit", "QDateTimeEdit"} << false;
    QTest::newRow("project selector") << QStringList{"ucProjectSelector", "QWidget"} << false;
    QTest::newRow("report area") << QStringList{"ucReportArea", "QScrollArea"} << false;
    QTest::newRow("subclass of a chart") << QStringList{"ReportChart", "QChartView"} << false;
}

void BrandingTest::controlsThatDrawTheirOwnTextAreLeftOut() {
    QFETCH(QStringList, chain);
    QFETCH(bool, takes);
    QCOMPARE(canTakeFont(chain), takes);
}

void BrandingTest::formAndControlsTakeTheBrandFamily() {
    QWidget form;
    auto* layout = new QVBoxLayout(&form);
    auto* label = withSerif(new QLabel(QStringLiteral("Budget Title")));
    auto* frame = withSerif(new QGroupBox(QStringLiteral("Trending")));
    auto* inFrame = withSerif(new QPushButton(QStringLiteral("Reports"), frame));
    auto* grid = withSerif(new QTableWidget(2, 2));
    auto* picker = withSerif(new QDateEdit);
    auto* chart = withSerif(new QChartView);
    auto* header = new uctHeader;
    for (QWidget* w : std::initializer_list<QWidget*>{label, frame, grid, picker, chart, header})
        layout->addWidget(w);
    withSerif(header->titleLabel());

    ApplyBrandFont(&form);
    const QString brand = brandFontFamily();
    QCOMPARE(form.font().family(), brand);
    QCOMPARE(label->font().family(), brand);
    QCOMPARE(frame->font().family(), brand);
    QCOMPARE(inFrame->font().family(), brand);
    QCOMPARE(grid->font().family(), brand);
    QCOMPARE(picker->font().family(), Serif);
    QCOMPARE(chart->font().family(), Serif);
    // Controls inside a strip are the strip's business.
    QCOMPARE(header->titleLabel()->font().family(), Serif);
}

void BrandingTest::labelsOnlyMode() {
    QWidget form;
    auto* layout = new QVBoxLayout(&form);
    auto* label = withSerif(new QLabel(QStringLiteral("Budget Title")));
    auto* button = withSerif(new QPushButton(QStringLiteral("Create Budget")));
    auto* note = withSerif(new QTextEdit);
    note->setObjectName(QStringLiteral("TXTNOTE"));
    auto* other = withSerif(new QTextEdit);
    for (QWidget* w : std::initializer_list<QWidget*>{label, button, note, other})
        layout->addWidget(w);
    ApplyBrandFont(&form, true);
    const QString brand = brandFontFamily();
    QCOMPARE(label->font().family(), brand);
    QCOMPARE(other->font().family(), brand);
    QCOMPARE(button->font().family(), Serif);
    QCOMPARE(note->font().family(), Serif);
}

VANTREL_TEST(BrandingTest);
#include "tst_branding.moc"
