#pragma once
// Charge lines of one demo bill, produced one at a time so that a bill of millions
// of lines never sits in memory.
#include "app/Date.h"
#include "app/Money.h"
#include "tools/DemoPlan.h"

#include <QString>
#include <functional>

namespace demo {

// The dates of one bill: usage is billed for the month before the bill date,
// rental for the month after it, in advance.
struct BillPeriod {
    Date billDate;
    int month = 0; // monthNumber(billDate)
    Date usageStart, usageEnd;
    Date rentalStart, rentalEnd;
    QString usageStartIso, usageEndIso, rentalStartIso, rentalEndIso;

    static BillPeriod forBillDate(const Date& billDate);
};

struct ChargeLine {
    int service = 0; // index into AccountPlan::services
    Money billCost, taxCost, preTaxCost, totalDiscount, preDiscountCost;
    int taxBand = 0; // index into taxBands()
    int eventClass = 0;
    int eventSubClass = 0;
    QString usageStart, usageEnd, rentalStart, rentalEnd; // ISO text; null when the line has none
    int callVolume = 0;
    double duration = 0;
    int callType = 0;
    bool nullProductCode = false; // a line without the service's product code
    QString description1, adjustmentDescription;
    int thisImport = 1;
};

// The lines of one bill: first one line of every kind of charge and every product
// code, then the recurring charges of each active service, then usage lines up to
// the requested count. A bill never has fewer lines than the first part needs.
// Returns the number of lines produced.
qint64 generateChargeLines(const AccountPlan& plan, const BillPeriod& period, qint64 lines, quint64 seed,
                           const std::function<void(const ChargeLine&)>& sink);

// The number of lines the first part of a bill takes.
int coverageLineCount(const AccountPlan& plan, const BillPeriod& period);

} // namespace demo
