#include "trend/TrendGathering.h"

#include "app/AppContext.h"
#include "app/TextHelpers.h"
#include "data/Database.h"
#include "data/Stores.h"
#include "data/TrendTotals.h"
#include "trend/ChargeAggregation.h"
#include "trend/ServiceDescription.h"

#include <algorithm>

namespace {

struct BillHeader {
    QString account;
    Date billDate;
};

BillHeader readBillHeader(Database& project) {
    Statement st(project, QStringLiteral("SELECT VeloraAccount, CreateDate FROM Tbl50"));
    if (!st.step())
        throw DbError(QStringLiteral("The project has no header row"), 1);
    // The bill date is kept as text "dd/mm/yyyy".
    const QString digits =
        ParseDateByMask(st.text(1), QStringLiteral("dd/mm/yyyy"), QStringLiteral("yyyymmdd"));
    const Date date(digits.left(4).toInt(), digits.mid(4, 2).toUInt(), digits.mid(6, 2).toUInt());
    if (!date.isValid())
        throw DbError(QStringLiteral("The project's bill date \"%1\" is not a date").arg(st.text(1)), 1);
    return {st.text(0), date};
}

// Columns filled from a gathered row, by position: the first 78 of the trend table.
constexpr int GatheredColumns = 78;

QString quotedColumns(const QStringList& names) {
    QStringList quoted;
    for (QString n : names)
        quoted << QLatin1Char('"') + n.replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"');
    return quoted.join(QStringLiteral(", "));
}

} // namespace

GatherResult GatherTrend(AppContext& ctx, Database& project, const ProgressFn& progress) {
    GatherResult result;
    try {
        const BillHeader header = readBillHeader(project);
        result.account = header.account;
        result.billDate = header.billDate;

        ChargeAggregation charges;
        if (!charges.read(project, progress)) {
            result.status = GatherResult::Status::Cancelled;
            return result;
        }
        result.linesRead = charges.linesRead();

        if (!ctx.trendDb.tableExists(QStringLiteral("tblSummaryTrend")))
            CreateTrendTable(ctx.trendDb);
        // A store that never had the bill totals gets them before it grows; whether they
        // count every row is checked at start.
        if (!ctx.trendDb.tableExists(TrendTotals::Table))
            ensureTrendTotals(ctx.trendDb);
        const QStringList tableColumns = ctx.trendDb.columnNames(QStringLiteral("tblSummaryTrend"));
        QStringList columns = tableColumns.mid(0, GatheredColumns);
        columns << QStringLiteral("Recurring Other") << QStringLiteral("Usage Other")
                << QStringLiteral("One Off Other");
        QStringList marks;
        for (int i = 0; i < columns.size(); ++i)
            marks << QStringLiteral("?");

        Transaction tx(ctx.trendDb);
        ctx.trendDb.exec(QStringLiteral("DELETE FROM tblSummaryTrend WHERE BillDate = ? AND BillAccount = ?"),
                         header.billDate, header.account);
        Statement insert(ctx.trendDb, QStringLiteral("INSERT INTO tblSummaryTrend (%1) VALUES (%2)")
                                          .arg(quotedColumns(columns), marks.join(QStringLiteral(", "))));
        ServiceDescriptionCache descriptions(project);
        // Reading the lines is the first half of the bar, writing the rows the second.
        const qint64 lines = std::max<qint64>(charges.lineCount(), 1);
        const qint64 total = 2 * lines;
        const qint64 groups = std::max<qint64>(qint64(charges.groups().size()), 1);
        qint64 written = 0;
        for (const ChargeGroup& group : charges.groups()) {
            const std::vector<DbValue> values =
                charges.trendRow(group, header.billDate, header.account, descriptions);
            for (int i = 0; i < int(values.size()); ++i)
                insert.bind(i + 1, values[i]);
            insert.run();
            insert.reset();
            if (++written % 2048 == 0 && !reportProgress(progress, lines + written * lines / groups, total)) {
                result.status = GatherResult::Status::Cancelled;
                return result; // the transaction rolls back
            }
        }
        refreshTrendTotals(ctx.trendDb, header.account, header.billDate);
        tx.commit();
        reportProgress(progress, total, total);
        result.rowsWritten = written;
        result.status = GatherResult::Status::Gathered;
    } catch (const DbError& e) {
        result.status = GatherResult::Status::Failed;
        result.error = e.message();
    }
    return result;
}
