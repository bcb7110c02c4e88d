#include "reports/TrendReportChoices.h"

#include "app/AppContext.h"
#include "app/ErrorLog.h"

namespace {

QStringList readColumn(AppContext& ctx, Database& db, const QString& sql, const char* what) {
    QStringList values;
    if (!db.isOpen())
        return values;
    try {
        Statement st(db, sql);
        st.bind(1, ctx.billAccount);
        while (st.step())
            if (!st.isNull(0))
                values << st.text(0);
    } catch (const DbError& e) {
        // A list that cannot be read stays as far as it came; the reports say the rest.
        if (ctx.paths)
            LogError(*ctx.paths, QString::fromLatin1(what), e.code(), e.message());
    }
    return values;
}

} // namespace

QStringList trendCostCentres(AppContext& ctx, int level) {
    if (level < 1 || level > 5)
        return {};
    // The reports filter on the project's copy of the cost centres, so the list offers
    // exactly what they can find.
    const QString column = QStringLiteral("CostCentre%1").arg(level);
    QStringList names = readColumn(
        ctx, ctx.projectDb,
        // Names that differ only in case are one cost centre, listed once.
        QStringLiteral("SELECT MIN(%1) FROM TblCC WHERE VeloraAccount = ? GROUP BY %1 COLLATE NOCASE "
                       "ORDER BY %1 COLLATE NOCASE")
            .arg(column),
        "trendCostCentres");
    names.removeAll(QString());
    return names;
}

QStringList trendServiceNumbers(AppContext& ctx) {
    return readColumn(
        ctx, ctx.trendDb,
        QStringLiteral("SELECT MIN(\"Service No\") FROM TblSummaryTrend WHERE BillAccount = ? "
                       "GROUP BY \"Service No\" COLLATE NOCASE ORDER BY \"Service No\" COLLATE NOCASE"),
        "trendServiceNumbers");
}
