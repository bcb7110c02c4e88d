#pragma once
#include "app/DialogService.h"

class QWidget;

// The dialog service of the desktop program: real message boxes and file dialogs.
class QtDialogService : public DialogService {
public:
    void message(const QString& text, MessageIcon icon, const QString& title = QString()) override;
    Answer question(const QString& text, const QString& title = QString()) override;
    QString openFile(const QString& title, const QString& filter, const QString& folder) override;
    QString saveFile(const QString& title, const QString& filter, const QString& suggested) override;
};
