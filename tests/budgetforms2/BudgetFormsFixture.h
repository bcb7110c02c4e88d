#pragma once
// Budget and trend stores in a scratch folder behind an AppContext, budgets written by hand
// and read back by small queries of their own, and a look inside the forms they open.
#include "TempDir.h"
#include "app/AppContext.h"
#include "app/DialogService.h"

#include <QString>
#include <QTimer>
#include <functional>

class QDialog;

namespace testing {

Money pounds(const char* text); // exact money from text: pounds("1234.5")

struct BudgetFormsFixture {
    BudgetFormsFixture();
    // Rows written straight into the budget store; `created` is ISO text.
    int master(const QString& title, const QString& account, int level,
               const QString& created = QStringLiteral("2023-01-01"));
    int child(int masterId, const QString& title, const QString& account, int level,
              const QString& costCentre, const QString& created = QStringLiteral("2023-01-02"));
    int entry(int budgetId, const Date& date, Money usage = {}, Money recurring = {}, Money oneOff = {},
              Money adjustments = {}); // the new row's DateID

    QString entryAmounts(int dateId); // "usage|recurring|oneoff|adjustments" in ten-thousandths
    QString titleOf(int budgetId);    // "<gone>" without a row
    QString budgetDump();             // every row of both budget tables, to tell whether anything changed

    TempDir dir;
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};
};

// Runs `inside` on the next modal dialog shown while it lives, then closes that dialog.
class ModalWatch {
public:
    explicit ModalWatch(std::function<void(QDialog*)> inside = {});
    QString seen() const { return seen_; } // the class name of the dialog shown; "" while none was

private:
    QTimer timer_;
    QString seen_;
};

} // namespace testing
