#include "tools/DemoChargeLines.h"

#include "tools/DemoRandom.h"

#include <algorithm>

namespace demo {

BillPeriod BillPeriod::forBillDate(const Date& billDate) {
    BillPeriod p;
    p.billDate = billDate;
    p.month = monthNumber(billDate);
    p.usageStart = billDate.addMonths(-1);
    p.usageEnd = billDate.addDays(-1);
    p.rentalStart = billDate;
    p.rentalEnd = billDate.addMonths(1).addDays(-1);
    p.usageStartIso = p.usageStart.toIso();
    p.usageEndIso = p.usageEnd.toIso();
    p.rentalStartIso = p.rentalStart.toIso();
    p.rentalEndIso = p.rentalEnd.toIso();
    return p;
}

namespace {

// One line to be made: a service and a kind of charge.
struct PlannedLine {
    int service;
    const ChargeKind* kind;
    bool forceDiscount = false;
    bool nullProductCode = false;
};

std::int64_t roundedPerMille(std::int64_t amount, std::int64_t perMille) {
    const std::int64_t x = amount * perMille;
    return (x >= 0 ? x + 500 : x - 500) / 1000;
}

bool kindOffers(const ServiceKindInfo& info, int subClass) {
    auto has = [&](const std::vector<Weighted>& list) {
        return std::any_of(list.begin(), list.end(),
                           [&](const Weighted& w) { return w.subClass == subClass; });
    };
    return has(info.recurring) || has(info.usage);
}

class BillLineMaker {
public:
    BillLineMaker(const AccountPlan& plan, const BillPeriod& period, quint64 seed)
        : plan_(plan)
        , period_(period)
        , rng_(DemoRandom::derive(seed, {accountTag(plan.account), quint64(period.month), 307})) {
        for (const ChargeKind& k : chargeKinds())
            descriptions_.push_back(QString::fromUtf8(k.description));
        for (int i = 0; i < int(plan.services.size()); ++i) {
            const ServicePlan& s = plan.services[size_t(i)];
            if (!plan.isActive(s, period.month))
                continue;
            active_.push_back(i);
            if (s.usageLevel > 0) {
                usageTotal_ += s.usageLevel;
                usageCumulative_.emplace_back(usageTotal_, i);
            }
        }
        for (int m = plan.firstMonth + 1; m <= period.month; ++m) {
            if (m % 12 == 3) // April price rises
                ++priceRises_;
        }
        const std::int64_t months = period.month - plan.firstMonth;
        usageFactor_ = std::int64_t(seasonalPerMille(int(period.billDate.month()))) *
                       std::max<std::int64_t>(500, 1000 + plan.growthPerMille * months);
    }

    std::vector<PlannedLine> coverage() {
        std::vector<PlannedLine> planned;
        if (active_.empty())
            return planned;
        // One line of every kind of charge, on a service that would plausibly have it.
        for (const ChargeKind& k : chargeKinds())
            planned.push_back({serviceFor(k), &k});
        // Every product code and every gap in the cost-centre data, through the fixed
        // services that hold them.
        for (int h = 0; h < plan_.fixedServices && h < int(plan_.services.size()); ++h) {
            const ServicePlan& s = plan_.services[size_t(h)];
            if (!plan_.isActive(s, period_.month))
                continue;
            const ServiceKindInfo& info = serviceKind(s.kind);
            const int sub =
                info.usage.empty() ? info.recurring.front().subClass : info.usage.front().subClass;
            planned.push_back({h, &chargeKindBySubClass(sub)});
        }
        // A discounted line in each discountable class and a line without product code,
        // on the first service, which always holds a discount product.
        const int first = active_.front();
        planned.push_back({first, &chargeKind(1, 210), true});
        planned.push_back({first, &chargeKind(2, 29), true});
        planned.push_back({first, &chargeKind(3, 28), true});
        planned.push_back({first, &chargeKind(1, 211), false, true});
        return planned;
    }

    template <typename Sink> qint64 run(qint64 lines, Sink&& sink) {
        qint64 emitted = 0;
        for (const PlannedLine& order : coverage()) {
            sink(make(order));
            ++emitted;
        }
        for (int i : active_) {
            const ServicePlan& s = plan_.services[size_t(i)];
            for (const auto& [sub, amount] : s.recurring) {
                if (sub == 38 && period_.month % 3 != 0)
                    continue; // maintenance is billed quarterly
                if (emitted >= lines)
                    return emitted;
                sink(make({i, &chargeKind(3, sub)}, amount));
                ++emitted;
            }
            if (s.firstMonth == period_.month && s.firstMonth > plan_.firstMonth && emitted + 2 <= lines) {
                sink(make({i, &chargeKind(2, 27)}));
                sink(make({i, &chargeKind(3, 26)}));
                emitted += 2;
            }
            if (s.lastMonth == period_.month && s.lastMonth < plan_.lastMonth && emitted < lines) {
                sink(make({i, &chargeKind(2, 244)}));
                ++emitted;
            }
        }
        while (emitted < lines) {
            sink(make(usageLine()));
            ++emitted;
        }
        return emitted;
    }

private:
    int serviceFor(const ChargeKind& k) {
        std::vector<int> candidates;
        for (int i : active_) {
            const ServicePlan& s = plan_.services[size_t(i)];
            const bool fits =
                (k.subClass == 27 && s.firstMonth == period_.month) ||
                (k.subClass == 244 && s.lastMonth == period_.month && s.lastMonth < plan_.lastMonth) ||
                kindOffers(serviceKind(s.kind), k.subClass);
            if (fits)
                candidates.push_back(i);
        }
        if (candidates.empty())
            candidates = active_;
        return rng_.pick(candidates);
    }

    PlannedLine usageLine() {
        if (usageTotal_ == 0) {
            const int i = rng_.pick(active_);
            return {i, &chargeKind(2, 29)};
        }
        const int x = rng_.below(usageTotal_);
        const auto it = std::upper_bound(usageCumulative_.begin(), usageCumulative_.end(), x,
                                         [](int v, const std::pair<int, int>& e) { return v < e.first; });
        const int service = it->second;
        const ServiceKindInfo& info = serviceKind(plan_.services[size_t(service)].kind);
        int total = 0;
        for (const Weighted& w : info.usage)
            total += w.weight;
        int y = rng_.below(total);
        for (const Weighted& w : info.usage) {
            if (y < w.weight)
                return {service, &chargeKindBySubClass(w.subClass)};
            y -= w.weight;
        }
        return {service, &chargeKindBySubClass(info.usage.front().subClass)};
    }

    std::int64_t usageVolume(const ServicePlan& s) {
        const std::int64_t level = std::max(1, s.usageLevel);
        const std::int64_t noise = rng_.between(700, 1300);
        return std::max<std::int64_t>(1, level * usageFactor_ / 1000 * noise / 1000000);
    }

    ChargeLine make(const PlannedLine& order, std::int64_t monthlyAmount = 0) {
        const ServicePlan& s = plan_.services[size_t(order.service)];
        const ChargeKind& k = *order.kind;
        ChargeLine line;
        line.service = order.service;
        line.eventClass = k.eventClass;
        line.eventSubClass = k.subClass;
        line.description1 = descriptions_[size_t(order.kind - chargeKinds().data())];

        std::int64_t amount = 0;
        switch (k.timing) {
        case Timing::Usage: {
            const std::int64_t volume = usageVolume(s);
            amount = volume * rng_.between64(k.minRaw, k.maxRaw);
            line.callVolume = int(volume);
            line.duration = double(volume * k.secondsPerUnit * rng_.between(80, 120) / 100);
            line.callType = k.callType;
            line.usageStart = period_.usageStartIso;
            line.usageEnd = period_.usageEndIso;
            if (serviceKind(s.kind).rentalOnUsage) {
                line.rentalStart = period_.rentalStartIso;
                line.rentalEnd = period_.rentalEndIso;
            }
            break;
        }
        case Timing::Rental: {
            amount =
                monthlyAmount != 0 ? monthlyAmount : rng_.between64(k.minRaw / 100, k.maxRaw / 100) * 100;
            amount += roundedPerMille(amount, 35 * priceRises_);
            Date start = period_.rentalStart;
            Date end = period_.rentalEnd;
            if (k.eventClass == 2 && k.subClass == 28) {
                // Back-dated rental settles the month that has just passed.
                start = period_.usageStart;
                end = period_.usageEnd;
            } else if (k.subClass == 38) {
                end = start.addMonths(3).addDays(-1);
            } else if (k.subClass == 26) {
                // From the day of connection to the day before the bill.
                start = period_.usageStart.addDays(rng_.between(1, 25));
                end = period_.usageEnd;
                amount = amount * start.daysTo(period_.billDate) / 30;
            }
            line.rentalStart = start == period_.rentalStart ? period_.rentalStartIso : start.toIso();
            line.rentalEnd = end == period_.rentalEnd ? period_.rentalEndIso : end.toIso();
            break;
        }
        case Timing::None:
            amount = rng_.between64(k.minRaw / 100, k.maxRaw / 100) * 100;
            break;
        }
        if (k.credit)
            amount = -amount;
        if (k.eventClass == 4) {
            static const char* const texts[] = {"Goodwill credit for loss of service",
                                                "Correction to previous bill", "Charge for late payment",
                                                "Refund of overcharged calls - St John's"};
            line.adjustmentDescription = QString::fromUtf8(rng_.pick(texts));
        }

        std::int64_t discount = 0;
        if (s.discountPercent > 0 && k.eventClass <= 3 && amount > 0 &&
            (order.forceDiscount || rng_.percent(50)))
            discount = -roundedPerMille(amount, s.discountPercent * 10);
        line.preDiscountCost = Money::fromRaw(amount);
        line.totalDiscount = Money::fromRaw(discount);
        line.preTaxCost = Money::fromRaw(amount + discount);

        switch (k.tax) {
        case TaxRule::Standard:
            line.taxBand = s.zeroRated ? TaxZeroRated : TaxStandard;
            break;
        case TaxRule::OldRate:
            line.taxBand = TaxOld;
            break;
        case TaxRule::OutsideScope:
            line.taxBand = TaxOutsideScope;
            break;
        }
        const auto ratePerMille = std::int64_t(taxBands()[size_t(line.taxBand)].rate * 10);
        line.taxCost = Money::fromRaw(roundedPerMille(line.preTaxCost.raw(), ratePerMille));
        line.billCost = line.preTaxCost + line.taxCost;
        line.nullProductCode = order.nullProductCode || rng_.perMille(3);
        line.thisImport = rng_.perMille(20) ? 0 : 1;
        return line;
    }

    const AccountPlan& plan_;
    const BillPeriod& period_;
    DemoRandom rng_;
    std::vector<QString> descriptions_;
    std::vector<int> active_;
    std::vector<std::pair<int, int>> usageCumulative_; // running total of usage levels, service
    int usageTotal_ = 0;
    int priceRises_ = 0;
    std::int64_t usageFactor_ = 1000000; // per million
};

} // namespace

qint64 generateChargeLines(const AccountPlan& plan, const BillPeriod& period, qint64 lines, quint64 seed,
                           const std::function<void(const ChargeLine&)>& sink) {
    BillLineMaker maker(plan, period, seed);
    return maker.run(lines, sink);
}

int coverageLineCount(const AccountPlan& plan, const BillPeriod& period) {
    BillLineMaker maker(plan, period, 0);
    return int(maker.coverage().size());
}

} // namespace demo
