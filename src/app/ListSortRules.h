#pragma once
// How the cells of a report-style list compare when the user sorts it by a column,
// and how the column header shows the order.
#include <QDateTime>
#include <QString>
#include <optional>

class Money;

// A column's tag says what it holds: "d" dates (dd/mm/yyyy, a time may follow),
// "n" numbers (amounts such as "£1,234.50", "-£12.50", percentages such as "-12.5%").
enum class ListColumnKind { Text, Date, Number };
ListColumnKind listColumnKind(const QString& tag);

std::optional<QDateTime> listCellDate(const QString& text);
std::optional<Money> listCellNumber(const QString& text);

// Negative, zero or positive as a sorts before, with or after b in ascending order.
// Cells that are not a date or a number in such a column come first, by their text.
int compareListCells(const QString& a, const QString& b, ListColumnKind kind);

// Headers carry " ^" (ascending) or " v" (descending) after their text.
QString headerWithoutSortMark(const QString& header);
QString headerWithSortMark(const QString& header, bool ascending);
