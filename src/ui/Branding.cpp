#include "ui/Branding.h"

#include "app/BrandFontRules.h"
#include "app/cColours.h"

#include <QApplication>
#include <QMetaObject>
#include <QPalette>
#include <QStyleFactory>
#include <QWidget>

namespace {

QString hex(ColourNumber colour) {
    return qColor(colour).name();
}

QString applicationStyleSheet() {
    const cColours c;
    return QStringLiteral(
               "QPushButton { background-color: %1; color: white; border: none; border-radius: 4px;"
               " padding: 7px 18px; min-height: 20px; }"
               "QPushButton:hover { background-color: %2; }"
               "QPushButton:pressed { background-color: %3; }"
               "QPushButton:focus { outline: none; border: 2px solid %4; padding: 5px 16px; }"
               "QPushButton:disabled { background-color: %5; color: %6; }"
               "QPushButton[secondary=\"true\"] { background-color: white; color: %1; border: 1px solid %6; }"
               "QPushButton[secondary=\"true\"]:hover { background-color: %5; }"
               "QPushButton[secondary=\"true\"]:pressed { background-color: %7; }"
               "QGroupBox { background-color: white; border: 1px solid %7; border-radius: 6px;"
               " margin-top: 14px; padding: 14px 12px 12px 12px; font-weight: 600; }"
               "QGroupBox::title { subcontrol-origin: margin; subcontrol-position: top left; left: 10px;"
               " padding: 0 6px; color: %3; background-color: transparent; }"
               "QGroupBox:disabled { border-color: %8; }"
               "QGroupBox::title:disabled { color: %9; }"
               "QToolTip { background-color: white; color: %10; border: 1px solid %2; padding: 4px; }")
        .arg(hex(c.Indigo(5)), hex(c.Indigo(4)), hex(c.Indigo(6)), hex(c.Turquoise(4)), hex(c.Indigo(1)),
             hex(c.Indigo(3)), hex(c.Indigo(2)), hex(c.Grey(3)), hex(c.Grey(4)))
        .arg(hex(c.Grey(6)));
}

} // namespace

QStringList classChain(const QObject* object) {
    QStringList chain;
    for (const QMetaObject* meta = object ? object->metaObject() : nullptr; meta; meta = meta->superClass())
        chain << QString::fromLatin1(meta->className());
    return chain;
}

bool CanTakeFont(const QWidget* control) {
    return control && canTakeFont(classChain(control));
}

namespace {

void giveFamily(QWidget* control, const QString& family) {
    QFont font = control->font();
    font.setFamily(family);
    control->setFont(font);
}

void walk(QWidget* parent, const QString& family, bool labelsOnly) {
    for (QObject* child : parent->children()) {
        auto* control = qobject_cast<QWidget*>(child);
        if (!control || control->isWindow())
            continue;
        const QStringList chain = classChain(control);
        if (!canTakeFont(chain))
            continue; // it looks after its own text, inside too
        if (!labelsOnly || takesFontInLabelsMode(chain, control->objectName()))
            giveFamily(control, family);
        walk(control, family, labelsOnly);
    }
}

} // namespace

void ApplyBrandFont(QWidget* form, bool labelsOnly) {
    if (!CanTakeFont(form))
        return;
    const QString family = brandFontFamily();
    if (!labelsOnly)
        giveFamily(form, family);
    walk(form, family, labelsOnly);
}

void ApplyApplicationLook() {
    auto* app = qobject_cast<QApplication*>(QCoreApplication::instance());
    if (!app)
        return;
    if (QStyle* fusion = QStyleFactory::create(QStringLiteral("Fusion")))
        QApplication::setStyle(fusion);
    const cColours c;
    QPalette palette = QApplication::style()->standardPalette();
    palette.setColor(QPalette::Window, qColor(c.Grey(1)));
    palette.setColor(QPalette::WindowText, qColor(c.Grey(6)));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, qColor(c.Indigo(1)));
    palette.setColor(QPalette::Text, qColor(c.Grey(6)));
    palette.setColor(QPalette::Button, qColor(c.Grey(2)));
    palette.setColor(QPalette::ButtonText, qColor(c.Grey(6)));
    palette.setColor(QPalette::Highlight, qColor(c.Indigo(5)));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, qColor(c.Indigo(5)));
    palette.setColor(QPalette::ToolTipBase, Qt::white);
    palette.setColor(QPalette::ToolTipText, qColor(c.Grey(6)));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, qColor(c.Grey(4)));
    palette.setColor(QPalette::Disabled, QPalette::Text, qColor(c.Grey(4)));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, qColor(c.Grey(4)));
    QApplication::setPalette(palette);
    QFont font(brandFontFamily(), 10);
    QApplication::setFont(font);
    app->setStyleSheet(applicationStyleSheet());
}
