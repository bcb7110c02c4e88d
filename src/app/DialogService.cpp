#include "app/DialogService.h"

#include <cstdio>

void RecordingDialogService::message(const QString& text, MessageIcon icon, const QString&,
                                     const QString& details) {
    messages.push_back({text, icon, details});
    if (echoToStderr)
        std::fprintf(stderr, "%s\n",
                     qPrintable(details.isEmpty() ? text : text + QStringLiteral("\n\n") + details));
}

Answer RecordingDialogService::question(const QString& text, const QString&) {
    messages.push_back({text, MessageIcon::Question, QString()});
    if (answers.empty())
        return Answer::No;
    const Answer a = answers.front();
    answers.pop_front();
    return a;
}

QString RecordingDialogService::openFile(const QString&, const QString&, const QString&) {
    if (files.empty())
        return QString();
    QString f = files.front();
    files.pop_front();
    return f;
}

QString RecordingDialogService::saveFile(const QString& title, const QString& filter, const QString&) {
    return openFile(title, filter, QString());
}

PrintChoice RecordingDialogService::printDialog(const QString& documentName) {
    printDocuments << documentName;
    if (printChoices.empty())
        return {};
    PrintChoice choice = printChoices.front();
    printChoices.pop_front();
    return choice;
}

QStringList RecordingDialogService::texts() const {
    QStringList out;
    for (const auto& m : messages)
        out << m.text;
    return out;
}
