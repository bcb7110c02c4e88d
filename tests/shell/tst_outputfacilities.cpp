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
    void pdfOutputStaysAvailableWithoutPrinters();
};

void OutputFacilitiesTest::pdfPrinterIsChosenByName_data() {
    QTest::addColumn<QStringList>("printers");
    QTest::addColumn<QString>("pdfName");
    QTest::newRow("no printer") << QStringList() << QString();
    QTest::newRow("no PDF printer") << QStringList{"Office Laser"} << QString();
    QTest::newRow("one, exactly named") << QStringList{"Office Laser", "Adobe PDF"} << "Adobe PDF";
    QTest::newRow("one, longer name") << QStringList{"My Adobe PDF Writer"} << "My Adobe PDF Writer";
    QTest::newRow("two, the second exactly named")
        << QStringList{"Adobe PDF Copy", "Adobe PDF"} << "Adobe PDF";
    QTest::newRow("two, a network one first")
        << QStringList{"Adobe PDF on FILESRV", "Adobe PDF"} << "Adobe PDF on FILESRV";
    QTest::newRow("two, neither qualifies: the first")
        << QStringList{"Adobe PDF 9", "Adobe PDF 10"} << "Adobe PDF 9";
    QTest::newRow("name pattern is case-sensitive") << QStringList{"adobe pdf"} << QString();
}

void OutputFacilitiesTest::pdfPrinterIsChosenByName() {
    QFETCH(QStringList, printers);
    QFETCH(QString, pdfName);
    // The system's default printer is the first; with no printers it names a ghost.
    const OutputFacilities found =
        DetectOutputFacilities(printers, printers.value(0, QStringLiteral("ghost")));
    QCOMPARE(found.hasPrinter, !printers.isEmpty());
    QCOMPARE(found.defaultPrinterName, printers.value(0));
    QCOMPARE(found.hasPdfPrinter, !pdfName.isEmpty());
    QCOMPARE(found.pdfPrinterName, pdfName);
}

void OutputFacilitiesTest::pdfOutputStaysAvailableWithoutPrinters() {
    RecordingDialogService dialogs;
    AppContext ctx(dialogs);
    ctx.hasPdfPrinter = false;
    ctx.hasExcel = false;
    applyOutputFacilities(ctx, DetectOutputFacilities({}, QString()));
    QVERIFY(!ctx.hasPrinter);
    QVERIFY(ctx.hasPdfPrinter && ctx.hasExcel);
}

VANTREL_TEST(OutputFacilitiesTest);
#include "tst_outputfacilities.moc"
