#include "ui/FormFrame.h"

#include "ui/uctFooter.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

void layOutFormPage(QWidget* form, uctHeader* header, QLayout* body, uctFooter* footer) {
    auto* page = new QVBoxLayout(form);
    page->setContentsMargins(0, 0, 0, 0);
    page->setSpacing(0);
    page->addWidget(header);
    page->addLayout(body, 1);
    page->addWidget(footer);
}

void setUpFormStrips(uctHeader* header, uctHeader::Type type, const QString& detail, uctFooter* footer,
                     QLabel* hintLabel, const QString& exitTip, const std::function<void()>& onExit,
                     const std::function<void()>& onHelp) {
    header->setHeaderType(type);
    header->setTitle(QStringLiteral("Vantrel"));
    header->setDetail(detail);
    header->Refresh();
    footer->setHintLabel(hintLabel);
    footer->setExitButtonText(QStringLiteral("Back"));
    footer->setExitToolTipText(exitTip);
    footer->setExitButtonVisible(false);
    footer->setHelpVisible(false);
    QObject::connect(footer, &uctFooter::ButtonClicked, footer, [onExit](int value) {
        if (value == uctFooter::ExitButton)
            onExit();
    });
    QObject::connect(footer, &uctFooter::HelpClicked, footer, [onHelp] { onHelp(); });
}

QPushButton* reportButton(const QString& name, const char* caption, QWidget* parent) {
    auto* button = new QPushButton(QString::fromUtf8(caption), parent);
    button->setObjectName(name);
    button->setMinimumHeight(40);
    button->setCursor(Qt::PointingHandCursor);
    return button;
}

QLabel* fieldLabel(const QString& name, const QString& caption, QWidget* parent) {
    auto* label = new QLabel(caption, parent);
    label->setObjectName(name);
    return label;
}
