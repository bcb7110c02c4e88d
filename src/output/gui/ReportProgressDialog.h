#pragma once
// The progress of a long report with a button to stop it. The dialog shows only when the
// work takes a while; until then the hourglass says enough.
#include "app/Progress.h"

#include <QString>
#include <memory>

class QProgressDialog;
class QWidget;

class ReportProgressDialog {
public:
    ReportProgressDialog(const QString& label, QWidget* parent);
    ~ReportProgressDialog();
    ReportProgressDialog(const ReportProgressDialog&) = delete;
    ReportProgressDialog& operator=(const ReportProgressDialog&) = delete;

    // Moves the bar and keeps the windows alive; false once the user has asked to stop.
    ProgressFn progressFn();
    bool wasCancelled() const { return cancelled_; }
    QProgressDialog* dialog() const { return dialog_.get(); }

private:
    std::unique_ptr<QProgressDialog> dialog_;
    bool cancelled_ = false;
};
