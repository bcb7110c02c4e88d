#include "ProjectBuilder.h"
#include "TestRegistry.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "data/Stores.h"
#include "trend/TrendGathering.h"

#include <QTest>

namespace {

struct TrendStore {
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};
    TrendStore() {
        ctx.trendDb = Database::openMemory();
        CreateTrendTable(ctx.trendDb);
    }
    qint64 count(const QString& where = QStringLiteral("1")) {
        return queryInt(ctx.trendDb, QStringLiteral("SELECT count(*) FROM tblSummaryTrend WHERE ") + where);
    }
    // One column of the rows in the order given, as text ("<null>" for Null).
    QStringList column(const QString& column, const QString& orderBy = QStringLiteral("rowid")) {
        Statement st(ctx.trendDb,
                     QStringLiteral("SELECT \"%1\" FROM tblSummaryTrend ORDER BY %2").arg(column, orderBy));
        QStringList out;
        while (st.step())
            out << (st.isNull(0) ? QStringLiteral("<null>") : st.text(0));
        return out;
    }
};

Line line(const QString& service, int eventClass, int subClass, qint64 pounds) {
    Line l;
    l.service = service;
    l.eventClass = eventClass;
    l.subClass = subClass;
    l.preTax = Money::fromPounds(pounds);
    return l;
}

QString pounds(qint64 p) {
    return QString::number(p * 10000);
}

} // namespace

class GatheringTest : public QObject {
    Q_OBJECT
private slots:
    void groupsSumAndTagTheBill();
    void gatheringTwiceReplacesTheEntry();
    void subClassColumnsSumAnyClassAndResidualsOneClass();
    void residualGoesToEveryRowOfTheServiceAndPeriod();
    void linesWithoutRentalDatesNeverMatch();
    void billWithoutResidualLeavesOthersNull();
    void firstValuesComeFromTheEarliestLine();
    void nullKeysGroupTogether();
    void productCodes_data();
    void productCodes();
    void discountDescriptionIsTheLastOfTheService();
    void failureLeavesTheOldEntry();
    void cancelLeavesTheOldEntry();
};

void GatheringTest::groupsSumAndTagTheBill() {
    ProjectBuilder p(QStringLiteral("O'Neill AC01"));
    p.add(line(QStringLiteral("A"), 1, 210, 10)).add(line(QStringLiteral("A"), 1, 211, 5));
    p.add(line(QStringLiteral("B"), 3, 28, 7));
    TrendStore t;
    const GatherResult r = GatherTrend(t.ctx, p.db());
    QVERIFY2(r.ok(), qPrintable(r.error));
    QCOMPARE(r.account, QStringLiteral("O'Neill AC01"));
    QCOMPARE(r.billDate, Date(2012, 1, 31));
    QCOMPARE(r.rowsWritten, 2);
    QCOMPARE(t.count(QStringLiteral("BillDate = '2012-01-31' AND BillAccount = 'O''Neill AC01'")), 2);
    QCOMPARE(t.column(QStringLiteral("PreTax Cost"), QStringLiteral("\"Service No\"")),
             QStringList({pounds(15), pounds(7)}));
    QCOMPARE(t.column(QStringLiteral("Usage Charges"), QStringLiteral("\"Service No\"")),
             QStringList({pounds(15), pounds(0)}));
    QCOMPARE(t.column(QStringLiteral("Recurring Charges"), QStringLiteral("\"Service No\"")),
             QStringList({pounds(0), pounds(7)}));
    QCOMPARE(t.column(QStringLiteral("Call Volume"), QStringLiteral("\"Service No\"")),
             QStringList({"2", "1"}));
    // Gathering never fills this column; the zeroing at start does.
    QCOMPARE(t.column(QStringLiteral("Mobile Other")), QStringList({"<null>", "<null>"}));
}

void GatheringTest::gatheringTwiceReplacesTheEntry() {
    ProjectBuilder p;
    p.add(line(QStringLiteral("A"), 1, 210, 10));
    ProjectBuilder other(QStringLiteral("ACC1"), QStringLiteral("29/02/2012"));
    other.add(line(QStringLiteral("A"), 1, 210, 3));
    TrendStore t;
    QVERIFY(GatherTrend(t.ctx, other.db()).ok());
    QVERIFY(GatherTrend(t.ctx, p.db()).ok());
    QVERIFY(GatherTrend(t.ctx, p.db()).ok());
    QCOMPARE(t.count(), 2);
    QCOMPARE(t.count(QStringLiteral("BillDate = '2012-01-31'")), 1);
    QCOMPARE(t.count(QStringLiteral("BillDate = '2012-02-29'")), 1);
}

void GatheringTest::subClassColumnsSumAnyClassAndResidualsOneClass() {
    ProjectBuilder p;
    // 210 is a usage sub-class with its own column; booked under class 3 it still lands there.
    p.add(line(QStringLiteral("A"), 3, 210, 4));
    p.add(line(QStringLiteral("A"), 1, 210, 6));
    // 999 has no column: it is residual of its class.
    p.add(line(QStringLiteral("A"), 1, 999, 2));
    p.add(line(QStringLiteral("A"), 3, 999, 8));
    p.add(line(QStringLiteral("A"), 2, 999, 1));
    // 28 is named for recurring: not residual there; 27 is named for one-off and recurring.
    p.add(line(QStringLiteral("A"), 3, 28, 50));
    p.add(line(QStringLiteral("A"), 2, 27, 70));
    // A class-4 line is never residual.
    p.add(line(QStringLiteral("A"), 4, 999, 30));
    TrendStore t;
    QVERIFY(GatherTrend(t.ctx, p.db()).ok());
    QCOMPARE(t.column(QStringLiteral("Direct Dialled Local")), QStringList(pounds(10)));
    QCOMPARE(t.column(QStringLiteral("Line Rental")), QStringList(pounds(50)));
    QCOMPARE(t.column(QStringLiteral("Connection")), QStringList(pounds(70)));
    QCOMPARE(t.column(QStringLiteral("Usage Other")), QStringList(pounds(2)));
    // The usage sub-class 210 is not one the recurring residual leaves out: 4 + 8.
    QCOMPARE(t.column(QStringLiteral("Recurring Other")), QStringList(pounds(12)));
    QCOMPARE(t.column(QStringLiteral("One Off Other")), QStringList(pounds(1)));
    QCOMPARE(t.column(QStringLiteral("Adjustments")), QStringList(pounds(30)));
}

void GatheringTest::residualGoesToEveryRowOfTheServiceAndPeriod() {
    ProjectBuilder p;
    Line a = line(QStringLiteral("A"), 1, 999, 5);
    Line b = a;
    b.taxRate = 0;
    b.taxDescription = QStringLiteral("Zero");
    b.preTax = Money::fromPounds(3);
    p.add(a).add(b);
    TrendStore t;
    QVERIFY(GatherTrend(t.ctx, p.db()).ok());
    // Two tax rates, two rows; the residual groups by service and rental period only.
    QCOMPARE(t.column(QStringLiteral("Usage Other")), QStringList({pounds(8), pounds(8)}));
}

void GatheringTest::linesWithoutRentalDatesNeverMatch() {
    ProjectBuilder p;
    Line a = line(QStringLiteral("A"), 1, 999, 5);
    a.rentalStart = Date();
    a.rentalEnd = Date();
    p.add(a);
    TrendStore t;
    QVERIFY(GatherTrend(t.ctx, p.db()).ok());
    QCOMPARE(t.column(QStringLiteral("Usage Other")), QStringList(QStringLiteral("<null>")));
}

void GatheringTest::billWithoutResidualLeavesOthersNull() {
    ProjectBuilder p;
    p.add(line(QStringLiteral("A"), 1, 210, 5)).add(line(QStringLiteral("B"), 3, 28, 5));
    TrendStore t;
    QVERIFY(GatherTrend(t.ctx, p.db()).ok());
    for (const char* c : {"Recurring Other", "Usage Other", "One Off Other"})
        QCOMPARE(t.column(QLatin1String(c)), QStringList({"<null>", "<null>"}));
}

void GatheringTest::firstValuesComeFromTheEarliestLine() {
    ProjectBuilder p;
    Line a = line(QStringLiteral("A"), 1, 210, 5);
    a.description1 = QStringLiteral("first");
    Line b = a;
    b.description1 = QStringLiteral("second");
    p.add(a).add(b);
    TrendStore t;
    QVERIFY(GatherTrend(t.ctx, p.db()).ok());
    QCOMPARE(t.column(QStringLiteral("Description 1")), QStringList(QStringLiteral("first")));
}

void GatheringTest::nullKeysGroupTogether() {
    ProjectBuilder p;
    Line a = line(QStringLiteral("A"), 1, 210, 5);
    a.usageStart = Date();
    a.usageEnd = Date();
    p.add(a).add(a);
    TrendStore t;
    QVERIFY(GatherTrend(t.ctx, p.db()).ok());
    QCOMPARE(t.count(), 1);
    QCOMPARE(t.column(QStringLiteral("PreTax Cost")), QStringList(pounds(10)));
}

void GatheringTest::productCodes_data() {
    QTest::addColumn<QVariant>("code");
    QTest::addColumn<int>("serviceType");
    QTest::addColumn<QString>("expected");
    QTest::newRow("found in look-up, trimmed") << QVariant(QStringLiteral("P00001")) << 1 << "Direct Lines";
    QTest::newRow("built-in family") << QVariant(QStringLiteral("P00020")) << 1 << "Mobile Voice";
    QTest::newRow("unknown code") << QVariant(QStringLiteral("X123")) << 1 << "Unspecified";
    QTest::newRow("by service type") << QVariant(QStringLiteral("P00031")) << 7 << "Type Seven";
    QTest::newRow("service type not found") << QVariant(QStringLiteral("P00031")) << 8 << "";
    QTest::newRow("null code") << QVariant() << 1 << "Unspecified";
}

void GatheringTest::productCodes() {
    QFETCH(QVariant, code);
    QFETCH(int, serviceType);
    QFETCH(QString, expected);
    ProjectBuilder p;
    p.lookUp(QStringLiteral("Product Service Code"), QStringLiteral("P00001"),
             QStringLiteral("  Direct Lines "));
    p.lookUp(QStringLiteral("Service Type"), QStringLiteral("7"), QStringLiteral("Type Seven"));
    p.lookUp(QStringLiteral("Other Column"), QStringLiteral("P00020"), QStringLiteral("Not this one"));
    Line l = line(QStringLiteral("A"), 1, 210, 5);
    l.productCode = code.isNull() ? std::nullopt : std::optional<QString>(code.toString());
    l.serviceType = serviceType;
    p.add(l);
    TrendStore t;
    QVERIFY(GatherTrend(t.ctx, p.db()).ok());
    QCOMPARE(t.column(QStringLiteral("Product Code")), QStringList(expected));
}

void GatheringTest::discountDescriptionIsTheLastOfTheService() {
    ProjectBuilder p;
    p.lookUp(QStringLiteral("Discount"), QStringLiteral("D1"), QStringLiteral("Ten percent"));
    p.lookUp(QStringLiteral("Discount"), QStringLiteral("D2"), QStringLiteral("Volume deal"));
    p.discountProduct(QStringLiteral("A"), QStringLiteral("D1"))
        .discountProduct(QStringLiteral("A"), QStringLiteral("D2"));
    p.add(line(QStringLiteral("A"), 1, 210, 5)).add(line(QStringLiteral("B"), 1, 210, 5));
    TrendStore t;
    QVERIFY(GatherTrend(t.ctx, p.db()).ok());
    QCOMPARE(t.column(QStringLiteral("Discount Description"), QStringLiteral("\"Service No\"")),
             QStringList({"Volume deal", "<null>"}));
}

void GatheringTest::failureLeavesTheOldEntry() {
    ProjectBuilder p;
    p.add(line(QStringLiteral("A"), 1, 210, 5));
    TrendStore t;
    QVERIFY(GatherTrend(t.ctx, p.db()).ok());
    p.db().execScript(QStringLiteral("DROP TABLE Tbl307"));
    const GatherResult r = GatherTrend(t.ctx, p.db());
    QCOMPARE(r.status, GatherResult::Status::Failed);
    QVERIFY(!r.error.isEmpty());
    QCOMPARE(t.count(), 1);
}

void GatheringTest::cancelLeavesTheOldEntry() {
    ProjectBuilder p;
    for (int i = 0; i < 20000; ++i)
        p.add(line(QStringLiteral("S%1").arg(i % 5000), 1, 210, 1));
    TrendStore t;
    QVERIFY(GatherTrend(t.ctx, p.db()).ok());
    QCOMPARE(t.count(), 5000);
    int calls = 0;
    const GatherResult r = GatherTrend(t.ctx, p.db(), [&](qint64, qint64) { return ++calls < 3; });
    QCOMPARE(r.status, GatherResult::Status::Cancelled);
    QCOMPARE(t.count(), 5000);
    QVERIFY(!t.ctx.trendDb.inTransaction());
}

VANTREL_TEST(GatheringTest);
#include "tst_gathering.moc"
