#include "tools/DemoPlan.h"

#include "tools/DemoRandom.h"

#include <algorithm>
#include <map>

namespace demo {

namespace {

const char* const Divisions[] = {"Corporate Services", "Operations", "Sales & Marketing", "Technology",
                                 "Customer Services"};
const char* const Regions[] = {"North", "South",  "Midlands",        "Scotland",
                               "Wales", "London", "Northern Ireland"};
const char* const RegionCities[][3] = {{"Leeds", "York", "Newcastle"},
                                       {"Southampton", "Brighton", "Reading"},
                                       {"Birmingham", "Nottingham", "Leicester"},
                                       {"Edinburgh", "Glasgow", "Aberdeen"},
                                       {"Cardiff", "Swansea", "Newport"},
                                       {"London", "Croydon", "Stratford"},
                                       {"Belfast", "Derry", "Lisburn"}};
const char* const Departments[] = {"Finance",        "Human Resources", "Facilities",  "Field Engineering",
                                   "Logistics",      "Legal",           "Procurement", "IT Support",
                                   "Contact Centre", "Training"};
const char* const Teams[] = {"Accounts Payable", "Payroll",      "Recruitment", "Fleet",
                             "Depot Team",       "Service Desk", "Networks",    "Planning",
                             "Inbound",          "Outbound",     "Estates"};
const char* const Sections[] = {"Riverside", "Kingsway",   "Harbour View", "Station Road", "Market Street",
                                "Old Mill",  "Abbey Park", "Castle Gate",  "Bridge End",   "St John's"};
const char* const FirstNames[] = {"Alice",  "Ben",   "Chloe", "Dev",    "Eilidh", "Fatima", "Gareth",
                                  "Hannah", "Imran", "Jack",  "Katie",  "Liam",   "Megan",  "Niall",
                                  "Olivia", "Priya", "Rhys",  "Sophie", "Tom",    "Yusuf"};
const char* const LastNames[] = {"Hartley",  "Khan",    "O'Neill", "Patel",  "Jones",
                                 "Williams", "MacLeod", "Evans",   "Brown",  "Nowak",
                                 "Clarke",   "Davies",  "Ahmed",   "Taylor", "Roberts"};
const char* const RoleNames[] = {"Reception",       "Fax",          "Lift Emergency Line", "Alarm Line",
                                 "Conference Room", "Security Desk"};

struct Leaf {
    CostCentreRow names;
    int region = 0; // index into Regions, for the site's city
};

template <typename T, size_t N> std::vector<int> shuffledIndices(DemoRandom& rng, const T (&)[N]) {
    std::vector<int> idx(N);
    for (size_t i = 0; i < N; ++i)
        idx[i] = int(i);
    for (size_t i = N - 1; i > 0; --i)
        std::swap(idx[i], idx[size_t(rng.below(int(i + 1)))]);
    return idx;
}

// A tree of divisions, regions, departments, teams and sites; names repeat across
// branches as they do in a real organisation.
std::vector<Leaf> makeCostCentreTree(DemoRandom& rng) {
    std::vector<Leaf> leaves;
    const auto divisions = shuffledIndices(rng, Divisions);
    const int divisionCount = rng.between(3, 4);
    for (int d = 0; d < divisionCount; ++d) {
        const auto regions = shuffledIndices(rng, Regions);
        const int regionCount = rng.between(2, 3);
        for (int r = 0; r < regionCount; ++r) {
            const auto departments = shuffledIndices(rng, Departments);
            const int departmentCount = rng.between(1, 2);
            for (int p = 0; p < departmentCount; ++p) {
                const auto teams = shuffledIndices(rng, Teams);
                const int teamCount = rng.between(1, 2);
                for (int t = 0; t < teamCount; ++t) {
                    const auto sections = shuffledIndices(rng, Sections);
                    const int sectionCount = rng.between(1, 2);
                    for (int s = 0; s < sectionCount; ++s) {
                        Leaf leaf;
                        leaf.region = regions[size_t(r)];
                        leaf.names = {QString::fromUtf8(Divisions[divisions[size_t(d)]]),
                                      QString::fromUtf8(Regions[leaf.region]),
                                      QString::fromUtf8(Departments[departments[size_t(p)]]),
                                      QString::fromUtf8(Teams[teams[size_t(t)]]),
                                      QString::fromUtf8(Sections[sections[size_t(s)]])};
                        leaves.push_back(leaf);
                    }
                }
            }
        }
    }
    // A name with an apostrophe always appears, on the first site.
    leaves.front().names[4] = QStringLiteral("St John's");
    return leaves;
}

ServiceKind pickKind(DemoRandom& rng) {
    int total = 0;
    for (const auto& k : serviceKinds())
        total += k.weight;
    int x = rng.below(total);
    for (const auto& k : serviceKinds()) {
        if (x < k.weight)
            return k.kind;
        x -= k.weight;
    }
    return ServiceKind::Analogue;
}

QString digitsOf(quint64 value, int width) {
    return QStringLiteral("%1").arg(value, width, 10, QLatin1Char('0'));
}

} // namespace

QString storeAccountOf(const QString& account) {
    return account.endsWith(QLatin1String("AC01")) ? account.left(account.size() - 2) : account;
}

quint64 accountTag(const QString& account) {
    quint64 h = 1469598103934665603ULL; // FNV-1a
    for (QChar c : account) {
        h ^= c.unicode();
        h *= 1099511628211ULL;
    }
    return h;
}

AccountPlan makeAccountPlan(quint64 seed, const QString& account, int firstMonth, int lastMonth,
                            int serviceCount) {
    DemoRandom rng(DemoRandom::derive(seed, {accountTag(account), 1}));
    AccountPlan plan;
    plan.account = account;
    plan.storeAccount = storeAccountOf(account);
    plan.locId = QStringLiteral("LOC") + digitsOf(quint64(rng.between(1000, 9999)), 4);
    plan.firstMonth = firstMonth;
    plan.lastMonth = lastMonth;
    plan.growthPerMille = rng.between(-6, 14);

    const std::vector<Leaf> leaves = makeCostCentreTree(rng);
    std::vector<QString> sourceAccounts;
    const int sourceCount = rng.between(2, 3);
    for (int i = 0; i < sourceCount; ++i)
        sourceAccounts.push_back(QStringLiteral("SA") +
                                 digitsOf(quint64(rng.between(10000000, 99999999)), 8));

    std::map<ServiceKind, int> nextNumber;
    const auto& holders = productHolders();
    const int count = std::max(serviceCount, int(holders.size()) + 3);
    plan.fixedServices = int(holders.size()) + 3;
    plan.services.reserve(size_t(count));
    for (int i = 0; i < count; ++i) {
        ServicePlan s;
        const bool holder = i < int(holders.size());
        // The three services after the holders stand for the gaps in the cost-centre
        // data: no row, Null lower levels, empty lower levels.
        const int gap = i - int(holders.size());
        const bool fixed = gap < 3;
        if (holder) {
            s.kind = holders[size_t(i)].kind;
            s.serviceType = holders[size_t(i)].serviceType;
            if (holders[size_t(i)].code)
                s.productCode = QString::fromLatin1(holders[size_t(i)].code);
        } else {
            s.kind = pickKind(rng);
            s.serviceType = serviceKind(s.kind).serviceType;
            if (s.kind == ServiceKind::Mobile && rng.percent(15))
                s.serviceType = 19; // a mobile tariff the look-up table does not know
            const auto codes = productCodesOf(s.kind);
            s.productCode = QString::fromLatin1(rng.pick(codes));
        }
        const ServiceKindInfo& info = serviceKind(s.kind);

        auto [it, fresh] = nextNumber.try_emplace(s.kind, rng.between(100, 4000));
        (void)fresh;
        it->second += rng.between(1, 7);
        s.number = QString::fromLatin1(info.numberPrefix) + digitsOf(quint64(it->second), 4);
        s.sourceAccount = sourceAccounts[size_t(rng.below(int(sourceAccounts.size())))];

        // Connections and cessations over the span; the holders stay throughout.
        s.firstMonth = firstMonth;
        s.lastMonth = lastMonth;
        if (!fixed && lastMonth > firstMonth) {
            if (rng.percent(8))
                s.firstMonth = rng.between(firstMonth + 1, lastMonth);
            else if (rng.percent(6))
                s.lastMonth = rng.between(firstMonth, lastMonth - 1);
        }

        if (!info.usage.empty())
            s.usageLevel = rng.between(2, 30) * (rng.percent(10) ? 5 : 1);
        for (const Weighted& w : info.recurring) {
            if (!rng.percent(w.weight))
                continue;
            const ChargeKind& k = chargeKindBySubClass(w.subClass);
            s.recurring.emplace_back(w.subClass, rng.between64(k.minRaw / 100, k.maxRaw / 100) * 100);
        }

        const auto& discounts = discountProducts();
        if (i == 0 || rng.percent(15)) {
            s.discountPercent = rng.between(5, 15);
            s.discountProduct = QString::fromLatin1(i == 0 ? discounts[1] : rng.pick(discounts));
        }
        s.zeroRated = !holder && rng.percent(3);

        // Cost centres: most services sit on a full path of five levels; some have no
        // row, some have Null or empty lower levels.
        const int leafIndex = i == 0 ? 0 : rng.below(int(leaves.size()));
        const Leaf& leaf = leaves[size_t(leafIndex)];
        int shape = holder ? 100 : rng.below(100);
        if (gap >= 0 && gap < 3)
            shape = gap == 0 ? 0 : gap == 1 ? 5 : 9;
        if (shape >= 4) {
            CostCentreRow row = leaf.names;
            if (shape < 8) {
                row[3] = QString();
                row[4] = QString();
            } else if (shape < 11) {
                row[2] = QStringLiteral("");
                row[3] = QStringLiteral("");
                row[4] = QStringLiteral("");
            }
            s.costCentre = row;
        }

        if (i == 0 || rng.percent(90)) {
            s.location = leaf.names[4] + QStringLiteral(", ") +
                         QString::fromUtf8(RegionCities[leaf.region][rng.below(3)]);
            if (rng.percent(12))
                s.holder = QString::fromUtf8(rng.pick(RoleNames));
            else if (rng.percent(95))
                s.holder = QString::fromUtf8(rng.pick(FirstNames)) + QLatin1Char(' ') +
                           QString::fromUtf8(rng.pick(LastNames));
        }
        s.inPhoneBook = rng.percent(80);
        if (s.inPhoneBook) {
            s.phoneBookName = rng.percent(10) ? QString() : (s.holder.isNull() ? s.location : s.holder);
            s.phoneBookUse = rng.percent(70);
        }
        plan.services.push_back(std::move(s));
    }
    return plan;
}

} // namespace demo
