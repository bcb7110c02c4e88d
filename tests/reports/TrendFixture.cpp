#include "TrendFixture.h"

#include "app/cPathControl.h"
#include "data/Schema.h"
#include "data/Stores.h"
#include "data/TrendTotals.h"

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
    std::map<QString, std::optional<Money>> amounts{
        {QStringLiteral("Usage Charges"), Money()},
        {QStringLiteral("Recurring Charges"), Money()},
        {QStringLiteral("One Off Charges and Credits"), Money()},
        {QStringLiteral("Adjustments"), Money()},
    };
    for (const auto& [column, amount] : row.amounts)
        amounts[column] = amount;
    QStringList columns{QStringLiteral("\"BillDate\""), QStringLiteral("\"BillAccount\""),
                        QStringLiteral("\"Service No\""), QStringLiteral("\"Product Code\"")};
    QStringList marks{QStringLiteral("?"), QStringLiteral("?"), QStringLiteral("?"), QStringLiteral("?")};
    for (const auto& entry : amounts) {
        columns << QLatin1Char('"') + entry.first + QLatin1Char('"');
        marks << QStringLiteral("?");
    }
    Statement st(ctx.trendDb, QStringLiteral("INSERT INTO TblSummaryTrend (%1) VALUES (%2)")
                                  .arg(columns.join(QLatin1Char(',')), marks.join(QLatin1Char(','))));
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
