#pragma once
// A selected project with a small trend store, all in memory, for the report tests.
#include "TempDir.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/Money.h"
#include "reports/ReportContext.h"

#include <QColor>
#include <QVariantList>
#include <map>
#include <optional>

namespace trendColumn {
inline const QString Usage = QStringLiteral("Usage Charges");
inline const QString Recurring = QStringLiteral("Recurring Charges");
inline const QString OneOff = QStringLiteral("One Off Charges and Credits");
inline const QString Adjust = QStringLiteral("Adjustments");
inline const QString Tele = QStringLiteral("Telemarketing");
inline const QString PreTax = QStringLiteral("PreTax Cost");
} // namespace trendColumn

// One trend row: the four families default to 0, every other column to Null.
struct TrendRow {
    Date date;
    QString service = QStringLiteral("0100");
    QString product = QStringLiteral("P1");
    std::map<QString, std::optional<Money>> amounts;
    QString account; // the fixture's account when empty
};

class TrendFixture {
public:
    explicit TrendFixture(const QString& account = QStringLiteral("ACC1"));

    // Adds a row with the given column amounts over the defaults.
    void add(const TrendRow& row);
    void add(const Date& date, const QString& service, std::map<QString, std::optional<Money>> amounts,
             const QString& product = QStringLiteral("P1"));
    // A number of the project's cost-centre table; levels are CostCentre1.., a null QVariant a Null.
    void number(const QString& tel, const QVariantList& levels);

    // Sums the rows added so far into the bill totals, as gathering does, before each report.
    ReportContext context(ProgressFn progress = {});
    QString logText() const;

    testing::TempDir dir;
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};
};

// Three small bills of 31/01, 29/02 and 31/03/2012, laid out in TrendFixture.cpp.
void fillThreeBills(TrendFixture& f);

inline Money pounds(double amount) {
    return Money::fromDouble(amount);
}

// The colours a percent cell can take.
inline QColor riseColour() {
    return QColor(255, 0, 0);
}
inline QColor fallColour() {
    return QColor(11, 222, 69);
}
