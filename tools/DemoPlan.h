#pragma once
// The standing data of one demo account: its services, where they sit in the
// cost-centre tree, who holds them, and when they were connected and ceased.
// A plan is a pure function of the seed and the account number.
#include "app/Date.h"
#include "tools/DemoCatalogue.h"

#include <QString>
#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace demo {

// Months counted from year 0, so consecutive bills have consecutive numbers.
inline int monthNumber(const Date& d) {
    return d.year() * 12 + int(d.month()) - 1;
}
inline Date dateInMonth(int month, unsigned day) {
    return Date(month / 12, unsigned(month % 12) + 1, day);
}

// Five cost-centre values; a null QString stands for SQL NULL.
using CostCentreRow = std::array<QString, 5>;

struct ServicePlan {
    QString number;
    QString sourceAccount;
    ServiceKind kind = ServiceKind::Analogue;
    int serviceType = 0;
    QString productCode; // null: the service's lines carry no product code
    int firstMonth = 0;  // first and last bill months that charge the service
    int lastMonth = 0;
    int usageLevel = 0;                                  // relative call volume; 0 for no usage
    std::vector<std::pair<int, std::int64_t>> recurring; // sub-class, monthly amount in ten-thousandths
    int discountPercent = 0;                             // 0: no discount product
    QString discountProduct;
    bool zeroRated = false;
    std::optional<CostCentreRow> costCentre; // none: the service has no cost-centre row
    QString location;                        // null: no row in the telephone store
    QString holder;                          // may be null
    bool inPhoneBook = false;
    QString phoneBookName; // may be null
    bool phoneBookUse = false;
};

struct AccountPlan {
    QString account;
    QString storeAccount; // the account under which the cost-centre store keeps its rows
    QString locId;
    int firstMonth = 0;
    int lastMonth = 0;
    int growthPerMille = 0; // monthly growth of usage
    int fixedServices = 0;  // the first services, charged on every bill
    std::vector<ServicePlan> services;

    bool isActive(const ServicePlan& s, int month) const {
        return s.firstMonth <= month && month <= s.lastMonth;
    }
};

// The account as the central cost-centre store keeps it: one ending in "AC01" loses
// its last two characters.
QString storeAccountOf(const QString& account);

// A stable number for an account text, for deriving random streams.
quint64 accountTag(const QString& account);

// Services are numbered by kind. The first ones (AccountPlan::fixedServices) stay
// active over the whole span: one per product code of the catalogue, then one
// without a cost-centre row, one with Null and one with empty lower levels.
AccountPlan makeAccountPlan(quint64 seed, const QString& account, int firstMonth, int lastMonth,
                            int serviceCount);

} // namespace demo
