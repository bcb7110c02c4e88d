#pragma once
// What every form shares around its own controls: the header strip on top, the footer
// strip at the foot, and the footer's hint line.
#include "ui/uctHeader.h"

#include <QString>
#include <functional>

class QLabel;
class QLayout;
class QPushButton;
class QWidget;
class uctFooter;

// A button's caption and the hint it shows under the pointer.
struct ButtonText {
    const char* caption;
    const char* hint;
};

// A big button of a menu form, named for the tests and the hover hints.
QPushButton* reportButton(const QString& name, const char* caption, QWidget* parent);
// A named label.
QLabel* fieldLabel(const QString& name, const QString& caption, QWidget* parent);

// Lays the form out as header, body (taking the spare height), footer.
void layOutFormPage(QWidget* form, uctHeader* header, QLayout* body, uctFooter* footer);

// Sets up the strips of a form whose own Back and Help buttons stand in the window: the
// header's title "Vantrel" and detail, the footer's hint line and exit tip, and the
// strip's buttons (hidden, since they would repeat the form's) routed to the form's handlers.
void setUpFormStrips(uctHeader* header, uctHeader::Type type, const QString& detail, uctFooter* footer,
                     QLabel* hintLabel, const QString& exitTip, const std::function<void()>& onExit,
                     const std::function<void()>& onHelp);
