#include "TestRegistry.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/OutputFacilities.h"

#include <QTest>

class OutputFacilitiesTest : public QObject {
    Q_OBJECT
private slots:
    void pdfPrinterIsChosenByName_data();
    void pdfPrinterIsChosenByName();
    void noPrinterMeansNothingElseIsFound();
    void pdfOutputStaysAvailableWithoutPrinters();
};

void OutputFacilitiesTest::pdfPrinterIsChosenByName_data() {
    QTest::addColumn<QStringList>("printers");
    QTest::addColumn<bool>("hasPdf");
    QTest::addColumn<QString>("pdfName");

    QTest::newRow("no PDF printer") << QStringList{QStringLiteral("Office Laser")} << false << QString();
    QTest::newRow("one, exactly named")
        << QStringList{QStringLiteral("Office Laser"), QStringLiteral("Adobe PDF")} << true
        << QStringLiteral("Adobe PDF");
    QTest::newRow("one, longer name") << QStringList{QStringLiteral("My Adobe PDF Writer")} << true
                                      << QStringLiteral("My Adobe PDF Writer");
    QTest::newRow("two, the second exactly named")
        << QStringList{QStringLiteral("Adobe PDF Copy"), QStringLiteral("Adobe PDF")} << true
        << QStringLiteral("Adobe PDF");
    QTest::newRow("two, a network one first")
        << QStringList{QStringLiteral("Adobe PDF on FILESRV"), QStringLiteral("Adobe PDF")} << true
        << QStringLiteral("Adobe PDF on FILESRV");
    QTest::newRow("two, neither qualifies: the first")
        << QStringList{QStringLiteral("Adobe PDF 9"), QStringLiteral("Adobe PDF 10")} << true
        << QStringLiteral("Adobe PDF 9");
    QTest::newRow("name pattern is case-sensitive")
        << QStringList{QStringLiteral("adobe pdf")} << false << QString();
}

void OutputFacilitiesTest::pdfPrinterIsChosenByName() {
    QFETCH(QStringList, printers);
    QFETCH(bool, hasPdf);
    QFETCH(QString, pdfName);
    const OutputFacilities found = DetectOutputFacilities(printers, printers.first());
    QVERIFY(found.hasPrinter);
    QCOMPARE(found.defaultPrinterName, printers.first());
    QCOMPARE(found.hasPdfPrinter, hasPdf);
    QCOMPARE(found.pdfPrinterName, pdfName);
}

void OutputFacilitiesTest::noPrinterMeansNothingElseIsFound() {
    const OutputFacilities found = DetectOutputFacilities({}, QStringLiteral("ghost"));
    QVERIFY(!found.hasPrinter);
    QVERIFY(!found.hasPdfPrinter);
    QVERIFY(found.defaultPrinterName.isEmpty());
    QVERIFY(found.pdfPrinterName.isEmpty());
}

void OutputFacilitiesTest::pdfOutputStaysAvailableWithoutPrinters() {
    RecordingDialogService dialogs;
    AppContext ctx(dialogs);
    ctx.hasPdfPrinter = false;
    ctx.hasExcel = false;
    applyOutputFacilities(ctx, DetectOutputFacilities({}, QString()));
    QVERIFY(!ctx.hasPrinter);
    QVERIFY(ctx.hasPdfPrinter);
    QVERIFY(ctx.hasExcel);
}

VANTREL_TEST(OutputFacilitiesTest);
#include "tst_outputfacilities.moc"
