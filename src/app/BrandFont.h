#pragma once
// The brand font: registered from the application folder when it is there, else a
// fallback family. Windows, charts, pages and images all take their type from here.
#include <QString>

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
