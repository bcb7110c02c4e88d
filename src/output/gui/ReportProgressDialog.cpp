#include "output/gui/ReportProgressDialog.h"

#include <QCoreApplication>
#include <QProgressDialog>

namespace {
constexpr int ShowAfterMs = 500;
}

ReportProgressDialog::ReportProgressDialog(const QString& label, QWidget* parent)
    : dialog_(std::make_unique<QProgressDialog>(label, QStringLiteral("Cancel"), 0, 100, parent)) {
    dialog_->setWindowTitle(QStringLiteral("Vantrel"));
    dialog_->setWindowModality(Qt::WindowModal);
    dialog_->setMinimumDuration(ShowAfterMs);
    dialog_->setAutoClose(false);
    dialog_->setAutoReset(false);
    dialog_->setValue(0);
}

ReportProgressDialog::~ReportProgressDialog() {
    dialog_->close();
}

ProgressFn ReportProgressDialog::progressFn() {
    return [this](qint64 done, qint64 total) {
        if (total > 0) {
            dialog_->setMaximum(100);
            dialog_->setValue(int(std::min<qint64>(100, done * 100 / total)));
        }
        QCoreApplication::processEvents();
        cancelled_ = cancelled_ || dialog_->wasCanceled();
        return !cancelled_;
    };
}
