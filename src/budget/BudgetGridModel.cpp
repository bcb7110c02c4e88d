#include "budget/BudgetGridModel.h"

#include "app/Format.h"
#include "budget/BudgetCellText.h"

BudgetGridModel::BudgetGridModel(QObject* parent)
    : QAbstractTableModel(parent) {}

void BudgetGridModel::setGrid(const BudgetGrid& grid) {
    beginResetModel();
    grid_ = grid;
    endResetModel();
}

int BudgetGridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(budgetCostTypes().size());
}

int BudgetGridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 1 + BudgetGrid::MaxPeriods;
}

bool BudgetGridModel::isFigure(const QModelIndex& index) const {
    return index.isValid() && index.column() != LabelColumn &&
           periodOfColumn(index.column()) <= periodCount();
}

QVariant BudgetGridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const BudgetCostTypeInfo& type = budgetCostTypes()[index.row()];
    switch (role) {
    case Qt::BackgroundRole:
        return qColor(colours_.Colour(type.colourIndex));
    case Qt::TextAlignmentRole:
        return index.column() == LabelColumn ? QVariant(Qt::AlignLeft | Qt::AlignVCenter)
                                             : QVariant(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::DisplayRole:
    case Qt::EditRole:
        if (index.column() == LabelColumn)
            return type.label;
        if (!isFigure(index))
            return {};
        {
            const Money amount = grid_.amount(type.type, periodOfColumn(index.column()) - 1);
            return role == Qt::DisplayRole ? formatPounds(amount) : budgetCellEditText(amount);
        }
    default:
        return {};
    }
}

QVariant BudgetGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    if (orientation == Qt::Vertical)
        return {};
    if (section == LabelColumn)
        return QStringLiteral("Cost Type");
    const int n = periodOfColumn(section);
    if (n <= periodCount())
        return budgetPeriodCaption(n, grid_.periods[n - 1].date);
    return QStringLiteral("p%1").arg(n);
}

Qt::ItemFlags BudgetGridModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (isFigure(index))
        f |= Qt::ItemIsEditable;
    return f;
}

bool BudgetGridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !isFigure(index))
        return false;
    const Money amount = budgetCellValue(value.toString());
    const int period = periodOfColumn(index.column()) - 1;
    Money& cell = grid_.periods[period].amounts[index.row()];
    if (cell == amount) {
        emit dataChanged(index, index); // the editor's text goes back to the shown form
        return true;
    }
    cell = amount;
    emit dataChanged(index, index);
    emit figureChanged(index.row(), period + 1);
    return true;
}
