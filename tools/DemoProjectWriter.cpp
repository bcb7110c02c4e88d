#include "data/Database.h"
#include "data/Schema.h"
#include "tools/DemoChargeLines.h"
#include "tools/DemoRandom.h"
#include "tools/DemoWriters.h"

#include <algorithm>

namespace demo {

namespace {

QString orEmpty(const QString& s) {
    return s.isNull() ? QStringLiteral("") : s;
}

void bindText(Statement& st, int index, const QString& value) {
    if (value.isNull())
        st.bindNull(index);
    else
        st.bind(index, value);
}

QString twoDigits(unsigned n) {
    return QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
}

QString ddmmyyyy(const Date& d) {
    return twoDigits(d.day()) + QLatin1Char('/') + twoDigits(d.month()) + QLatin1Char('/') +
           QString::number(d.year());
}

// A generator's file is scratch until it is complete: no journal, no syncing.
Database openForBulkWrite(const QString& path) {
    Database db = Database::open(path, Database::Mode::ReadWrite);
    db.execScript(QStringLiteral("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;"));
    return db;
}

qint64 writeChargeLines(Database& db, const AccountPlan& plan, const BillPeriod& period, qint64 lines,
                        quint64 seed) {
    Statement st = db.prepare(QStringLiteral(
        "INSERT INTO Tbl307 (ServiceNo, SourceAccountNo, BillCost, TaxCost, PreTaxCost, TotalDiscount, "
        "PreDiscountCost, TaxRate, TaxDescription, EventClass, EventSubClass, UsageStartDate, UsageEndDate, "
        "RentalStartDate, RentalEndDate, CallVolume, Duration, CallType, ProductCode, ServiceType, "
        "SourceBillRef, CFBAccountNo, CFBReportNo, AdjustmentDescription, Description1, Description2, "
        "Description3, ThisImport) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, "
        "?16, ?17, ?18, ?19, ?20, ?21, ?22, ?23, ?24, ?25, ?26, ?27, ?28)"));
    const QString billRef = plan.account + QLatin1Char('-') + QString::number(period.billDate.year()) +
                            twoDigits(period.billDate.month());
    const QString reportNo = QStringLiteral("CFB") + period.billDate.toIso().remove(QLatin1Char('-'));
    std::vector<QString> taxDescriptions;
    for (const TaxBand& b : taxBands())
        taxDescriptions.push_back(QString::fromUtf8(b.description));
    std::vector<QString> kindNames;
    for (const ServicePlan& s : plan.services)
        kindNames.push_back(QString::fromUtf8(serviceKind(s.kind).name).left(16));

    return generateChargeLines(plan, period, lines, seed, [&](const ChargeLine& line) {
        const ServicePlan& s = plan.services[size_t(line.service)];
        st.bind(1, s.number);
        st.bind(2, s.sourceAccount);
        st.bind(3, line.billCost);
        st.bind(4, line.taxCost);
        st.bind(5, line.preTaxCost);
        st.bind(6, line.totalDiscount);
        st.bind(7, line.preDiscountCost);
        st.bind(8, taxBands()[size_t(line.taxBand)].rate);
        st.bind(9, taxDescriptions[size_t(line.taxBand)]);
        st.bind(10, line.eventClass);
        st.bind(11, line.eventSubClass);
        bindText(st, 12, line.usageStart);
        bindText(st, 13, line.usageEnd);
        bindText(st, 14, line.rentalStart);
        bindText(st, 15, line.rentalEnd);
        st.bind(16, line.callVolume);
        st.bind(17, line.duration);
        st.bind(18, line.callType);
        bindText(st, 19, line.nullProductCode ? QString() : s.productCode);
        st.bind(20, s.serviceType);
        st.bind(21, billRef);
        st.bind(22, s.sourceAccount);
        st.bind(23, reportNo);
        bindText(st, 24, line.adjustmentDescription);
        st.bind(25, line.description1);
        bindText(st, 26, s.location.left(30));
        st.bind(27, kindNames[size_t(line.service)]);
        st.bind(28, line.thisImport);
        st.run();
        st.reset();
    });
}

void writeCallRecords(Database& db, const AccountPlan& plan, const BillPeriod& period, qint64 count,
                      quint64 seed) {
    static const char* const destinations[] = {
        "Leeds",  "London", "Manchester",         "Glasgow", "Cardiff", "Belfast", "Paris", "New York",
        "Mobile", "Dublin", "Directory Enquiries"};
    std::vector<int> callers;
    for (int i = 0; i < int(plan.services.size()); ++i) {
        const ServicePlan& s = plan.services[size_t(i)];
        if (s.usageLevel > 0 && plan.isActive(s, period.month))
            callers.push_back(i);
    }
    if (callers.empty())
        return;
    DemoRandom rng(DemoRandom::derive(seed, {accountTag(plan.account), quint64(period.month), 997}));
    const int days = int(period.usageStart.daysTo(period.billDate));
    Statement st = db.prepare(QStringLiteral("INSERT INTO Tbl997 (CallID, ServiceNo, CallDate, Destination, "
                                             "Duration, Cost) VALUES (?1, ?2, ?3, ?4, ?5, ?6)"));
    for (qint64 id = 1; id <= count; ++id) {
        st.bind(1, std::int64_t(id));
        st.bind(2, plan.services[size_t(rng.pick(callers))].number);
        st.bind(3, period.usageStart.addDays(rng.below(days)));
        st.bind(4, rng.pick(destinations));
        st.bind(5, double(rng.between(5, 1800)));
        st.bind(6, Money::fromRaw(rng.between64(50, 50000)));
        st.run();
        st.reset();
    }
}

// Discount products of the active services; one service holds two, as happens
// when a discount is changed during the month.
void writeDiscountLinks(Database& db, const AccountPlan& plan, const BillPeriod& period) {
    Statement st =
        db.prepare(QStringLiteral("INSERT INTO Tbl407 (ServiceNo, DiscountProduct) VALUES (?1, ?2)"));
    bool doubled = false;
    for (const ServicePlan& s : plan.services) {
        if (s.discountPercent == 0 || !plan.isActive(s, period.month))
            continue;
        st.bindAll(s.number, s.discountProduct);
        st.run();
        st.reset();
        if (!doubled && s.discountProduct != QLatin1String("D0101")) {
            st.bindAll(s.number, QStringLiteral("D0101"));
            st.run();
            st.reset();
            doubled = true;
        }
    }
}

void writeLookups(Database& db) {
    Statement st = db.prepare(
        QStringLiteral("INSERT INTO Tbl017 (ColumnName, Enumeration, Description1) VALUES (?1, ?2, ?3)"));
    for (const LookupRow& r : lookupRows()) {
        st.bindAll(r.columnName, r.enumeration, r.description);
        st.run();
        st.reset();
    }
}

// The copies the host product keeps in the project, as left at its last selection:
// services connected since then are missing.
void writeStaleReferenceCopies(Database& db, const AccountPlan& plan, int month) {
    Statement cc = db.prepare(QStringLiteral(
        "INSERT INTO TblCC (VeloraAccount, TelNo, SourceAccount, CostCentre1, CostCentre2, CostCentre3, "
        "CostCentre4, CostCentre5) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)"));
    Statement tel = db.prepare(
        QStringLiteral("INSERT INTO TblTel (VeloraAccount, TelNo, Location, Name) VALUES (?1, ?2, ?3, ?4)"));
    Statement book = db.prepare(QStringLiteral(
        "INSERT INTO TblPhoneBook (VeloraAccount, TelNo, Name, \"Use\") VALUES (?1, ?2, ?3, ?4)"));
    for (const ServicePlan& s : plan.services) {
        if (s.firstMonth > month)
            continue;
        if (s.costCentre) {
            const CostCentreRow& row = *s.costCentre;
            cc.bindAll(plan.account, s.number, s.sourceAccount, orEmpty(row[0]), orEmpty(row[1]),
                       orEmpty(row[2]), orEmpty(row[3]), orEmpty(row[4]));
            cc.run();
            cc.reset();
        }
        if (!s.location.isNull()) {
            tel.bindAll(plan.account, s.number, s.location, orEmpty(s.holder));
            tel.run();
            tel.reset();
        }
        if (s.inPhoneBook) {
            book.bindAll(plan.account, s.number, s.phoneBookName.isNull() ? s.number : s.phoneBookName,
                         s.phoneBookUse);
            book.run();
            book.reset();
        }
    }
}

} // namespace

TableCounts countRows(Database& db, const QStringList& tables) {
    TableCounts counts;
    for (const QString& t : tables)
        counts.emplace_back(t, queryInt(db, QStringLiteral("SELECT COUNT(*) FROM \"%1\"").arg(t)));
    return counts;
}

TableCounts writeProjectFile(const QString& path, const AccountPlan& plan, const Date& billDate, qint64 lines,
                             quint64 seed, const ProjectHeader& header, int staleMonths) {
    createDatabaseFromSchema(path, QStringLiteral("project"));
    Database db = openForBulkWrite(path);
    const BillPeriod period = BillPeriod::forBillDate(billDate);
    {
        Transaction tx(db);
        db.exec(QStringLiteral("INSERT INTO Tbl50 (VeloraAccount, LocID, Imports, CRV, CreateDate) "
                               "VALUES (?1, ?2, ?3, ?4, ?5)"),
                plan.account, plan.locId, header.imports, header.crv, ddmmyyyy(billDate));
        const qint64 written = writeChargeLines(db, plan, period, lines, seed);
        writeCallRecords(db, plan, period, std::clamp<qint64>(written / 10, 10, 10000), seed);
        writeDiscountLinks(db, plan, period);
        writeLookups(db);
        db.exec(QStringLiteral("INSERT INTO TblCallSummary1 (StartDate, EndDate) VALUES (?1, ?2)"),
                period.usageStart, period.usageEnd);
        if (staleMonths >= 0)
            writeStaleReferenceCopies(db, plan, period.month - staleMonths);
        tx.commit();
    }
    return countRows(db,
                     {QStringLiteral("Tbl50"), QStringLiteral("Tbl307"), QStringLiteral("Tbl997"),
                      QStringLiteral("Tbl407"), QStringLiteral("Tbl017"), QStringLiteral("TblCallSummary1"),
                      QStringLiteral("TblCC"), QStringLiteral("TblTel"), QStringLiteral("TblPhoneBook")});
}

} // namespace demo
