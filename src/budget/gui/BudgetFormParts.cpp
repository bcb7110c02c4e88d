#include "budget/gui/BudgetFormParts.h"

#include "app/AppContext.h"
#include "app/ErrorLog.h"
#include "app/cColours.h"

#include <QDateEdit>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>

void layOutForm(QDialog* form, QWidget* header, QLayout* body, QWidget* footer, int bodyWidth) {
    auto* content = new QWidget(form);
    content->setObjectName(QStringLiteral("content"));
    body->setContentsMargins(0, 0, 0, 0);
    content->setLayout(body);
    content->setFixedWidth(bodyWidth);

    auto* centred = new QHBoxLayout;
    centred->setContentsMargins(28, 20, 28, 18);
    centred->addStretch(1);
    centred->addWidget(content);
    centred->addStretch(1);

    auto* page = new QVBoxLayout(form);
    page->setContentsMargins(0, 0, 0, 0);
    page->setSpacing(0);
    page->addWidget(header);
    page->addLayout(centred, 1);
    page->addWidget(footer);
}

void setTextColour(QLabel* label, const QColor& colour) {
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, colour);
    label->setPalette(palette);
}

void makeHeading(QLabel* label) {
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    setTextColour(label, qColor(cColours().Indigo(6)));
}

void setUpDatePicker(QDateEdit* picker) {
    picker->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    picker->setCalendarPopup(true);
    picker->setMinimumWidth(128);
}

void selectAllLater(QLineEdit* box) {
    QTimer::singleShot(0, box, [guard = QPointer<QLineEdit>(box)] {
        if (guard)
            guard->selectAll();
    });
}

void logBudgetFailure(const AppContext& ctx, const QString& source, const DbError& error) {
    if (ctx.paths)
        LogError(*ctx.paths, source, error.code(), error.message());
}
