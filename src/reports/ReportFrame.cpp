#include "reports/ReportFrame.h"

#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/ErrorLog.h"
#include "app/Format.h"
#include "data/ReferenceData.h"
#include "data/TrendTotals.h"

int GetChargeView(const QString& name) {
    const QString head = name.left(3).toUpper();
    if (head == QLatin1String("USA") || head == QLatin1String("USE"))
        return ChargeView::Usage;
    if (head == QLatin1String("REC"))
        return ChargeView::Recurring;
    if (head == QLatin1String("ONE"))
        return ChargeView::OneOff;
    if (head == QLatin1String("ADJ"))
        return ChargeView::Adjustments;
    return 0;
}

std::vector<QColor> graphColours(const cColours& colours, bool pie, int seriesCount) {
    const int tableSize = pie ? cColours::PieTableSize : cColours::SeriesTableSize;
    std::vector<QColor> out;
    for (int i = 0; i < seriesCount; ++i) {
        if (i >= tableSize)
            out.emplace_back();
        else
            out.push_back((pie ? colours.pieEntry(i) : colours.seriesEntry(i)).toQColor());
    }
    return out;
}

QStringList FilterServiceNumbers(AppContext& ctx, int level, const QString& value) {
    // Reference data counts the cost-centre levels from 0 and calls the number level 5.
    if (level >= 1 && level <= 5)
        return GetServiceNumbersByCostCentre(ctx, ctx.billAccount, level - 1, value);
    if (level == FilterLevel::ServiceNumber)
        return GetServiceNumbersByCostCentre(ctx, ctx.billAccount, ServiceNumberLevel, value);
    return {};
}

Statement prepareBound(Database& db, const BoundQuery& query) {
    Statement st(db, query.sql);
    for (size_t i = 0; i < query.values.size(); ++i)
        st.bind(int(i) + 1, query.values[i]);
    return st;
}

QString ServiceFilter::from() const {
    return active ? QStringLiteral("FROM TblSummaryTrend INDEXED BY idxTrendAccountService")
                  : QStringLiteral("FROM TblSummaryTrend");
}

QString ServiceFilter::totalsFrom() const {
    return active ? from() : QStringLiteral("FROM ") + TrendTotals::Table;
}

QString ServiceFilter::productsFrom() const {
    return active ? from() : QStringLiteral("FROM ") + TrendTotals::ProductTable;
}

QString ServiceFilter::condition() const {
    return active ? QStringLiteral(" AND \"Service No\" IN (SELECT value FROM json_each(?))") : QString();
}

QString ServiceFilter::dateGroup() const {
    return active ? QStringLiteral("+BillDate") : QStringLiteral("BillDate");
}

void ServiceFilter::bindTo(BoundQuery& query) const {
    if (active)
        query.arg(numbersJson);
}

ServiceFilter makeServiceFilter(AppContext& ctx, int level, const QString& value) {
    ServiceFilter filter;
    if (level == FilterLevel::WholeBill)
        return filter;
    filter.active = true;
    filter.numbersJson = jsonList(FilterServiceNumbers(ctx, level, value));
    return filter;
}

QString filterValueText(const QString& value) {
    return value.isEmpty() ? ReportText::NoCostCentreSelected : value;
}

QString trendTitle(const QString& words, int level, const QString& value) {
    if (level == FilterLevel::WholeBill)
        return words + QStringLiteral("for Whole Bill");
    if (level == FilterLevel::ServiceNumber)
        return words + QStringLiteral("for ") + value;
    return words + QStringLiteral("where Cost Centre Level %1 = ").arg(level) + filterValueText(value);
}

std::int64_t ChartScale(Money maxValue) {
    const std::int64_t whole = maxValue.raw() / Money::Scale; // truncated toward zero
    const int n = int(QString::number(whole).size()) - 4;
    std::int64_t scale = 1;
    for (int i = 0; i < n; ++i)
        scale *= 10;
    return scale;
}

QString scaledLabel(const QString& label, std::int64_t scale) {
    return scale == 1 ? label : label + QStringLiteral(" / ") + QString::number(scale);
}

double scaledValue(Money amount, std::int64_t scale) {
    return double(amount.raw()) / double(Money::Scale) / double(scale);
}

QString billDateText(const Date& date) {
    return formatDate(date, QStringLiteral("dd/mm/yyyy"));
}

std::vector<DateSums> readDateSums(Database& db, const BoundQuery& query, int sumCount) {
    std::vector<DateSums> out;
    Statement st = prepareBound(db, query);
    while (st.step()) {
        DateSums row;
        row.date = st.date(0);
        for (int i = 1; i <= sumCount; ++i)
            row.sums.push_back(st.isNull(i) ? std::nullopt : std::optional<Money>(st.money(i)));
        out.push_back(std::move(row));
    }
    return out;
}

ReportFailure::ReportFailure(long number, const QString& description)
    : std::runtime_error(description.toStdString())
    , number_(number) {}

void throwNullUse() {
    throw ReportFailure(94, QStringLiteral("Invalid use of Null"));
}

Money requireAmount(const std::optional<Money>& amount) {
    if (!amount)
        throwNullUse();
    return *amount;
}

QString builderCall(const QString& name, const QVariantList& params) {
    QStringList parts;
    for (const QVariant& p : params) {
        if (p.typeId() == QMetaType::QString)
            parts << QLatin1Char('"') + p.toString() + QLatin1Char('"');
        else
            parts << p.toString();
    }
    return name + QLatin1Char('(') + parts.join(QStringLiteral(", ")) + QLatin1Char(')');
}

ReportResult runTrapped(ReportContext& rc, const BuilderTrap& trap,
                        const std::function<ReportResult(int& location)>& body) {
    int location = 50;
    long number = 0;
    QString description;
    try {
        return body(location);
    } catch (const ReportFailure& e) {
        number = e.number();
        description = e.description();
    } catch (const DbError& e) {
        number = e.code();
        description = e.message();
    } catch (const std::exception& e) {
        description = QString::fromUtf8(e.what());
    }
    if (trap.showLocationBox)
        rc.app.dialogs.message(QString::number(location) + QLatin1Char(':') + description, MessageIcon::None);
    if (trap.locationInLog)
        description += QStringLiteral(". Location:") + QString::number(location);
    if (rc.app.paths)
        LogError(*rc.app.paths, trap.call, number, description);
    return ReportResult{ReportStatus::Error, std::nullopt};
}
