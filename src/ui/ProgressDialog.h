#pragma once
// A progress window with a cancel button for long work. It is made when the work first
// reports, shows itself once the work lasts a moment, and keeps the windows painted
// and answering while the work runs. A cancel makes the next report ask the work to stop.
#include "app/Progress.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QString>

class QProgressDialog;
class QWidget;

class ProgressDialog {
public:
    ProgressDialog(QWidget* parent, const QString& label);
    ~ProgressDialog();
    ProgressDialog(const ProgressDialog&) = delete;
    ProgressDialog& operator=(const ProgressDialog&) = delete;

    // The function to hand to the work; it must not outlive this object.
    ProgressFn fn();
    bool cancelled() const { return cancelled_; }
    // The window, once the work has reported; null before.
    QProgressDialog* dialog() const { return dialog_; }

private:
    bool report(qint64 done, qint64 total);

    QPointer<QWidget> parent_;
    QString label_;
    QPointer<QProgressDialog> dialog_;
    QElapsedTimer sinceEvents_;
    bool cancelled_ = false;
};
