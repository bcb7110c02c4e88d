#pragma once
// Budget, trend and cost-centre stores in a scratch folder, opened into a context with a
// recording dialog service, and helpers to drive the modal forms the budget forms open.
#include "TempDir.h"
#include "app/AppContext.h"
#include "app/Date.h"
#include "app/DialogService.h"
#include "app/Money.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

#include <QTimer>
class QWidget;

namespace testing {

// Exact money from text: cash("12.3456").
Money cash(const char* text);

struct FormStores {
    explicit FormStores(const QString& account = QStringLiteral("ACC1"));

    void trendRow(const QString& account, const Date& billDate, const QString& service, Money usage,
                  Money recurring = {}, Money oneOff = {}, Money adjustments = {});
    // A row of the selected project's TblCC.
    void costCentre(const QString& account, const QString& tel, const QString& level1,
                    const QString& level2 = {});

    // The budget's rows as "yyyy-mm-dd:usage/recurring/oneoff/adjustments", by date, with
    // plain amounts ("12.3456", "-2", "0").
    QStringList entries(int budgetId);
    int budgetCount();
    int idOfTitle(const QString& title);
    // "Title|BillAccount|CCLevel|CCName|MasterID|BudgetType" of the budget's row.
    QString header(int budgetId);

    TempDir dir;
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};
};

// Acts on the modal windows that a form opens while the test waits in it. Each watch
// runs once, as soon as a window of its class is the active modal widget (checked every
// few milliseconds, for at most five seconds); watches still waiting end with the driver.
class ModalDriver {
public:
    ModalDriver() = default;
    ModalDriver(const ModalDriver&) = delete;
    ModalDriver& operator=(const ModalDriver&) = delete;
    ~ModalDriver();

    void when(const char* className, std::function<void(QWidget*)> action);
    // Closes the window as if cancelled.
    void close(const char* className);
    // How many windows of the class were acted on.
    int seen(const char* className) const { return seen_.value(QByteArray(className)); }

private:
    std::vector<std::unique_ptr<QTimer>> timers_;
    QHash<QByteArray, int> seen_;
};

} // namespace testing
