#include "app/DialogService.h"

#include <cstdio>

void RecordingDialogService::message(const QString& text, MessageIcon icon, const QString&) {
    messages.push_back({text, icon});
    if (echoToStderr)
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

Answer RecordingDialogService::question(const QString& text, const QString&) {
    messages.push_back({text, MessageIcon::Question});
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

QStringList RecordingDialogService::texts() const {
    QStringList out;
    for (const auto& m : messages)
        out << m.text;
    return out;
}
