#pragma once
// One pass over a bill's charge lines that builds both summaries gathering needs: the
// groups (service, source account, tax rate and description, usage and rental dates)
// with their sums and first values, and the residual amounts per service and rental
// period that the named sub-classes leave over.
#include "app/Date.h"
#include "app/Progress.h"
#include "data/Database.h"

#include <array>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

class ServiceDescriptionCache;

// A sum over the lines of a group the way SQL sums: Null lines are skipped, and a sum
// that saw no value at all is Null.
struct NullableSum {
    std::int64_t total = 0;
    bool any = false;
    void add(std::int64_t v) {
        total += v;
        any = true;
    }
    DbValue value() const { return any ? DbValue(total) : DbValue(); }
};

struct ChargeGroup {
    static constexpr int KeyCount = 8;
    std::array<DbValue, KeyCount> keys;       // ServiceNo, SourceAccountNo, TaxRate, TaxDescription,
                                              // UsageStartDate, UsageEndDate, RentalStartDate, RentalEndDate
    std::array<NullableSum, 5> costs;         // BillCost, TaxCost, PreTaxCost, TotalDiscount, PreDiscountCost
    std::array<NullableSum, 4> classCost;     // PreTaxCost of classes 1, 3, 2, 4 (the column order)
    std::array<NullableSum, 3> classDiscount; // TotalDiscount of classes 1, 3, 2
    std::array<std::int64_t, 43> subClassCost{};
    std::uint64_t subClassSeen = 0; // a line of another sub-class (a 0) or a value of this one
    NullableSum callVolume;
    double duration = 0;
    bool anyDuration = false;
    std::string residualKey;        // service and rental period, as the residual map holds them
    std::array<DbValue, 10> firsts; // CallType, ProductCode, ServiceType, SourceBillRef, CFBAccountNo,
                                    // CFBReportNo, AdjustmentDescription, Description1..3
};

struct ResidualAmounts {
    NullableSum oneOff;
    NullableSum recurring;
    NullableSum usage;
    // Only a residual with an amount counts.
    bool hasAmount() const {
        return (oneOff.any && oneOff.total != 0) || (recurring.any && recurring.total != 0) ||
               (usage.any && usage.total != 0);
    }
};

class ChargeAggregation {
public:
    // Reads Tbl307, Tbl407 and Tbl017 of the project. False when cancelled; throws DbError.
    bool read(Database& project, const ProgressFn& progress);

    qint64 lineCount() const { return lineCount_; }
    qint64 linesRead() const { return linesRead_; }
    const std::vector<ChargeGroup>& groups() const { return groups_; }

    // The values of one trend row: the 78 gathered columns in table order, then
    // "Recurring Other", "Usage Other" and "One Off Other".
    std::vector<DbValue> trendRow(const ChargeGroup& group, const Date& billDate, const QString& account,
                                  ServiceDescriptionCache& descriptions) const;

private:
    void readDiscountDescriptions(Database& project);
    void addLine(const Statement& line);
    const ResidualAmounts* residualFor(const ChargeGroup& group) const;

    qint64 lineCount_ = 0;
    qint64 linesRead_ = 0;
    std::vector<ChargeGroup> groups_;
    std::unordered_map<std::string, std::size_t> groupIndex_;
    std::unordered_map<std::string, ResidualAmounts> residuals_;
    std::unordered_map<std::string, DbValue> discountDescription_; // by service number
};
