#pragma once
// Budget and trend stores in a scratch folder behind an AppContext, budgets written by
// hand, and a way to look inside the modal forms that the budget forms open.
#include "TempDir.h"
#include "app/AppContext.h"
#include "app/DialogService.h"

#include <QString>
#include <functional>
#include <memory>

class QDialog;

namespace testing {

// Exact money from text: pounds("1234.5").
Money pounds(const char* text);

struct BudgetFormsFixture {
    BudgetFormsFixture();

    // Rows written straight into the budget store. `created` is ISO text.
    int master(const QString& title, const QString& account, int level,
               const QString& created = QStringLiteral("2023-01-01"));
    int child(int masterId, const QString& title, const QString& account, int level,
              const QString& costCentre, const QString& created = QStringLiteral("2023-01-02"));
    // Returns the new row's DateID.
    int entry(int budgetId, const Date& date, Money usage = {}, Money recurring = {}, Money oneOff = {},
              Money adjustments = {});

    // The four amounts of one entry row, "usage|recurring|oneoff|adjustments" in plain text.
    QString entryAmounts(int dateId);
    QString titleOf(int budgetId);
    int budgetRows(const QString& where);
    int entryRows(int budgetId);
    // Every row of both budget tables as one text, to tell whether anything changed.
    QString budgetDump();

    TempDir dir;
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};
};

// While it lives, runs `inside` on the next modal dialog once it is shown and then closes
// it. The dialog is handled when the code under test runs its exec(); the watch ends with
// its scope, so it cannot catch a dialog of a later test.
class ModalWatch {
public:
    explicit ModalWatch(std::function<void(QDialog*)> inside = {});
    ~ModalWatch();
    ModalWatch(const ModalWatch&) = delete;
    ModalWatch& operator=(const ModalWatch&) = delete;
    // The class name of the dialog that was shown; "" while none was.
    QString seen() const;

    struct State; // shared with the polling timer

private:
    std::shared_ptr<State> state_;
};

} // namespace testing
