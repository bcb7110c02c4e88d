#pragma once
// Every message box and common dialog goes through this interface, so that the
// GUI shows real dialogs while tests and the command-line tool record and answer them.
#include <QPageSize>
#include <QString>
#include <QStringList>
#include <deque>
#include <vector>

enum class MessageIcon { None, Information, Warning, Critical, Question };
enum class Answer { Yes, No };

// What the user chose in the print dialog: nothing, a printer, or a PDF file.
struct PrintChoice {
    enum class Target { Cancelled, Printer, PdfFile };
    Target target = Target::Cancelled;
    QString printerName; // for a printer
    QString pdfPath;     // for a PDF file
    int copies = 1;
    QPageSize pageSize{QPageSize::A4};

    bool cancelled() const { return target == Target::Cancelled; }
};

class DialogService {
public:
    virtual ~DialogService() = default;
    // `details` goes into the box's folded details part, not into its text.
    virtual void message(const QString& text, MessageIcon icon, const QString& title = QString(),
                         const QString& details = QString()) = 0;
    virtual Answer question(const QString& text, const QString& title = QString()) = 0;
    // Returns the chosen file, or "" when the user cancels.
    virtual QString openFile(const QString& title, const QString& filter, const QString& folder) = 0;
    virtual QString saveFile(const QString& title, const QString& filter, const QString& suggested) = 0;
    // The print dialog, for a document of that name.
    virtual PrintChoice printDialog(const QString& documentName) = 0;

    void information(const QString& text) { message(text, MessageIcon::Information); }
    void critical(const QString& text) { message(text, MessageIcon::Critical); }
};

// Records every message and answers from queues: for tests and the command line.
class RecordingDialogService : public DialogService {
public:
    struct Shown {
        QString text;
        MessageIcon icon;
        QString details;
    };

    void message(const QString& text, MessageIcon icon, const QString& title = QString(),
                 const QString& details = QString()) override;
    Answer question(const QString& text, const QString& title = QString()) override;
    QString openFile(const QString& title, const QString& filter, const QString& folder) override;
    QString saveFile(const QString& title, const QString& filter, const QString& suggested) override;
    PrintChoice printDialog(const QString& documentName) override;

    std::vector<Shown> messages;          // every message and question, in order
    std::deque<Answer> answers;           // answers to questions; No when empty
    std::deque<QString> files;            // answers to file dialogs; "" (cancel) when empty
    std::deque<PrintChoice> printChoices; // answers to print dialogs; cancel when empty
    QStringList printDocuments;           // the documents the print dialog was shown for
    // When set, each message is also written to stderr (the command-line tool).
    bool echoToStderr = false;

    QStringList texts() const;
    QString lastText() const { return messages.empty() ? QString() : messages.back().text; }
};
