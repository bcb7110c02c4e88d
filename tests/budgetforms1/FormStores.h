#pragma once
// Budget, trend and project stores in a scratch folder behind a context with a recording
// dialog service, written and read back by small queries of their own; and a driver for the
// modal forms the budget forms open. The budget list tests (tests/budgetforms2) share it.
#include "TempDir.h"
#include "app/AppContext.h"
#include "app/Date.h"
#include "app/DialogService.h"
#include "app/Money.h"

#include <QHash>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>
class QWidget;

namespace testing {

Money cash(const char* text); // exact money from text: cash("12.3456")

struct FormStores {
    explicit FormStores(const QString& account = QStringLiteral("ACC1"));
    void trendRow(const QString& account, const Date& billDate, const QString& service, Money usage,
                  Money recurring = {}, Money oneOff = {}, Money adjustments = {});
    void costCentre(const QString& account, const QString& tel, const QString& level1); // project's TblCC
    // Budget rows written by hand; a master's MasterID and BudgetType are -1.
    int budget(const QString& title, const QString& account, int level, int masterId = -1,
               const QString& costCentre = {}, const QString& created = QStringLiteral("2023-01-01"));
    void entry(int budgetId, const Date& date, Money usage = {}, Money recurring = {}, Money oneOff = {},
               Money adjustments = {});
    // "yyyy-mm-dd:usage/recurring/oneoff/adjustments" by date, plain amounts ("12.3456", "-2").
    QStringList entries(int budgetId);
    int budgetCount();
    int idOfTitle(const QString& title); // -1 without a row
    QString header(int budgetId);        // "Title|BillAccount|CCLevel|CCName|MasterID|BudgetType"
    QString budgetDump();                // every row of both budget tables, to tell whether anything changed

    TempDir dir;
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};
};

// Each watch acts once on the first active modal dialog of its class ("QDialog": any), then
// rejects it unless the action closed it; polled every few milliseconds for at most five
// seconds. Watches still waiting end with the driver.
class ModalDriver {
public:
    void when(const char* className, std::function<void(QWidget*)> action = {});
    int seen(const char* className) const { return seen_.value(QByteArray(className)); }

private:
    std::vector<std::unique_ptr<QTimer>> timers_;
    QHash<QByteArray, int> seen_;
};

} // namespace testing
