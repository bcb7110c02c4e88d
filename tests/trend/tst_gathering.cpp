// Gathering a bill into the trend store, against an independent oracle: the two summary
// statements written out in plain SQL (a GROUP BY with a single min() so the "first"
// columns come from each group's earliest line, and the residual query with its HAVING),
// the residual matched to each row by a first-match scan, and every column compared.
// Hand-worked sums check the residual rules the oracle encodes; a failed or cancelled
// gathering leaves the bill's earlier entry.
#include "TempDir.h"
#include "TestRegistry.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "data/Schema.h"
#include "data/Stores.h"
#include "tools/DemoGenerator.h"
#include "trend/ServiceDescription.h"
#include "trend/TrendGathering.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

// One charge line of a hand-made bill.
struct Line {
    QString service = QStringLiteral("A");
    QString sourceAccount = QStringLiteral("SRC1");
    std::optional<Money> preTax = Money::fromPounds(10);
    std::optional<Money> discount = Money();
    double taxRate = 20;
    std::optional<int> eventClass = 1;
    std::optional<int> subClass = 210;
    Date usageStart = Date(2012, 1, 1);
    Date rentalStart = Date(2012, 2, 1);
    Date rentalEnd = Date(2012, 2, 29);
    std::optional<QString> productCode = QStringLiteral("P00001");
    std::optional<int> serviceType = 1;
    QString description1 = QStringLiteral("line");
    int callVolume = 1;
    double duration = 60;
};

Line line(const QString& service, int eventClass, int subClass, qint64 pounds) {
    return Line{.service = service,
                .preTax = Money::fromPounds(pounds),
                .eventClass = eventClass,
                .subClass = subClass};
}

// A project of one bill in memory; the bill date is the project's creation date.
struct Project {
    Database db = Database::openMemory();
    explicit Project(const QString& account = QStringLiteral("ACC1"),
                     const QString& created = QStringLiteral("31/01/2012")) {
        db.execScript(schemaText(QStringLiteral("project")));
        db.exec(QStringLiteral("INSERT INTO Tbl50 (VeloraAccount, LocID, Imports, CRV, CreateDate) "
                               "VALUES (?, 'L1', 'O', '', ?)"),
                account, created);
    }
    Project& add(const Line& l) {
        Statement st(db, QStringLiteral(
                             "INSERT INTO Tbl307 (ServiceNo, SourceAccountNo, BillCost, TaxCost, PreTaxCost, "
                             "TotalDiscount, PreDiscountCost, TaxRate, TaxDescription, EventClass, "
                             "EventSubClass, UsageStartDate, UsageEndDate, RentalStartDate, RentalEndDate, "
                             "CallVolume, Duration, CallType, ProductCode, ServiceType, SourceBillRef, "
                             "CFBAccountNo, CFBReportNo, AdjustmentDescription, Description1, Description2, "
                             "Description3, ThisImport) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,"
                             "?,?,?,?,?,?)"));
        const Money pre = l.preTax.value_or(Money());
        const Money tax = Money::fromRaw(pre.raw() / 5);
        st.bindAll(l.service, l.sourceAccount, pre + tax, tax, l.preTax, l.discount, pre, l.taxRate,
                   l.taxRate == 20 ? QStringLiteral("Standard") : QStringLiteral("Other"), l.eventClass,
                   l.subClass, l.usageStart, Date(2012, 1, 31), l.rentalStart, l.rentalEnd, l.callVolume,
                   l.duration, 3, l.productCode, l.serviceType, QStringLiteral("REF"), QStringLiteral("CFB"),
                   QStringLiteral("R1"), QString(), l.description1, QStringLiteral("d2"),
                   QStringLiteral("d3"), 1);
        st.run();
        return *this;
    }
    void lookUp(const QString& column, const QString& code, const QString& description) {
        db.exec(QStringLiteral("INSERT INTO Tbl017 (ColumnName, Enumeration, Description1) VALUES (?, ?, ?)"),
                column, code, description);
    }
    void discountProduct(const QString& service, const QString& product) {
        db.exec(QStringLiteral("INSERT INTO Tbl407 (ServiceNo, DiscountProduct) VALUES (?, ?)"), service,
                product);
    }
};

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
};

// The sub-classes with a column of their own, in the store's column order.
const int NamedSubClasses[] = {26,  27,  28,  35,  38,  95,  106, 241, 242, 244, 130, 131, 132, 133, 134,
                               135, 136, 210, 211, 212, 213, 224, 225, 215, 221, 124, 125, 126, 127, 226,
                               227, 128, 129, 228, 229, 230, 231, 232, 246, 237, 238, 239, 236};

QString oracleGathering() {
    QString subs;
    for (int sub : NamedSubClasses)
        subs += QStringLiteral("Sum(IIf((t1.EventSubClass=%1),t1.PreTaxCost,0)) AS Sub%1, ").arg(sub);
    return QStringLiteral(
               "SELECT ?1, ?2, t1.ServiceNo, t1.SourceAccountNo, Sum(t1.BillCost), Sum(t1.TaxCost), "
               "Sum(t1.PreTaxCost), Sum(t1.TotalDiscount), Sum(t1.PreDiscountCost), t1.TaxRate, "
               "t1.TaxDescription, Sum(IIf((t1.EventClass=1),t1.PreTaxCost,0)), "
               "Sum(IIf((t1.EventClass=3),t1.PreTaxCost,0)), Sum(IIf((t1.EventClass=2),t1.PreTaxCost,0)), "
               "Sum(IIf((t1.EventClass=4),t1.PreTaxCost,0)), t1.UsageStartDate, t1.UsageEndDate, "
               "t1.RentalStartDate, t1.RentalEndDate, Sum(t1.CallVolume), Sum(t1.Duration), t1.CallType, "
               "t1.ProductCode, t1.ServiceType, t1.SourceBillRef, t1.CFBAccountNo, t1.CFBReportNo, "
               "t1.AdjustmentDescription, t1.Description1, t1.Description2, t1.Description3, ") +
           subs +
           QStringLiteral(
               "t2.LastOfDescription1, Sum(IIf((t1.EventClass=1),t1.TotalDiscount,0)), "
               "Sum(IIf((t1.EventClass=3),t1.TotalDiscount,0)), "
               "Sum(IIf((t1.EventClass=2),t1.TotalDiscount,0)), "
               "min(t1.rowid) FROM Tbl307 AS t1 LEFT JOIN (SELECT Tbl407.ServiceNo, Tbl017.Description1 AS "
               "LastOfDescription1, max(Tbl407.rowid * 1000000000 + ifnull(Tbl017.rowid, 0)) FROM Tbl407 "
               "LEFT JOIN Tbl017 ON Tbl407.DiscountProduct = Tbl017.Enumeration GROUP BY Tbl407.ServiceNo) "
               "AS t2 "
               "ON t1.ServiceNo = t2.ServiceNo GROUP BY t1.ServiceNo, t1.SourceAccountNo, t1.TaxRate, "
               "t1.TaxDescription, t1.UsageStartDate, t1.UsageEndDate, t1.RentalStartDate, "
               "t1.RentalEndDate, t2.LastOfDescription1");
}

// One-off, recurring and usage lines whose sub-class has no column of the class.
QString oracleResidual() {
    const QString oneOff = QStringLiteral("Sum(IIf((EventClass=2 And EventSubClass Not In (27,238,244)),"
                                          "PreTaxCost,0))");
    const QString recurring = QStringLiteral("Sum(IIf((EventClass=3 And EventSubClass Not In (26,27,28,35,38,"
                                             "95,106,239,241,242)),PreTaxCost,0))");
    const QString usage = QStringLiteral(
        "Sum(IIf((EventClass=1 And EventSubClass Not In (124,125,126,127,128,129,130,131,132,133,134,135,"
        "136,210,211,212,213,215,221,224,225,226,227,228,229,230,231,232,236,237,246)),PreTaxCost,0))");
    return QStringLiteral("SELECT ServiceNo, RentalStartDate, RentalEndDate, %1, %2, %3 FROM Tbl307 GROUP BY "
                          "ServiceNo, RentalStartDate, RentalEndDate HAVING %1<>0 OR %2<>0 OR %3<>0 "
                          "ORDER BY ServiceNo, RentalStartDate, RentalEndDate")
        .arg(oneOff, recurring, usage);
}

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

QString textOf(const DbValue& v) {
    return std::holds_alternative<std::monostate>(v) ? QString() : render(v).mid(2);
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
    std::vector<std::vector<DbValue>> residuals; // service, start, end, one-off, recurring, usage
    Statement r(project, oracleResidual());
    while (r.step())
        residuals.push_back({r.value(0), r.value(1), r.value(2), r.value(3), r.value(4), r.value(5)});
    const auto same = [](const DbValue& a, const DbValue& b) {
        return !std::holds_alternative<std::monostate>(a) && render(a) == render(b);
    };
    QStringList rows;
    Statement g(project, oracleGathering());
    g.bindAll(billDate.toIso(), account);
    while (g.step()) {
        std::vector<DbValue> row;
        for (int i = 0; i < 78; ++i)
            row.push_back(g.value(i));
        row[22] = describe(project, textOf(row[22]), textOf(row[23]));
        row.push_back(DbValue()); // Mobile Other: gathering never fills it
        std::vector<DbValue> residual(6);
        for (const auto& res : residuals) {
            if (same(res[0], row[2]) && same(res[1], row[17]) && same(res[2], row[18])) {
                residual = res;
                break;
            }
        }
        for (int i : {4, 5, 3}) // recurring, usage, one-off
            row.push_back(residual[std::size_t(i)]);
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
// found and not found, services with several discount products and descriptions.
void randomBill(Project& p, quint32 seed, int lines) {
    QRandomGenerator rng(seed);
    const int subs[] = {26,  27,  28,  35,  95,  106, 130, 136, 210, 211, 212, 215, 221,
                        228, 231, 236, 237, 238, 239, 244, 246, 5,   40,  300, 999};
    const QString codes[] = {QStringLiteral("P00001"), QStringLiteral("P00020"), QStringLiteral("P00031"),
                             QStringLiteral("X9"), QStringLiteral("P00048")};
    for (const char* row :
         {"Product Service Code|P00001| Analogue ", "Other Column|P00020|Not this one", "Service Type|2|ISDN",
          "Discount|D1|Loyalty", "Discount|D1|Loyalty Plus", "Discount|D2|Volume"}) {
        const QStringList f = QString::fromLatin1(row).split(QLatin1Char('|'));
        p.lookUp(f[0], f[1], f[2]);
    }
    p.discountProduct(QStringLiteral("S3"), QStringLiteral("D2"));
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
        l.rentalStart = period == 3 ? Date() : Date(2012, 1 + period, 1);
        l.rentalEnd = period == 3 ? Date() : Date(2012, 1 + period, 28);
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

class GatheringTest : public QObject {
    Q_OBJECT
private slots:
    void randomBillsMatchTheOracle_data();
    void randomBillsMatchTheOracle();
    void demoBillsMatchTheOracle();
    void subClassColumnsAndResiduals();
    void aBillKeepsOneEntry();
};

void GatheringTest::randomBillsMatchTheOracle_data() {
    QTest::addColumn<quint32>("seed");
    for (quint32 seed : {1u, 2u, 3u, 42u})
        QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
}

void GatheringTest::randomBillsMatchTheOracle() {
    QFETCH(quint32, seed);
    Project p(QStringLiteral("ACC'1"));
    randomBill(p, seed, 1500);
    TrendStore t;
    const GatherResult r = GatherTrend(t.ctx, p.db);
    QVERIFY2(r.ok(), qPrintable(r.error));
    QCOMPARE(r.account, QStringLiteral("ACC'1"));
    QCOMPARE(r.billDate, Date(2012, 1, 31));
    const QStringList expected = oracleRows(p.db, r.billDate, r.account);
    const QStringList actual = gatheredRows(t.ctx.trendDb, r.billDate, r.account);
    QVERIFY(expected.size() > 50);
    QCOMPARE(r.rowsWritten, qint64(expected.size()));
    QCOMPARE(actual, expected);
}

void GatheringTest::demoBillsMatchTheOracle() {
    testing::TempDir dir;
    DemoOptions options;
    options.folder = dir.path();
    options.seed = 11;
    options.accounts = 2;
    options.bills = 2;
    options.linesPerBill = 800;
    const DemoSummary demo = writeDemoInstallation(options);
    TrendStore t;
    int bills = 0;
    for (const DemoFile& file : demo.files) {
        if (!file.path.startsWith(demo.projectFolder))
            continue;
        Database project = Database::open(file.path);
        const GatherResult r = GatherTrend(t.ctx, project);
        QVERIFY2(r.ok(), qPrintable(r.error));
        QCOMPARE(gatheredRows(t.ctx.trendDb, r.billDate, r.account),
                 oracleRows(project, r.billDate, r.account));
        ++bills;
    }
    QVERIFY(bills >= 4);
}

// The residual rules worked by hand for one service, in pounds.
void GatheringTest::subClassColumnsAndResiduals() {
    Project p;
    p.add(line("A", 3, 210, 4)).add(line("A", 1, 210, 6)); // a named column sums any class
    p.add(line("A", 1, 999, 2)).add(line("A", 3, 999, 8)).add(line("A", 2, 999, 1)); // residual of its class
    p.add(line("A", 3, 28, 50)).add(line("A", 2, 27, 70)); // named for recurring; one-off and recurring
    p.add(line("A", 4, 999, 30));                          // class 4 is never residual
    TrendStore t;
    QVERIFY(GatherTrend(t.ctx, p.db).ok());
    const QStringList columns = {"Direct Dialled Local", "Line Rental",   "Connection",  "Usage Other",
                                 "Recurring Other",      "One Off Other", "Adjustments", "Call Volume"};
    // Sub-class 210 is not one the recurring residual leaves out: 4 + 8.
    const QList<qint64> expected = {10 * 10000, 50 * 10000, 70 * 10000, 2 * 10000,
                                    12 * 10000, 1 * 10000,  30 * 10000, 8};
    for (int i = 0; i < columns.size(); ++i)
        QCOMPARE(
            queryInt(t.ctx.trendDb, QStringLiteral("SELECT \"%1\" FROM tblSummaryTrend").arg(columns[i])),
            expected[i]);
}

// Gathering a bill again replaces its entry; a cancelled or failed gathering leaves it.
void GatheringTest::aBillKeepsOneEntry() {
    Project feb(QStringLiteral("ACC1"), QStringLiteral("29/02/2012"));
    feb.add(line("A", 1, 210, 3));
    Project jan;
    for (int i = 0; i < 20000; ++i)
        jan.add(line(QStringLiteral("S%1").arg(i % 5000), 1, 210, 1));
    TrendStore t;
    QVERIFY(GatherTrend(t.ctx, feb.db).ok());
    QVERIFY(GatherTrend(t.ctx, jan.db).ok());
    QVERIFY(GatherTrend(t.ctx, jan.db).ok());
    QCOMPARE(t.count(QStringLiteral("BillDate = '2012-01-31' AND BillAccount = 'ACC1'")), 5000);
    QCOMPARE(t.count(), 5001);
    jan.add(line("NEW", 1, 210, 1));
    // Cancelled once reading is done and writing has begun: the old rows are deleted by then.
    GatherResult r = GatherTrend(t.ctx, jan.db, [](qint64 done, qint64 total) { return done <= total / 2; });
    QCOMPARE(r.status, GatherResult::Status::Cancelled);
    QCOMPARE(t.count(), 5001);
    QVERIFY(!t.ctx.trendDb.inTransaction());
    // A failure while the new rows are written, after the old ones were deleted.
    t.ctx.trendDb.execScript(
        QStringLiteral("CREATE TRIGGER fail BEFORE INSERT ON tblSummaryTrend WHEN "
                       "NEW.\"Service No\" = 'NEW' BEGIN SELECT RAISE(ABORT, 'x'); END;"));
    r = GatherTrend(t.ctx, jan.db);
    QCOMPARE(r.status, GatherResult::Status::Failed);
    QVERIFY(!r.error.isEmpty());
    QCOMPARE(t.count(), 5001);
}

VANTREL_TEST(GatheringTest);
#include "tst_gathering.moc"
