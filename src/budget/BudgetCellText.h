#pragma once
// What may be typed into a figure of the budget editor, and how the text of a cell
// becomes an amount when the cell is left.
#include "app/Money.h"

#include <QChar>
#include <QString>

enum class BudgetCellKey {
    Accept,      // the character is typed
    Drop,        // the character is ignored
    ToggleMinus, // nothing is typed; the text gains or loses its leading minus
};

// The answer to one typed character. `remaining` is the cell's text as it will stand
// around the character (without any selection the character replaces): digits pass, one
// "." passes, "-" toggles the sign, control characters (editing keys) pass, all else drops.
BudgetCellKey budgetCellKey(const QString& remaining, QChar key);

// "12.5" gives "-12.5" and "-12.5" gives "12.5".
QString toggleLeadingMinus(const QString& text);

// Looks like an amount: an optional sign, an optional pound sign, digits with thousands
// commas, at most one decimal point; blanks around.
bool isNumericCellText(const QString& text);

// The amount a cell holds when it is left. Text that does not look like an amount is 0.
// Text that does but is no plain number loses its commas and pound signs and then, one
// character at a time from the right, whatever keeps it from being read; used up, it is 0.
// So "£1,234.50" is 1234.5 and "£1,234" is 1234.
Money budgetCellValue(const QString& text);

// The text a cell starts an edit with: the plain amount with two decimals ("-1234.50").
QString budgetCellEditText(Money value);
