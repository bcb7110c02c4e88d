#include "budget/MasterDatesEdit.h"

#include "budget/BudgetEntryRows.h"
#include "budget/BudgetStatus.h"
#include "budget/clsBudget.h"
#include "data/Database.h"

int editMasterDates(Database& budgetDb, int masterId, const QList<Date>& periods) {
    if (periods.size() > clsBudget::MaxEntries)
        return BudgetStatus::Refused;
    Transaction tx(budgetDb);
    if (queryInt(budgetDb,
                 QStringLiteral("SELECT COUNT(*) FROM tblBudget WHERE BudgetID = ? AND MasterID = -1 "
                                "AND (BudgetType IS NULL OR BudgetType = -1)"),
                 masterId) == 0)
        return BudgetStatus::Refused;

    QList<Date> oldDates;
    for (const clsBudgetCostEntry& e : readBudgetEntries(budgetDb, masterId, true))
        oldDates.append(e.SelectedDate);
    QList<int> family = childBudgetIds(budgetDb, masterId);
    family.append(masterId);

    const QString inFamily =
        QStringLiteral("(BudgetID = ?1 OR BudgetID IN (SELECT BudgetID FROM tblBudget WHERE MasterID = ?1))");
    Statement move(budgetDb, QStringLiteral("UPDATE tblBudgetEntry SET SelectedDate = ?2 WHERE %1 "
                                            "AND SelectedDate = ?3")
                                 .arg(inFamily));
    Statement drop(budgetDb,
                   QStringLiteral("DELETE FROM tblBudgetEntry WHERE %1 AND SelectedDate = ?2").arg(inFamily));
    Statement add(budgetDb,
                  QStringLiteral("INSERT INTO tblBudgetEntry (SelectedDate, BudgetID, Usage, Recurring, "
                                 "OneOff, Adjustments) VALUES (?, ?, 0, 0, 0, 0)"));
    for (int slot = 0; slot < clsBudget::MaxEntries; ++slot) {
        const Date oldDate = oldDates.value(slot);
        const Date newDate = periods.value(slot);
        if (oldDate.isValid() && newDate.isValid()) {
            move.reset();
            move.bindAll(masterId, newDate, oldDate);
            move.run();
        } else if (oldDate.isValid()) {
            drop.reset();
            drop.bindAll(masterId, oldDate);
            drop.run();
        } else if (newDate.isValid()) {
            for (int id : family) {
                add.reset();
                add.bindAll(newDate, id);
                add.run();
            }
        }
    }
    tx.commit();
    return BudgetStatus::Ok;
}
