#include "ui/ProgressDialog.h"

#include <QCoreApplication>
#include <QProgressDialog>
#include <algorithm>

namespace {

// The bar counts in thousandths, since the work's counts may pass the range of an int.
constexpr int Steps = 1000;
// Short work never shows the window.
constexpr int ShowAfterMs = 400;
// How often the windows get their events while the work runs.
constexpr qint64 EventsEveryMs = 40;

} // namespace

ProgressDialog::ProgressDialog(QWidget* parent, const QString& label)
    : parent_(parent)
    , label_(label) {}

ProgressDialog::~ProgressDialog() {
    delete dialog_.data();
}

ProgressFn ProgressDialog::fn() {
    return [this](qint64 done, qint64 total) { return report(done, total); };
}

bool ProgressDialog::report(qint64 done, qint64 total) {
    if (cancelled_)
        return false;
    bool first = false;
    if (!dialog_) {
        // Made here rather than up front: its own timer would otherwise show an empty
        // window over message boxes that come before any work has reported.
        dialog_ = new QProgressDialog(label_, QStringLiteral("Cancel"), 0, Steps, parent_);
        dialog_->setObjectName(QStringLiteral("progressDialog"));
        dialog_->setWindowTitle(QStringLiteral("Vantrel"));
        dialog_->setWindowModality(Qt::WindowModal);
        dialog_->setMinimumDuration(ShowAfterMs);
        dialog_->setMinimumWidth(360);
        sinceEvents_.start();
        first = true;
    }
    if (total > 0) {
        if (dialog_->maximum() != Steps)
            dialog_->setRange(0, Steps);
        dialog_->setValue(int(std::clamp<qint64>(done * Steps / total, 0, Steps)));
    } else {
        dialog_->setRange(0, 0); // a busy bar when the size of the work is not known
    }
    if (first || sinceEvents_.elapsed() >= EventsEveryMs) {
        QCoreApplication::processEvents();
        sinceEvents_.restart();
    }
    if (dialog_ && dialog_->wasCanceled())
        cancelled_ = true;
    return !cancelled_;
}
