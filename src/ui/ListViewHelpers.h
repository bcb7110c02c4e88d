#pragma once
// Report-style lists (QTreeWidget without branches): sorting by a clicked column
// header and fitting the columns to their contents.
#include <QString>

class QTreeWidget;

// Tags a column "d" (dates, dd/mm/yyyy) or "n" (numbers, amounts, percentages);
// an untagged column sorts as text.
void setListColumnTag(QTreeWidget* list, int column, const QString& tag);
QString listColumnTag(const QTreeWidget* list, int column);

// Sorts the list by the column: a click on the column it is sorted by turns the
// order round, another column starts ascending. The old column's header loses its
// mark, the new one gets " ^" (ascending) or " v" (descending).
void SortListByColumn(QTreeWidget* list, int column);
// The column the list is sorted by (-1 when none) and whether ascending.
int listSortColumn(const QTreeWidget* list);
bool listSortAscending(const QTreeWidget* list);

// Makes a click on a column header sort the list.
void sortListOnHeaderClick(QTreeWidget* list);

// Each column as wide as the widest of its header and its cells.
void FitListViewColumns(QTreeWidget* list);
