#include "TrendFixture.h"

#include "app/cPathControl.h"
#include "data/Schema.h"
#include "data/Stores.h"
#include "data/TrendTotals.h"

#include <cmath>

TrendFixture::TrendFixture(const QString& account) {
    ctx.billAccount = account;
    ctx.trendDb = Database::openMemory();
    CreateTrendTable(ctx.trendDb);
    ctx.projectDb = Database::openMemory();
    ctx.projectDb.execScript(schemaText(QStringLiteral("project")));
    ctx.paths = std::make_unique<cPathControl>(dir.path(), dir.path());
    ctx.paths->AppFolder = dir.path();
}

ReportContext TrendFixture::context(ProgressFn progress) {
    Transaction tx(ctx.trendDb);
    rebuildTrendTotals(ctx.trendDb);
    tx.commit();
    return ReportContext(ctx, std::move(progress));
}

void TrendFixture::add(const TrendRow& row) {
    using namespace trendColumn;
    std::map<QString, std::optional<Money>> amounts{
        {Usage, Money()}, {Recurring, Money()}, {OneOff, Money()}, {Adjust, Money()}};
    for (const auto& [column, amount] : row.amounts)
        amounts[column] = amount;
    QStringList columns{"BillDate", "BillAccount", "Service No", "Product Code"};
    for (const auto& entry : amounts)
        columns << entry.first;
    Statement st(ctx.trendDb,
                 QStringLiteral("INSERT INTO TblSummaryTrend (\"%1\") VALUES (%2)")
                     .arg(columns.join(QStringLiteral("\",\"")),
                          QStringList(columns.size(), QStringLiteral("?")).join(QLatin1Char(','))));
    st.bindAll(row.date, row.account.isEmpty() ? ctx.billAccount : row.account, row.service, row.product);
    int i = 5;
    for (const auto& entry : amounts)
        st.bind(i++, entry.second);
    st.run();
}

void TrendFixture::add(const Date& date, const QString& service,
                       std::map<QString, std::optional<Money>> amounts, const QString& product) {
    add(TrendRow{date, service, product, std::move(amounts), QString()});
}

// Three bills of four numbers; every figure of the golden files can be worked out from it:
//   bill   number  product      usage  recurring  one off  adjustments  pre-tax
//   31/01  0100    P1             100         20                            120
//          0200    P2              40                  10                    50
//          0300    P1              60                              -6        54
//          0999    O'Neil "X"                  5                              6
//   29/02  0100    P1             150         20                            170
//          0200    p2              40                                        40
//          0300    p1              30                                        30
//   31/03  0100    P1             100         20                            120
//          0300    P4                                                      Null
// Each family's amount is on one item too: the usage of 0100 on the card (in five parts of
// 10/20/30/15/25 %; on 29/02 the last part is Null, and the card item counts the other
// four, 112.50, whatever the path it is read by), of 0200 telemarketing, of 0300 by operator; the recurring
// charges are line rental, the one-off charges connection. An item of 0 stays Null. 0100 is Sales/North, 0200
// SALES/South (the same centre), 0300 Finance/(none), 0400 (none) has no rows, and 0999 is in no cost centre;
// P1 and p1 are one product, so are P2 and p2. A row of another account (usage 9999 on 31/01) counts nowhere.
void fillThreeBills(TrendFixture& f) {
    using namespace trendColumn;
    const Date Jan(2012, 1, 31), Feb(2012, 2, 29);
    f.number("0100", {"Sales", "North"});
    f.number("0200", {"SALES", "South"});
    f.number("0300", {"Finance"});
    f.number("0400", {QVariant()});
    struct Line {
        Date date;
        QString tel, product;
        double usage, rec, oneOff, adjust, preTax;
    };
    const Date mar(2012, 3, 31);
    const Line lines[] = {
        {Jan, "0100", "P1", 100, 20, 0, 0, 120},       {Jan, "0200", "P2", 40, 0, 10, 0, 50},
        {Jan, "0300", "P1", 60, 0, 0, -6, 54},         {Jan, "0999", "O'Neil \"X\"", 0, 5, 0, 0, 6},
        {Feb, "0100", "P1", 150, 20, 0, 0, 170},       {Feb, "0200", "p2", 40, 0, 0, 0, 40},
        {Feb, "0300", "p1", 30, 0, 0, 0, 30},          {mar, "0100", "P1", 100, 20, 0, 0, 120},
        {mar, "0300", "P4", 0, 0, 0, 0, std::nan("")},
    };
    const QStringList card{"Zandel Chargecard Local", "Zandel Chargecard National",
                           "ZandelChargecard Inernational", "Zandel Chargecard Mobile and Premium Rate",
                           "Zandel Chargecard Other"};
    const double shares[] = {0.1, 0.2, 0.3, 0.15, 0.25};
    for (const Line& l : lines) {
        std::map<QString, std::optional<Money>> amounts{{Usage, pounds(l.usage)},
                                                        {Recurring, pounds(l.rec)},
                                                        {OneOff, pounds(l.oneOff)},
                                                        {Adjust, pounds(l.adjust)}};
        if (!std::isnan(l.preTax))
            amounts[PreTax] = pounds(l.preTax);
        if (l.rec != 0)
            amounts["Line Rental"] = pounds(l.rec);
        if (l.oneOff != 0)
            amounts["Connection"] = pounds(l.oneOff);
        for (int i = 0; i < (l.date == Feb ? 4 : 5) && l.usage != 0 && l.tel == "0100"; ++i)
            amounts[card[i]] = pounds(l.usage * shares[i]);
        if (l.usage != 0 && l.tel != "0100")
            amounts[l.tel == "0200" ? Tele : QStringLiteral("Operator")] = pounds(l.usage);
        f.add(l.date, l.tel, amounts, l.product);
    }
    f.add(TrendRow{Jan, "0100", "P1", {{Usage, pounds(9999)}, {PreTax, pounds(9999)}}, "OTHER"});
}

void TrendFixture::number(const QString& tel, const QVariantList& levels) {
    Statement st(ctx.projectDb,
                 QStringLiteral("INSERT INTO TblCC (VeloraAccount, TelNo, CostCentre1, CostCentre2, "
                                "CostCentre3, CostCentre4, CostCentre5) VALUES (?, ?, ?, ?, ?, ?, ?)"));
    st.bindAll(ctx.billAccount, tel);
    for (int i = 0; i < 5; ++i) {
        if (levels.value(i).isNull())
            st.bindNull(3 + i);
        else
            st.bind(3 + i, levels.value(i).toString());
    }
    st.run();
}

QString TrendFixture::logText() const {
    return QString::fromUtf8(testing::readAll(dir.path(QStringLiteral("VantrelError.log"))));
}
