#include "budget/BudgetRename.h"

#include "budget/BudgetStatus.h"
#include "budget/clsBudget.h"
#include "data/Database.h"

std::optional<QString> renamedTitle(const QString& typed, bool isChild,
                                    const std::optional<QString>& masterTitle) {
    const QChar quote(QLatin1Char('\''));
    QString title = typed;
    title.remove(quote);
    if (isChild) {
        if (!masterTitle)
            return std::nullopt;
        // The master's title loses its quotes too, or a quoted prefix would stay.
        QString prefix = *masterTitle;
        prefix.remove(quote);
        prefix += QLatin1Char('.');
        title.remove(prefix);
    }
    return title.left(clsBudget::MaxNameLength);
}

BudgetRenameResult renameBudget(Database& budgetDb, int budgetId, const QString& typed) {
    Transaction tx(budgetDb);
    QString oldTitle;
    int masterId = clsBudget::NoID;
    std::optional<QString> masterTitle;
    {
        Statement row(budgetDb,
                      QStringLiteral("SELECT b.Title, b.MasterID, m.BudgetID, m.Title FROM tblBudget b "
                                     "LEFT JOIN tblBudget m ON m.BudgetID = b.MasterID "
                                     "WHERE b.BudgetID = ?"));
        row.bind(1, budgetId);
        if (!row.step())
            return {BudgetStatus::Refused, QString()};
        oldTitle = row.text(0);
        masterId = row.isNull(1) ? clsBudget::NoID : row.integer(1);
        if (!row.isNull(2))
            masterTitle = row.text(3);
    }
    const bool isChild = masterId != clsBudget::NoID;
    const std::optional<QString> title = renamedTitle(typed, isChild, masterTitle);
    if (!title)
        return {BudgetStatus::Refused, oldTitle};
    budgetDb.exec(QStringLiteral("UPDATE tblBudget SET Title = ? WHERE BudgetID = ?"), *title, budgetId);
    tx.commit();
    return {BudgetStatus::Ok, *title};
}
