#pragma once
// The brand font and the application's look.
#include "app/BrandFont.h"

#include <QString>
#include <QStringList>

class QObject;
class QWidget;

// The class names of an object, most derived first.
QStringList classChain(const QObject* object);

bool CanTakeFont(const QWidget* control);

// Gives a form and its controls the brand family. Strips, charts and the other
// controls that draw their own text keep theirs, and so do the controls inside them.
// With labelsOnly just labels, text boxes and frames take it (the note box keeps its own).
void ApplyBrandFont(QWidget* form, bool labelsOnly = false);

// The program's look for every window: style, palette, font, and the brand colours
// of buttons and frames.
void ApplyApplicationLook();
