#pragma once
// The print dialog of the report forms.
#include <functional>

class QPrintDialog;
class QPrinter;
class QWidget;

// Runs the dialog and answers whether it was accepted; tests put their own in.
using PrintDialogRunner = std::function<bool(QPrintDialog&)>;

// Asks for the printer and the orientation (no page range, no selection). Printing to
// a PDF file is offered beside the printers, so a machine without a printer can still
// print. On acceptance the printer prints landscape when that was chosen and portrait
// otherwise, and the answer is true; a cancel answers false.
bool ChoosePrinter(QPrinter& printer, QWidget* parent = nullptr, const PrintDialogRunner& run = {});
