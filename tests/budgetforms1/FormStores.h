#pragma once
// Budget, trend, cost-centre and project stores in a scratch folder behind a context with a
// recording dialog service, read back by small queries of their own; and a driver for the
// modal forms the budget forms open.
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
    void costCentre(const QString& account, const QString& tel, const QString& level1,
                    const QString& level2 = {}); // a row of the project's TblCC
    // "yyyy-mm-dd:usage/recurring/oneoff/adjustments" by date, plain amounts ("12.3456", "-2").
    QStringList entries(int budgetId);
    int budgetCount();
    int idOfTitle(const QString& title);
    QString header(int budgetId); // "Title|BillAccount|CCLevel|CCName|MasterID|BudgetType"

    TempDir dir;
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};
};

// Each watch acts once on the first active modal window of its class (polled every few
// milliseconds for at most five seconds); watches still waiting end with the driver.
class ModalDriver {
public:
    void when(const char* className, std::function<void(QWidget*)> action);
    void close(const char* className); // as if cancelled
    int seen(const char* className) const { return seen_.value(QByteArray(className)); }

private:
    std::vector<std::unique_ptr<QTimer>> timers_;
    QHash<QByteArray, int> seen_;
};

} // namespace testing
