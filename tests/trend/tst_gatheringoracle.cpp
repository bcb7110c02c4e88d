// Gathering against an independent oracle: the two summary statements written out in
// plain SQL (a GROUP BY with a single min() so the "first" columns come from each
// group's earliest line, and the residual query with its HAVING), the residual matched
// to each row by a first-match scan, and every one of the 82 columns compared.
#include "ProjectBuilder.h"
#include "TempDir.h"
#include "TestRegistry.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "data/Stores.h"
#include "tools/DemoGenerator.h"
#include "trend/ServiceDescription.h"
#include "trend/TrendGathering.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

const char* const OracleGathering =
    "SELECT ?1, ?2, t1.ServiceNo, t1.SourceAccountNo, Sum(t1.BillCost) AS SumOfBillCost, Sum(t1.TaxCost) "
    "AS SumOfTaxCost, Sum(t1.PreTaxCost) AS SumOfPreTaxCost, Sum(t1.TotalDiscount) AS SumOfTotalDiscount,"
    " Sum(t1.PreDiscountCost) AS SumOfPreDiscountCost, t1.TaxRate, t1.TaxDescription, Sum(IIf((t1.EventCl"
    "ass=1),t1.PreTaxCost,0)) AS [Usage Charges], Sum(IIf((t1.EventClass=3),t1.PreTaxCost,0)) AS [Recurri"
    "ng Charges], Sum(IIf((t1.EventClass=2),t1.PreTaxCost,0)) AS [One Off Charges and Credits], Sum(IIf(("
    "t1.EventClass=4),t1.PreTaxCost,0)) AS [Adjustments], t1.UsageStartDate, t1.UsageEndDate, t1.RentalSt"
    "artDate, t1.RentalEndDate, Sum(t1.CallVolume) AS SumOfCallVolume, Sum(t1.Duration) AS SumOfDuration,"
    " t1.CallType AS FirstOfCallType, t1.ProductCode AS FirstOfProductCode, t1.ServiceType AS FirstOfServ"
    "iceType, t1.SourceBillRef AS FirstOfSourceBillRef, t1.CFBAccountNo AS FirstOfCFBAccountNo, t1.CFBRep"
    "ortNo AS FirstOfCFBReportNo, t1.AdjustmentDescription AS FirstOfAdjustmentDescription, t1.Descriptio"
    "n1 AS FirstOfDescription1, t1.Description2 AS FirstOfDescription2, t1.Description3 AS FirstOfDescrip"
    "tion3, Sum(IIf((t1.EventSubClass=26),t1.PreTaxCost,0)) AS Sub26, Sum(IIf((t1.EventSubClass=27),t1.Pr"
    "eTaxCost,0)) AS Sub27, Sum(IIf((t1.EventSubClass=28),t1.PreTaxCost,0)) AS Sub28, Sum(IIf((t1.EventSu"
    "bClass=35),t1.PreTaxCost,0)) AS Sub35, Sum(IIf((t1.EventSubClass=38),t1.PreTaxCost,0)) AS Sub38, Sum"
    "(IIf((t1.EventSubClass=95),t1.PreTaxCost,0)) AS Sub95, Sum(IIf((t1.EventSubClass=106),t1.PreTaxCost,"
    "0)) AS Sub106, Sum(IIf((t1.EventSubClass=241),t1.PreTaxCost,0)) AS Sub241, Sum(IIf((t1.EventSubClass"
    "=242),t1.PreTaxCost,0)) AS Sub242, Sum(IIf((t1.EventSubClass=244),t1.PreTaxCost,0)) AS Sub244, Sum(I"
    "If((t1.EventSubClass=130),t1.PreTaxCost,0)) AS Sub130, Sum(IIf((t1.EventSubClass=131),t1.PreTaxCost,"
    "0)) AS Sub131, Sum(IIf((t1.EventSubClass=132),t1.PreTaxCost,0)) AS Sub132, Sum(IIf((t1.EventSubClass"
    "=133),t1.PreTaxCost,0)) AS Sub133, Sum(IIf((t1.EventSubClass=134),t1.PreTaxCost,0)) AS Sub134, Sum(I"
    "If((t1.EventSubClass=135),t1.PreTaxCost,0)) AS Sub135, Sum(IIf((t1.EventSubClass=136),t1.PreTaxCost,"
    "0)) AS Sub136, Sum(IIf((t1.EventSubClass=210),t1.PreTaxCost,0)) AS Sub210, Sum(IIf((t1.EventSubClass"
    "=211),t1.PreTaxCost,0)) AS Sub211, Sum(IIf((t1.EventSubClass=212),t1.PreTaxCost,0)) AS Sub212, Sum(I"
    "If((t1.EventSubClass=213),t1.PreTaxCost,0)) AS Sub213, Sum(IIf((t1.EventSubClass=224),t1.PreTaxCost,"
    "0)) AS Sub224, Sum(IIf((t1.EventSubClass=225),t1.PreTaxCost,0)) AS Sub225, Sum(IIf((t1.EventSubClass"
    "=215),t1.PreTaxCost,0)) AS Sub215, Sum(IIf((t1.EventSubClass=221),t1.PreTaxCost,0)) AS Sub221, Sum(I"
    "If((t1.EventSubClass=124),t1.PreTaxCost,0)) AS Sub124, Sum(IIf((t1.EventSubClass=125),t1.PreTaxCost,"
    "0)) AS Sub125, Sum(IIf((t1.EventSubClass=126),t1.PreTaxCost,0)) AS Sub126, Sum(IIf((t1.EventSubClass"
    "=127),t1.PreTaxCost,0)) AS Sub127, Sum(IIf((t1.EventSubClass=226),t1.PreTaxCost,0)) AS Sub226, Sum(I"
    "If((t1.EventSubClass=227),t1.PreTaxCost,0)) AS Sub227, Sum(IIf((t1.EventSubClass=128),t1.PreTaxCost,"
    "0)) AS Sub128, Sum(IIf((t1.EventSubClass=129),t1.PreTaxCost,0)) AS Sub129, Sum(IIf((t1.EventSubClass"
    "=228),t1.PreTaxCost,0)) AS Sub228, Sum(IIf((t1.EventSubClass=229),t1.PreTaxCost,0)) AS Sub229, Sum(I"
    "If((t1.EventSubClass=230),t1.PreTaxCost,0)) AS Sub230, Sum(IIf((t1.EventSubClass=231),t1.PreTaxCost,"
    "0)) AS Sub231, Sum(IIf((t1.EventSubClass=232),t1.PreTaxCost,0)) AS Sub232, Sum(IIf((t1.EventSubClass"
    "=246),t1.PreTaxCost,0)) AS Sub246, Sum(IIf((t1.EventSubClass=237),t1.PreTaxCost,0)) AS Sub237, Sum(I"
    "If((t1.EventSubClass=238),t1.PreTaxCost,0)) AS Sub238, Sum(IIf((t1.EventSubClass=239),t1.PreTaxCost,"
    "0)) AS Sub239, Sum(IIf((t1.EventSubClass=236),t1.PreTaxCost,0)) AS Sub236, t2.LastOfDescription1, Su"
    "m(IIf((t1.EventClass=1),t1.TotalDiscount,0)) AS [Usage Discount], Sum(IIf((t1.EventClass=3),t1.Total"
    "Discount,0)) AS [Recurring Discount], Sum(IIf((t1.EventClass=2),t1.TotalDiscount,0)) AS [One Off Dis"
    "count], min(t1.rowid) AS FirstLine FROM Tbl307 AS t1 LEFT JOIN (SELECT Tbl407.ServiceNo, Tbl017.Desc"
    "ription1 AS LastOfDescription1, max(Tbl407.rowid * 1000000000 + ifnull(Tbl017.rowid, 0)) AS LastLine"
    " FROM Tbl407 LEFT JOIN Tbl017 ON Tbl407.DiscountProduct = Tbl017.Enumeration GROUP BY Tbl407.Service"
    "No) AS t2 ON t1.ServiceNo = t2.ServiceNo GROUP BY t1.ServiceNo, t1.SourceAccountNo, t1.TaxRate, t1.T"
    "axDescription, t1.UsageStartDate, t1.UsageEndDate, t1.RentalStartDate, t1.RentalEndDate, t2.LastOfDe"
    "scription1";

const char* const OracleResidual =
    "SELECT ServiceNo, RentalStartDate, RentalEndDate, Sum(IIf((EventClass=2 And EventSubClass Not In (27"
    ",238,244)),PreTaxCost,0)) AS OneOff, Sum(IIf((EventClass=3 And EventSubClass Not In (26,27,28,35,38,"
    "95,106,239,241,242)),PreTaxCost,0)) AS recurring, Sum(IIf((EventClass=1 And EventSubClass Not In (12"
    "4,125,126,127,128,129,130,131,132,133,134,135,136,210,211,212,213,215,221,224,225,226,227,228,229,23"
    "0,231,232,236,237,246)),PreTaxCost,0)) AS [Usage] FROM Tbl307  GROUP BY ServiceNo, RentalStartDate, "
    "RentalEndDate HAVING (((Sum(IIf((EventClass=2 And EventSubClass Not In (27,238,244)),PreTaxCost,0)))"
    "<>0)) OR (((Sum(IIf((EventClass=3 And EventSubClass Not In (26,27,28,35,38,95,106,239,241,242)),PreT"
    "axCost,0)))<>0)) OR (((Sum(IIf((EventClass=1 And EventSubClass Not In (124,125,126,127,128,129,130,1"
    "31,132,133,134,135,136,210,211,212,213,215,221,224,225,226,227,228,229,230,231,232,236,237,246)),Pre"
    "TaxCost,0)))<>0)) ORDER BY Tbl307.ServiceNo, Tbl307.RentalStartDate, Tbl307.RentalEndDate";

QString render(const DbValue& v) {
    if (std::holds_alternative<std::monostate>(v))
        return QStringLiteral("null");
    if (const auto* i = std::get_if<std::int64_t>(&v))
        return QStringLiteral("n:") + QString::number(double(*i), 'g', 12);
    if (const auto* d = std::get_if<double>(&v))
        return QStringLiteral("n:") + QString::number(*d, 'g', 12);
    if (const auto* s = std::get_if<QString>(&v))
        return QStringLiteral("t:") + *s;
    return QStringLiteral("b:") + QString::fromLatin1(std::get<QByteArray>(v).toHex());
}

bool sameValue(const DbValue& a, const DbValue& b) {
    return render(a) == render(b);
}

QString textOf(const DbValue& v) {
    if (const auto* s = std::get_if<QString>(&v))
        return *s;
    if (const auto* i = std::get_if<std::int64_t>(&v))
        return QString::number(*i);
    return QString();
}

// The stored product text, worked out with plain look-ups.
QString describe(Database& project, const QString& code, const QString& serviceType) {
    const auto lookUp = [&](const QString& key) -> std::optional<QString> {
        Statement st(project,
                     QStringLiteral("SELECT Description1 FROM Tbl017 WHERE ColumnName IN ('Product Service "
                                    "Code', 'Service Type') AND Enumeration = ? ORDER BY rowid LIMIT 1"));
        st.bind(1, key);
        if (st.step())
            return st.text(0).trimmed();
        return std::nullopt;
    };
    if (code == QLatin1String("P00031"))
        return lookUp(serviceType).value_or(QString());
    return lookUp(code).value_or(serviceFamilyLabel(code));
}

QStringList oracleRows(Database& project, const Date& billDate, const QString& account) {
    struct Residual {
        DbValue service, start, end, oneOff, recurring, usage;
    };
    std::vector<Residual> residuals;
    Statement r(project, QString::fromLatin1(OracleResidual));
    while (r.step())
        residuals.push_back({r.value(0), r.value(1), r.value(2), r.value(3), r.value(4), r.value(5)});

    QStringList rows;
    Statement g(project, QString::fromLatin1(OracleGathering));
    g.bindAll(billDate.toIso(), account);
    while (g.step()) {
        std::vector<DbValue> row;
        for (int i = 0; i < 78; ++i)
            row.push_back(g.value(i));
        row[22] = describe(project, textOf(row[22]), textOf(row[23]));
        row.push_back(DbValue()); // Mobile Other
        DbValue recurring, usage, oneOff;
        for (const Residual& res : residuals) {
            const auto eq = [](const DbValue& a, const DbValue& b) {
                return !std::holds_alternative<std::monostate>(a) &&
                       !std::holds_alternative<std::monostate>(b) && sameValue(a, b);
            };
            if (eq(res.service, row[2]) && eq(res.start, row[17]) && eq(res.end, row[18])) {
                recurring = res.recurring;
                usage = res.usage;
                oneOff = res.oneOff;
                break;
            }
        }
        row.push_back(recurring);
        row.push_back(usage);
        row.push_back(oneOff);
        QStringList cells;
        for (const DbValue& v : row)
            cells << render(v);
        rows << cells.join(QLatin1Char('|'));
    }
    rows.sort();
    return rows;
}

QStringList gatheredRows(Database& trend, const Date& billDate, const QString& account) {
    QStringList rows;
    Statement st(trend,
                 QStringLiteral("SELECT * FROM tblSummaryTrend WHERE BillDate = ? AND BillAccount = ?"));
    st.bindAll(billDate, account);
    while (st.step()) {
        QStringList cells;
        for (int i = 0; i < st.columnCount(); ++i)
            cells << render(st.value(i));
        rows << cells.join(QLatin1Char('|'));
    }
    rows.sort();
    return rows;
}

// A bill with every kind of awkward line: Null keys and amounts, named and unnamed
// sub-classes of every class, several tax rates, lines without rental dates, codes
// found and not found, discount products with several descriptions.
void randomBill(ProjectBuilder& p, quint32 seed, int lines) {
    QRandomGenerator rng(seed);
    const int subs[] = {26,  27,  28,  35,  95,  106, 130, 136, 210, 211, 212, 215, 221,
                        228, 231, 236, 237, 238, 239, 244, 246, 5,   40,  300, 999};
    const QString codes[] = {QStringLiteral("P00001"), QStringLiteral("P00020"), QStringLiteral("P00031"),
                             QStringLiteral("X9"), QStringLiteral("P00048")};
    p.lookUp(QStringLiteral("Product Service Code"), QStringLiteral("P00001"), QStringLiteral(" Analogue "));
    p.lookUp(QStringLiteral("Service Type"), QStringLiteral("2"), QStringLiteral("ISDN"));
    p.lookUp(QStringLiteral("Discount"), QStringLiteral("D1"), QStringLiteral("Loyalty"));
    p.lookUp(QStringLiteral("Discount"), QStringLiteral("D1"), QStringLiteral("Loyalty Plus"));
    p.discountProduct(QStringLiteral("S3"), QStringLiteral("D1"));
    p.discountProduct(QStringLiteral("S4"), QStringLiteral("NONE"));
    for (int i = 0; i < lines; ++i) {
        Line l;
        l.service = QStringLiteral("S%1").arg(rng.bounded(12));
        l.sourceAccount = rng.bounded(5) == 0 ? QStringLiteral("SRC2") : QStringLiteral("SRC1");
        l.preTax = rng.bounded(40) == 0
                       ? std::nullopt
                       : std::optional<Money>(Money::fromRaw(qint64(rng.bounded(2000000)) - 300000));
        l.discount = Money::fromRaw(-qint64(rng.bounded(5000)));
        l.taxRate = rng.bounded(3) == 0 ? 17.5 : 20;
        l.eventClass = rng.bounded(30) == 0 ? std::nullopt : std::optional<int>(1 + rng.bounded(4));
        l.subClass = rng.bounded(30) == 0 ? std::nullopt : std::optional<int>(subs[rng.bounded(25)]);
        const int period = rng.bounded(4);
        if (period == 3) {
            l.rentalStart = Date();
            l.rentalEnd = Date();
        } else {
            l.rentalStart = Date(2012, 1 + period, 1);
            l.rentalEnd = Date(2012, 1 + period, 28);
        }
        if (rng.bounded(6) == 0)
            l.usageStart = Date();
        l.productCode = rng.bounded(20) == 0 ? std::nullopt : std::optional<QString>(codes[rng.bounded(5)]);
        l.serviceType = 1 + rng.bounded(3);
        l.description1 = QStringLiteral("line %1").arg(i);
        l.callVolume = rng.bounded(10);
        l.duration = rng.bounded(600);
        p.add(l);
    }
}

} // namespace

class GatheringOracleTest : public QObject {
    Q_OBJECT
private slots:
    void randomBillsMatchTheOracle_data();
    void randomBillsMatchTheOracle();
    void demoBillsMatchTheOracle();
};

void GatheringOracleTest::randomBillsMatchTheOracle_data() {
    QTest::addColumn<quint32>("seed");
    for (quint32 seed : {1u, 2u, 3u, 42u})
        QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
}

void GatheringOracleTest::randomBillsMatchTheOracle() {
    QFETCH(quint32, seed);
    ProjectBuilder p(QStringLiteral("ACC'1"));
    randomBill(p, seed, 1500);
    RecordingDialogService dialogs;
    AppContext ctx(dialogs);
    ctx.trendDb = Database::openMemory();
    CreateTrendTable(ctx.trendDb);
    const GatherResult r = GatherTrend(ctx, p.db());
    QVERIFY2(r.ok(), qPrintable(r.error));
    const QStringList expected = oracleRows(p.db(), r.billDate, r.account);
    const QStringList actual = gatheredRows(ctx.trendDb, r.billDate, r.account);
    QVERIFY(expected.size() > 50);
    QCOMPARE(actual.size(), expected.size());
    for (int i = 0; i < expected.size(); ++i)
        QCOMPARE(actual[i], expected[i]);
}

void GatheringOracleTest::demoBillsMatchTheOracle() {
    testing::TempDir dir;
    DemoOptions options;
    options.folder = dir.path();
    options.seed = 11;
    options.accounts = 2;
    options.bills = 2;
    options.linesPerBill = 800;
    const DemoSummary demo = writeDemoInstallation(options);
    RecordingDialogService dialogs;
    AppContext ctx(dialogs);
    ctx.trendDb = Database::openMemory();
    CreateTrendTable(ctx.trendDb);
    int bills = 0;
    for (const DemoFile& file : demo.files) {
        if (!file.path.startsWith(demo.projectFolder))
            continue;
        Database project = Database::open(file.path);
        const GatherResult r = GatherTrend(ctx, project);
        QVERIFY2(r.ok(), qPrintable(r.error));
        const QStringList expected = oracleRows(project, r.billDate, r.account);
        QCOMPARE(gatheredRows(ctx.trendDb, r.billDate, r.account), expected);
        ++bills;
    }
    QVERIFY(bills >= 4);
}

VANTREL_TEST(GatheringOracleTest);
#include "tst_gatheringoracle.moc"
