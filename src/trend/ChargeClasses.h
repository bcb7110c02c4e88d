#pragma once
// How charge lines are classified: event classes, the sub-classes that have a trend
// column of their own, and the sub-classes each class's residual ("Other") leaves out.
#include <array>

namespace ChargeClass {
constexpr int Usage = 1;
constexpr int OneOff = 2;
constexpr int Recurring = 3;
constexpr int Adjustment = 4;
} // namespace ChargeClass

struct NamedSubClass {
    int subClass;
    const char* column; // its column in the trend table
};

// In trend-table order (the columns from "Broken Period Rental" to "Mobile Inclusive Calls").
inline constexpr std::array<NamedSubClass, 43> NamedSubClasses = {
    {{26, "Broken Period Rental"},
     {27, "Connection"},
     {28, "Line Rental"},
     {35, "Apparatus Rental"},
     {38, "Maintenance"},
     {95, "Network Advance Charges"},
     {106, "Service Charge"},
     {241, "Network Rental"},
     {242, "Equipment Rental"},
     {244, "Cessation Credit"},
     {130, "Operator"},
     {131, "Zandel Chargecard Local"},
     {132, "Zandel Chargecard National"},
     {133, "ZandelChargecard Inernational"},
     {134, "Zandel Chargecard Mobile and Premium Rate"},
     {135, "Zandel Chargecard Other"},
     {136, "Telemarketing"},
     {210, "Direct Dialled Local"},
     {211, "Direct Dialled National"},
     {212, "Direct Dialled International"},
     {213, "Direct Dialled Mobile and Premium Rate"},
     {224, "Direct Dialled National Rate"},
     {225, "Direct Dialled Local Rate"},
     {215, "Direct Dialled Other"},
     {221, "Information Services"},
     {124, "Network Services Local"},
     {125, "Network Services National"},
     {126, "Network Services International"},
     {127, "Network Services Mobile and Premium Rate"},
     {226, "Network Services National Rate"},
     {227, "Network Services Local Rate"},
     {128, "Network Services Other"},
     {129, "Network Services Facilities"},
     {228, "Mobile Direct Dialled"},
     {229, "Mobile Data"},
     {230, "Mobile Fax"},
     {231, "Mobile SMS"},
     {232, "Mobile Roamed"},
     {246, "Mobile Internet"},
     {237, "Mobile Usage Discounts"},
     {238, "Mobile One Off Discounts"},
     {239, "Mobile Recurring Discounts"},
     {236, "Mobile Inclusive Calls"}}};

// The sub-classes each residual leaves out; a residual looks at one class only.
inline constexpr std::array<int, 3> OneOffNamed = {27, 238, 244};
inline constexpr std::array<int, 10> RecurringNamed = {26, 27, 28, 35, 38, 95, 106, 239, 241, 242};
inline constexpr std::array<int, 31> UsageNamed = {124, 125, 126, 127, 128, 129, 130, 131, 132, 133, 134,
                                                   135, 136, 210, 211, 212, 213, 215, 221, 224, 225, 226,
                                                   227, 228, 229, 230, 231, 232, 236, 237, 246};

template <std::size_t N> constexpr bool isNamedIn(const std::array<int, N>& list, int subClass) {
    for (int s : list)
        if (s == subClass)
            return true;
    return false;
}
