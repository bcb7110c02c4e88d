#pragma once
// The fixed vocabulary of the demo bills: kinds of service, kinds of charge line with
// their event class and sub-class, product codes, tax bands and code descriptions.
#include <cstdint>
#include <vector>

namespace demo {

// How a charge line is dated.
enum class Timing {
    Usage,  // a usage period, no rental dates
    Rental, // a rental period, no usage dates
    None,   // neither: one-off charges, adjustments
};

enum class TaxRule { Standard, OldRate, OutsideScope };

// One kind of charge line. Usage kinds price a unit (call, message, session); the
// others price the whole line.
struct ChargeKind {
    int eventClass;
    int subClass;
    const char* description;
    Timing timing;
    std::int64_t minRaw; // ten-thousandths of a pound
    std::int64_t maxRaw;
    int secondsPerUnit;
    bool credit; // written as a negative amount
    TaxRule tax;
    int callType;
};

enum class ServiceKind {
    Analogue,
    Isdn2,
    Isdn30,
    Featureline,
    Mobile,
    MobileData,
    Chargecard,
    Freephone,
    DataCircuit
};

struct Weighted {
    int subClass;
    int weight; // for usage: relative weight; for recurring: percent of services that have it
};

struct ServiceKindInfo {
    ServiceKind kind;
    const char* name;
    int serviceType;
    int weight;         // share of the services of an account
    bool rentalOnUsage; // usage lines carry the bundle's rental period as well
    const char* numberPrefix;
    std::vector<Weighted> recurring; // class 3 lines
    std::vector<Weighted> usage;     // class 1 lines
};

struct ProductHolder {
    const char* code; // nullptr: the line has no product code
    ServiceKind kind;
    int serviceType;
};

struct LookupRow {
    const char* columnName;
    const char* enumeration;
    const char* description;
};

struct TaxBand {
    double rate;
    const char* description;
};

enum TaxBandIndex { TaxStandard = 0, TaxOld = 1, TaxOutsideScope = 2, TaxZeroRated = 3 };

const std::vector<ChargeKind>& chargeKinds();
// The kind with this class and sub-class; every pair used by the generator exists.
const ChargeKind& chargeKind(int eventClass, int subClass);
// The kind with this sub-class in its usual class (class 1 for usage sub-classes and so on).
const ChargeKind& chargeKindBySubClass(int subClass);

const std::vector<ServiceKindInfo>& serviceKinds();
const ServiceKindInfo& serviceKind(ServiceKind kind);

// One service per entry is given this product code and service type, so every code
// (and "P00031" with service types found and not found in the look-up) appears.
const std::vector<ProductHolder>& productHolders();
// Codes a further service of this kind may carry.
std::vector<const char*> productCodesOf(ServiceKind kind);

// The look-up rows of a project: product and service type descriptions, discount
// products, and rows of other columns that must not be taken for them.
const std::vector<LookupRow>& lookupRows();
// Discount products given to services; the last one has no description.
const std::vector<const char*>& discountProducts();

const std::vector<TaxBand>& taxBands();

// Month factor in per mille for usage: busy winters, quiet summer holidays.
int seasonalPerMille(int month /* 1..12 */);

} // namespace demo
