#pragma once
#include "app/DialogService.h"

class QWidget;

// The dialog service of the desktop program: real message boxes, file and print dialogs.
class QtDialogService : public DialogService {
public:
    void message(const QString& text, MessageIcon icon, const QString& title = QString(),
                 const QString& details = QString()) override;
    Answer question(const QString& text, const QString& title = QString()) override;
    QString openFile(const QString& title, const QString& filter, const QString& folder) override;
    QString saveFile(const QString& title, const QString& filter, const QString& suggested) override;
    // The system's print dialog; printing to a PDF file is one of its choices.
    PrintChoice printDialog(const QString& documentName) override;
};
