#pragma once
// Pieces the budget creation forms share: their page layout, the look of their labels and
// date pickers, and how they record a store failure.
#include <QString>

class DbError;
class QColor;
class QDateEdit;
class QDialog;
class QLabel;
class QLayout;
class QLineEdit;
class QWidget;
struct AppContext;

// Header on top, footer at the foot, and the body between them, kept at `bodyWidth` and
// centred when the form grows wider.
void layOutForm(QDialog* form, QWidget* header, QLayout* body, QWidget* footer, int bodyWidth);

void setTextColour(QLabel* label, const QColor& colour);
// A column or section heading: bold, in the brand's dark indigo.
void makeHeading(QLabel* label);
// Day-month-year entry with a calendar to pick from.
void setUpDatePicker(QDateEdit* picker);
// Selects the whole text once the focus has settled (a click would otherwise clear it).
void selectAllLater(QLineEdit* box);

// Writes a store failure to the error log (when the folders are known).
void logBudgetFailure(const AppContext& ctx, const QString& source, const DbError& error);
