#pragma once
// Status codes of the budget model and the texts the budget forms show for them.
#include <QString>

namespace BudgetStatus {
constexpr int Ok = 0;
constexpr int Refused = 3;         // not a master, list full, index out of range, no such budget
constexpr int TitleExists = 4;     // the title is already used under this master
constexpr int CostCentreTaken = 5; // the cost centre already has a budget under this master
constexpr int NoEntries = 6;       // a budget needs at least one date
} // namespace BudgetStatus

namespace BudgetText {
// The master budget form.
inline const QString SelectPeriod = QStringLiteral("Please select at least one period");
inline const QString MasterNameExists = QStringLiteral("The selected budget name already exists.");
inline const QString MasterNoDates = QStringLiteral("Please select at least one date entry.");
inline const QString MasterSaveError = QStringLiteral("There was an error whilst saving the budget.");
// The cost-centre budget form.
inline const QString SelectCostCentre = QStringLiteral("Please select a cost centre.");
inline const QString PercentInvalid =
    QStringLiteral("This 'percent change' values is invalid, please try again.");
inline const QString PercentNotNumeric = QStringLiteral("Please enter a valid numeric value");
inline const QString CostCentreNameInUse =
    QStringLiteral("The selected budget name is already in use, please try again.");
inline const QString CostCentreAllocated =
    QStringLiteral("A budget for the selected cost centre already allocated, please try again.");
inline const QString CostCentreSaveError = QStringLiteral("An error occurred whilst saving the budget.");
// The management form.
inline const QString NoProject =
    QStringLiteral("Please select a project for which the new budget is to be based.");
inline const QString SelectMaster =
    QStringLiteral("Please select the master budget for which the new cost centre budget is to be added.");
inline const QString WholeBillMaster =
    QStringLiteral("You can not add a cost centre budget to a master budget created for the whole bill.");
inline const QString SelectBudget = QStringLiteral("Please select a budget");
inline const QString ConfirmDelete = QStringLiteral("Are you sure you want to delete the selected budget?");
inline const QString ConfirmDeleteMaster = QStringLiteral(
    "Are you sure you want to delete the selected master budget and all associated cost centre budgets?");
inline const QString BudgetSaved = QStringLiteral("Budget saved");
inline const QString LoseChanges = QStringLiteral("Are you sure you want to lose all your changes?");
} // namespace BudgetText

// What the master budget form says after SaveBudget; "" for success.
QString masterSaveMessage(int status);
// What the cost-centre budget form says after SaveBudget; "" for success.
QString costCentreSaveMessage(int status);
