#pragma once
// The budget editor's grid: a row per cost type, a first column with its label and a
// column per period (p1 to p12). Figures show as pounds, edit as plain amounts, and a
// row takes the background of its cost type.
#include "app/cColours.h"
#include "budget/BudgetGrid.h"

#include <QAbstractTableModel>

class BudgetGridModel : public QAbstractTableModel {
    Q_OBJECT
public:
    static constexpr int LabelColumn = 0;

    explicit BudgetGridModel(QObject* parent = nullptr);

    void setGrid(const BudgetGrid& grid);
    const BudgetGrid& grid() const { return grid_; }
    int periodCount() const { return int(grid_.periods.size()); }
    // The grid column of period n (1-based) and back; 0 for the label column.
    static int columnOfPeriod(int n) { return n; }
    static int periodOfColumn(int column) { return column; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // Takes the text of an edit through the cell rules, and tells figureChanged when the
    // amount differs.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

signals:
    // An amount was edited to a new value.
    void figureChanged(int row, int period);

private:
    bool isFigure(const QModelIndex& index) const;

    BudgetGrid grid_;
    cColours colours_;
};
