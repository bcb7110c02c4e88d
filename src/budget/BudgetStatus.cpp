#include "budget/BudgetStatus.h"

QString masterSaveMessage(int status) {
    switch (status) {
    case BudgetStatus::Ok:
        return QString();
    case BudgetStatus::TitleExists:
        return BudgetText::MasterNameExists;
    case BudgetStatus::NoEntries:
        return BudgetText::MasterNoDates;
    default:
        return BudgetText::MasterSaveError;
    }
}

QString costCentreSaveMessage(int status) {
    switch (status) {
    case BudgetStatus::Ok:
        return QString();
    case BudgetStatus::TitleExists:
        return BudgetText::CostCentreNameInUse;
    case BudgetStatus::CostCentreTaken:
        return BudgetText::CostCentreAllocated;
    default:
        return BudgetText::CostCentreSaveError;
    }
}
