#pragma once
// The brand font and the application's look.
#include <QString>
#include <QStringList>

class QObject;
class QWidget;

// Registers the brand font found in the application folder and makes its family the
// brand family. Without it the family is Calibri, or Carlito where Calibri is not
// installed. Returns the family in force.
QString LoadBrandFont(const QString& appFolder);

// Takes back the regular and light brand fonts of the application folder. The curve
// font that LoadBrandFont registers stays registered until the process ends.
void UnloadBrandFonts(const QString& appFolder);

// The family chosen by LoadBrandFont (the fallback when it has not run).
QString brandFontFamily();
// True when the family came from the brand font file.
bool brandFontFromFile();

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
