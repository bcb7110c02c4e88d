#include "trend/ChargeAggregation.h"

#include "trend/ChargeClasses.h"
#include "trend/ServiceDescription.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <sqlite3.h>

namespace {

// Column positions in the scan of Tbl307 below.
enum LineColumn {
    ServiceNo,
    SourceAccountNo,
    TaxRate,
    TaxDescription,
    UsageStartDate,
    UsageEndDate,
    RentalStartDate,
    RentalEndDate,
    BillCost,
    TaxCost,
    PreTaxCost,
    TotalDiscount,
    PreDiscountCost,
    EventClass,
    EventSubClass,
    CallVolume,
    Duration,
    FirstOfCallType,
};

const char* const LineScan =
    "SELECT ServiceNo, SourceAccountNo, TaxRate, TaxDescription, UsageStartDate, UsageEndDate, "
    "RentalStartDate, RentalEndDate, BillCost, TaxCost, PreTaxCost, TotalDiscount, PreDiscountCost, "
    "EventClass, EventSubClass, CallVolume, Duration, CallType, ProductCode, ServiceType, SourceBillRef, "
    "CFBAccountNo, CFBReportNo, AdjustmentDescription, Description1, Description2, Description3 "
    "FROM Tbl307 ORDER BY rowid";

// Appends a value to a key so that values SQL groups together give the same bytes:
// Null with Null, and a whole number with the same number stored as a real.
void appendKey(std::string& key, const DbValue& v) {
    if (std::holds_alternative<std::monostate>(v)) {
        key.push_back('n');
    } else if (const auto* i = std::get_if<std::int64_t>(&v)) {
        const double d = double(*i);
        key.push_back('d');
        key.append(reinterpret_cast<const char*>(&d), sizeof d);
    } else if (const auto* d = std::get_if<double>(&v)) {
        key.push_back('d');
        key.append(reinterpret_cast<const char*>(d), sizeof *d);
    } else {
        const QByteArray bytes =
            std::holds_alternative<QString>(v) ? std::get<QString>(v).toUtf8() : std::get<QByteArray>(v);
        const std::uint32_t size = std::uint32_t(bytes.size());
        key.push_back(std::holds_alternative<QString>(v) ? 't' : 'b');
        key.append(reinterpret_cast<const char*>(&size), sizeof size);
        key.append(bytes.constData(), size_t(bytes.size()));
    }
}

// The same key bytes straight from a result cell, without building a value first.
void appendKey(std::string& key, const Statement& st, int column) {
    switch (st.columnType(column)) {
    case SQLITE_NULL:
        key.push_back('n');
        return;
    case SQLITE_INTEGER:
    case SQLITE_FLOAT: {
        const double d = st.real(column);
        key.push_back('d');
        key.append(reinterpret_cast<const char*>(&d), sizeof d);
        return;
    }
    default: {
        const QByteArrayView bytes = st.rawBytes(column);
        const std::uint32_t size = std::uint32_t(bytes.size());
        key.push_back(st.columnType(column) == SQLITE_TEXT ? 't' : 'b');
        key.append(reinterpret_cast<const char*>(&size), sizeof size);
        key.append(bytes.data(), size_t(bytes.size()));
    }
    }
}

bool isNull(const DbValue& v) {
    return std::holds_alternative<std::monostate>(v);
}

std::optional<std::int64_t> moneyOf(const Statement& st, int column) {
    if (st.isNull(column))
        return std::nullopt;
    return st.money(column).raw();
}

std::optional<std::int64_t> intOf(const Statement& st, int column) {
    if (st.isNull(column))
        return std::nullopt;
    return st.int64(column);
}

// Sum(IIf(condition, value, 0)): a false condition adds a 0, a true one the value unless it is Null.
void addIf(NullableSum& sum, bool condition, const std::optional<std::int64_t>& value) {
    if (!condition)
        sum.add(0);
    else if (value)
        sum.add(*value);
}

QString asText(const DbValue& v) {
    if (const auto* s = std::get_if<QString>(&v))
        return *s;
    if (const auto* i = std::get_if<std::int64_t>(&v))
        return QString::number(*i);
    if (const auto* d = std::get_if<double>(&v))
        return QString::number(*d);
    return QString();
}

} // namespace

bool ChargeAggregation::read(Database& project, const ProgressFn& progress) {
    lineCount_ = queryInt(project, QStringLiteral("SELECT count(*) FROM Tbl307"));
    readDiscountDescriptions(project);
    Statement lines(project, QString::fromLatin1(LineScan));
    while (lines.step()) {
        addLine(lines);
        if (++linesRead_ % 8192 == 0 &&
            !reportProgress(progress, linesRead_, std::max<qint64>(lineCount_, 1) * 2))
            return false;
    }
    return true;
}

void ChargeAggregation::readDiscountDescriptions(Database& project) {
    // The last description of each service's discount product, in the order of the
    // discount table (and of the look-up rows within one product).
    Statement st(project, QStringLiteral("SELECT Tbl407.ServiceNo, Tbl017.Description1 FROM Tbl407 "
                                         "LEFT JOIN Tbl017 ON Tbl407.DiscountProduct = Tbl017.Enumeration "
                                         "ORDER BY Tbl407.rowid, Tbl017.rowid"));
    while (st.step()) {
        if (st.isNull(0))
            continue; // a Null service number joins no charge line
        std::string key;
        appendKey(key, st.value(0));
        discountDescription_[key] = st.value(1);
    }
}

void ChargeAggregation::addLine(const Statement& line) {
    std::string key;
    key.reserve(128);
    for (int k = 0; k < ChargeGroup::KeyCount; ++k)
        appendKey(key, line, k);
    std::string rKey;
    rKey.reserve(64);
    appendKey(rKey, line, ServiceNo);
    appendKey(rKey, line, RentalStartDate);
    appendKey(rKey, line, RentalEndDate);

    auto [it, inserted] = groupIndex_.try_emplace(std::move(key), groups_.size());
    if (inserted) {
        ChargeGroup group;
        group.residualKey = rKey;
        for (int k = 0; k < ChargeGroup::KeyCount; ++k)
            group.keys[k] = line.value(k);
        for (int f = 0; f < 10; ++f)
            group.firsts[f] = line.value(FirstOfCallType + f);
        groups_.push_back(std::move(group));
    }
    ChargeGroup& g = groups_[it->second];

    const auto preTax = moneyOf(line, PreTaxCost);
    const auto discount = moneyOf(line, TotalDiscount);
    for (int c = 0; c < 5; ++c)
        if (const auto v = moneyOf(line, BillCost + c))
            g.costs[c].add(*v);
    const auto eventClass = intOf(line, EventClass);
    const auto subClass = intOf(line, EventSubClass);
    const auto isClass = [&](int c) { return eventClass && *eventClass == c; };

    addIf(g.classCost[0], isClass(ChargeClass::Usage), preTax);
    addIf(g.classCost[1], isClass(ChargeClass::Recurring), preTax);
    addIf(g.classCost[2], isClass(ChargeClass::OneOff), preTax);
    addIf(g.classCost[3], isClass(ChargeClass::Adjustment), preTax);
    addIf(g.classDiscount[0], isClass(ChargeClass::Usage), discount);
    addIf(g.classDiscount[1], isClass(ChargeClass::Recurring), discount);
    addIf(g.classDiscount[2], isClass(ChargeClass::OneOff), discount);

    // Each named sub-class column sums its own lines, whatever their class; every
    // other line adds a 0 to it.
    for (std::size_t s = 0; s < NamedSubClasses.size(); ++s) {
        const bool match = subClass && *subClass == NamedSubClasses[s].subClass;
        if (!match || preTax)
            g.subClassSeen |= std::uint64_t(1) << s;
        if (match && preTax)
            g.subClassCost[s] += *preTax;
    }
    if (const auto v = intOf(line, CallVolume))
        g.callVolume.add(*v);
    if (!line.isNull(Duration)) {
        g.duration += line.real(Duration);
        g.anyDuration = true;
    }

    ResidualAmounts& r = residuals_[std::move(rKey)];
    const bool sub = subClass.has_value();
    addIf(r.oneOff, isClass(ChargeClass::OneOff) && sub && !isNamedIn(OneOffNamed, int(*subClass)), preTax);
    addIf(r.recurring, isClass(ChargeClass::Recurring) && sub && !isNamedIn(RecurringNamed, int(*subClass)),
          preTax);
    addIf(r.usage, isClass(ChargeClass::Usage) && sub && !isNamedIn(UsageNamed, int(*subClass)), preTax);
}

const ResidualAmounts* ChargeAggregation::residualFor(const ChargeGroup& group) const {
    const DbValue& service = group.keys[0];
    const DbValue& start = group.keys[6];
    const DbValue& end = group.keys[7];
    // A comparison with Null never matches: rows without rental dates get no residual.
    if (isNull(service) || isNull(start) || isNull(end))
        return nullptr;
    const auto it = residuals_.find(group.residualKey);
    if (it == residuals_.end() || !it->second.hasAmount())
        return nullptr;
    return &it->second;
}

std::vector<DbValue> ChargeAggregation::trendRow(const ChargeGroup& g, const Date& billDate,
                                                 const QString& account,
                                                 ServiceDescriptionCache& descriptions) const {
    std::vector<DbValue> row;
    row.reserve(81);
    row.emplace_back(billDate.toIso());
    row.emplace_back(account);
    row.push_back(g.keys[0]); // Service No
    row.push_back(g.keys[1]); // Source Account No
    for (const NullableSum& s : g.costs)
        row.push_back(s.value());
    row.push_back(g.keys[2]); // TaxRate
    row.push_back(g.keys[3]); // TaxDescription
    for (const NullableSum& s : g.classCost)
        row.push_back(s.value());
    for (int k = 4; k < 8; ++k) // usage and rental dates
        row.push_back(g.keys[k]);
    row.push_back(g.callVolume.value());
    row.push_back(g.anyDuration ? DbValue(g.duration) : DbValue());
    row.push_back(g.firsts[0]); // Call Type
    // A Null product code or service type is read as "".
    row.emplace_back(descriptions.describe(asText(g.firsts[1]), asText(g.firsts[2])));
    for (int f = 2; f < 10; ++f)
        row.push_back(g.firsts[f]);
    for (std::size_t s = 0; s < NamedSubClasses.size(); ++s)
        row.push_back((g.subClassSeen >> s) & 1 ? DbValue(g.subClassCost[s]) : DbValue());
    std::string serviceKey;
    appendKey(serviceKey, g.keys[0]);
    const auto discount = discountDescription_.find(serviceKey);
    row.push_back(discount != discountDescription_.end() ? discount->second : DbValue());
    for (const NullableSum& s : g.classDiscount)
        row.push_back(s.value());
    if (const ResidualAmounts* r = residualFor(g)) {
        row.push_back(r->recurring.value());
        row.push_back(r->usage.value());
        row.push_back(r->oneOff.value());
    } else {
        row.insert(row.end(), 3, DbValue());
    }
    return row;
}
