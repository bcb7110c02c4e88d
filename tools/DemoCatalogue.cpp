#include "tools/DemoCatalogue.h"

#include <stdexcept>

namespace demo {

namespace {

constexpr std::int64_t P = 100; // a penny in ten-thousandths

ChargeKind rental(int cls, int sub, const char* text, std::int64_t lo, std::int64_t hi, bool credit = false,
                  TaxRule tax = TaxRule::Standard) {
    return {cls, sub, text, Timing::Rental, lo * P, hi * P, 0, credit, tax, 0};
}

ChargeKind oneOff(int cls, int sub, const char* text, std::int64_t lo, std::int64_t hi, bool credit = false,
                  TaxRule tax = TaxRule::Standard) {
    return {cls, sub, text, Timing::None, lo * P, hi * P, 0, credit, tax, 0};
}

// Usage prices are per unit in ten-thousandths, as tariffs quote fractions of a penny.
ChargeKind usage(int sub, const char* text, std::int64_t lo, std::int64_t hi, int seconds, int callType,
                 bool credit = false, TaxRule tax = TaxRule::Standard) {
    return {1, sub, text, Timing::Usage, lo, hi, seconds, credit, tax, callType};
}

} // namespace

const std::vector<ChargeKind>& chargeKinds() {
    static const std::vector<ChargeKind> kinds = {
        // Recurring charges, billed a month in advance.
        rental(3, 26, "Broken Period Rental", 300, 1500),
        rental(3, 28, "Line Rental", 1250, 2499),
        rental(3, 35, "Apparatus Rental", 200, 650),
        rental(3, 38, "Maintenance (quarterly)", 900, 2850),
        rental(3, 95, "Network Advance Charges", 3000, 12000),
        rental(3, 106, "Service Charge", 500, 2500),
        rental(3, 241, "Network Rental", 15000, 40000),
        rental(3, 242, "Equipment Rental", 2000, 8000),
        rental(3, 239, "Mobile Recurring Discount", 100, 600, true),
        rental(3, 27, "Connection Instalment", 1500, 4000),
        rental(3, 30, "Caller Display Rental", 150, 300),
        rental(3, 243, "Hosted Licence", 400, 1200),
        // One-off charges and credits.
        oneOff(2, 27, "Connection", 9900, 25000),
        oneOff(2, 238, "Mobile One Off Discount", 500, 3000, true),
        rental(2, 244, "Cessation Credit", 500, 2000, true),
        rental(2, 28, "Back-dated Line Rental", 1250, 2499, false, TaxRule::OldRate),
        oneOff(2, 29, "Engineer Visit", 6500, 15000),
        oneOff(2, 101, "Number Porting", 1000, 3000),
        // Usage.
        usage(130, "Operator Calls", 10000, 25000, 90, 5),
        usage(131, "Chargecard Local", 800, 1500, 180, 1),
        usage(132, "Chargecard National", 1200, 2500, 240, 2),
        usage(133, "Chargecard International", 6000, 15000, 300, 3),
        usage(134, "Chargecard Mobile & Premium", 3000, 8000, 120, 4),
        usage(135, "Chargecard Other", 1000, 3000, 60, 5),
        usage(136, "Freephone Inbound", 300, 900, 200, 2),
        usage(210, "Local Calls", 200, 500, 180, 1),
        usage(211, "National Calls", 400, 900, 240, 2),
        usage(212, "International Calls", 3000, 20000, 300, 3, false, TaxRule::OutsideScope),
        usage(213, "Calls to Mobiles & Premium", 1200, 4000, 120, 4),
        usage(215, "Other Calls", 500, 1500, 90, 5),
        usage(221, "Information Services", 5000, 15000, 60, 5),
        usage(224, "National Rate Numbers", 500, 1000, 200, 2),
        usage(225, "Local Rate Numbers", 300, 700, 200, 1),
        usage(124, "Network Local", 150, 400, 180, 1),
        usage(125, "Network National", 300, 800, 240, 2),
        usage(126, "Network International", 2500, 15000, 300, 3, false, TaxRule::OutsideScope),
        usage(127, "Network Mobile & Premium", 1000, 3500, 120, 4),
        usage(128, "Network Other", 400, 1200, 90, 5),
        usage(129, "Network Facilities", 2000, 6000, 0, 5),
        usage(226, "Network National Rate", 400, 900, 200, 2),
        usage(227, "Network Local Rate", 250, 600, 200, 1),
        usage(228, "Mobile Calls", 500, 1500, 120, 4),
        usage(229, "Mobile Data Sessions", 2000, 8000, 0, 6),
        usage(230, "Mobile Fax", 1000, 2000, 60, 4),
        usage(231, "Text Messages", 400, 1000, 0, 7),
        usage(232, "Roaming", 5000, 25000, 180, 3, false, TaxRule::OutsideScope),
        usage(246, "Mobile Internet", 1500, 5000, 0, 6),
        usage(236, "Inclusive Calls Allowance", 500, 1500, 0, 4, true),
        usage(237, "Mobile Usage Discount", 300, 900, 0, 4, true),
        usage(214, "Directory Enquiries", 5000, 12000, 45, 5),
        usage(233, "Mobile Video Calls", 2000, 5000, 100, 4),
        usage(245, "Conference Calls", 3000, 9000, 900, 2),
        // Adjustments.
        oneOff(4, 401, "Goodwill Credit", 1000, 10000, true, TaxRule::OutsideScope),
        oneOff(4, 402, "Billing Correction", 500, 5000, true, TaxRule::OldRate),
        oneOff(4, 403, "Late Payment Charge", 1000, 2500),
    };
    return kinds;
}

const ChargeKind& chargeKind(int eventClass, int subClass) {
    for (const ChargeKind& k : chargeKinds()) {
        if (k.eventClass == eventClass && k.subClass == subClass)
            return k;
    }
    throw std::logic_error("demo: no such charge kind");
}

const ChargeKind& chargeKindBySubClass(int subClass) {
    for (const ChargeKind& k : chargeKinds()) {
        if (k.subClass == subClass)
            return k; // the first entry of a sub-class is its usual class
    }
    throw std::logic_error("demo: no such charge sub-class");
}

const std::vector<ServiceKindInfo>& serviceKinds() {
    static const std::vector<ServiceKindInfo> kinds = {
        {ServiceKind::Analogue,
         "Analogue Line",
         1,
         30,
         false,
         "0113496",
         {{28, 100}, {38, 40}, {35, 20}, {30, 15}},
         {{210, 30},
          {211, 25},
          {212, 4},
          {213, 15},
          {224, 8},
          {225, 8},
          {215, 4},
          {221, 2},
          {130, 2},
          {214, 2}}},
        {ServiceKind::Isdn2,
         "ISDN2",
         2,
         10,
         false,
         "0114496",
         {{28, 100}, {241, 40}},
         {{210, 30}, {211, 30}, {212, 5}, {213, 15}, {224, 10}, {225, 10}}},
        {ServiceKind::Isdn30,
         "ISDN30",
         3,
         4,
         false,
         "0207946",
         {{241, 100}, {95, 30}, {106, 100}},
         {{210, 25}, {211, 30}, {212, 10}, {213, 20}, {215, 5}, {224, 5}, {225, 5}}},
        {ServiceKind::Featureline,
         "Featureline",
         4,
         12,
         false,
         "0117496",
         {{28, 100}, {242, 40}},
         {{124, 25}, {125, 25}, {126, 5}, {127, 15}, {128, 5}, {129, 5}, {226, 10}, {227, 10}}},
        {ServiceKind::Mobile,
         "Mobile",
         12,
         25,
         true,
         "0770090",
         {{106, 100}, {239, 30}},
         {{228, 40}, {229, 8}, {230, 1}, {231, 15}, {232, 5}, {246, 12}, {236, 5}, {237, 3}, {233, 2}}},
        {ServiceKind::MobileData,
         "Mobile Data",
         13,
         6,
         true,
         "0770091",
         {{106, 100}},
         {{229, 40}, {246, 50}, {232, 10}}},
        {ServiceKind::Chargecard,
         "Chargecard",
         6,
         4,
         false,
         "0800001",
         {{106, 50}},
         {{131, 30}, {132, 30}, {133, 10}, {134, 15}, {135, 10}, {130, 5}}},
        {ServiceKind::Freephone,
         "Freephone",
         7,
         4,
         false,
         "0808157",
         {{106, 100}, {242, 10}},
         {{136, 85}, {245, 15}}},
        {ServiceKind::DataCircuit,
         "Data Circuit",
         8,
         5,
         false,
         "0118496",
         {{242, 100}, {241, 50}, {38, 30}, {243, 40}},
         {}},
    };
    return kinds;
}

const ServiceKindInfo& serviceKind(ServiceKind kind) {
    for (const ServiceKindInfo& k : serviceKinds()) {
        if (k.kind == kind)
            return k;
    }
    throw std::logic_error("demo: no such service kind");
}

const std::vector<ProductHolder>& productHolders() {
    using K = ServiceKind;
    static const std::vector<ProductHolder> holders = {
        {"P00001", K::Analogue, 1},    {"P00002", K::Analogue, 1},    {"P00003", K::Isdn2, 2},
        {"P00004", K::Isdn2, 2},       {"P00005", K::Isdn30, 3},      {"P00006", K::Isdn30, 3},
        {"P00007", K::Featureline, 4}, {"P00008", K::Featureline, 4}, {"P00009", K::Featureline, 4},
        {"P00014", K::Chargecard, 6},  {"P00015", K::Chargecard, 6},  {"P00018", K::Freephone, 7},
        {"P00019", K::Freephone, 7},   {"P00020", K::Freephone, 7},   {"P00021", K::Analogue, 1},
        {"P00022", K::Analogue, 1},    {"P00023", K::DataCircuit, 8}, {"P00024", K::DataCircuit, 8},
        {"P00025", K::DataCircuit, 8}, {"P00026", K::DataCircuit, 8}, {"P00027", K::DataCircuit, 8},
        {"P00028", K::Isdn30, 3},      {"P00029", K::Featureline, 4}, {"P00030", K::DataCircuit, 8},
        {"P00031", K::Mobile, 12},     {"P00031", K::Mobile, 19},     {"P00031", K::MobileData, 13},
        {"P00032", K::DataCircuit, 8}, {"P00042", K::Analogue, 1},    {"P00044", K::DataCircuit, 8},
        {"P00045", K::Freephone, 7},   {"P00048", K::DataCircuit, 8}, {"P00050", K::DataCircuit, 8},
        {"P00099", K::Analogue, 1},    {nullptr, K::Analogue, 1},
    };
    return holders;
}

std::vector<const char*> productCodesOf(ServiceKind kind) {
    std::vector<const char*> codes;
    for (const ProductHolder& h : productHolders()) {
        if (h.kind == kind && h.code)
            codes.push_back(h.code);
    }
    return codes;
}

const std::vector<LookupRow>& lookupRows() {
    static const std::vector<LookupRow> rows = {
        {"Product Service Code", "P00001", "Analogue Lines"},
        {"Product Service Code", "P00002", "Analogue Lines - Business"},
        {"Product Service Code", "P00003", "ISDN2 Digital Lines"},
        {"Product Service Code", "P00004", "ISDN2e Lines"},
        {"Product Service Code", "P00005", "ISDN30 Bearers"},
        {"Product Service Code", "P00006", "ISDN30e Channels"},
        {"Product Service Code", "P00007", "Featureline"},
        {"Product Service Code", "P00008", "Featurenet Sites"},
        {"Product Service Code", "P00014", "Chargecard"},
        {"Product Service Code", "P00015", "Corporate Chargecard"},
        {"Product Service Code", "P00018", "Freephone 0800"},
        {"Product Service Code", "P00019", "Freephone 0808"},
        {"Product Service Code", "P00020", "Lo-call 0845"},
        {"Product Service Code", "P00021", "Payphone Lines"},
        {"Product Service Code", "P00022", "Fax Lines"},
        {"Product Service Code", "P00023", "Broadband"},
        {"Product Service Code", "P00025", "Leased Lines"},
        {"Product Service Code", "P00026", "Ethernet Access"},
        {"Product Service Code", "P00027", "Kilostream"},
        {"Product Service Code", "P00028", "Direct Dial Inward"},
        {"Product Service Code", "P00029", "Centrex Seats"},
        {"Product Service Code", "P00030", "Managed Router"},
        {"Product Service Code", "P00032", "Private Circuits"},
        {"Product Service Code", "P00044", "  SIP Trunks  "},
        {"Product Service Code", "P00045", "Director's Hotline"},
        {"Product Service Code", "P00050", "Hosted Voice Seats"},
        {"Service Type", "1", "Analogue Line"},
        {"Service Type", "2", "ISDN2"},
        {"Service Type", "3", "ISDN30"},
        {"Service Type", "4", "Featureline"},
        {"Service Type", "6", "Chargecard"},
        {"Service Type", "7", "Freephone"},
        {"Service Type", "8", "Data Circuit"},
        {"Service Type", "12", "Mobile Voice"},
        {"Service Type", "13", "Mobile Data "},
        {"Tariff", "P00024", "Tariff Band 24"},
        {"Tariff", "19", "Tariff Band 19"},
        {"Call Type", "1", "Local"},
        {"Call Type", "2", "National"},
        {"Call Type", "3", "International"},
        {"Call Type", "4", "Mobile"},
        {"Discount Product", "D0101", "Mobile Volume Discount"},
        {"Discount Product", "D0102", "Line Rental Saver"},
        {"Discount Product", "D0103", "Calls Bundle 15%"},
    };
    return rows;
}

const std::vector<const char*>& discountProducts() {
    static const std::vector<const char*> products = {"D0101", "D0102", "D0103", "D0199"};
    return products;
}

const std::vector<TaxBand>& taxBands() {
    static const std::vector<TaxBand> bands = {
        {20.0, "VAT @ 20%"},
        {17.5, "VAT @ 17.5%"},
        {0.0, "Outside Scope"},
        {0.0, "Zero Rated"},
    };
    return bands;
}

int seasonalPerMille(int month) {
    static const int factors[12] = {1080, 1120, 1060, 980, 960, 900, 780, 760, 980, 1050, 1100, 1150};
    return factors[(month - 1) % 12];
}

} // namespace demo
