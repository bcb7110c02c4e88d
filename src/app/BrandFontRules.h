#pragma once
// Which controls take the brand font, and how, told by their class names. A control
// is judged by the first class of its inheritance chain (most derived first) that
// the rules know.
#include <QString>
#include <QStringList>

namespace BrandFontFile {
inline const QString Curve = QStringLiteral("ZandelCurve_Rg.ttf");
inline const QString Regular = QStringLiteral("ZandelFont_Rg.ttf");
inline const QString Light = QStringLiteral("ZandelFont_Lt.ttf");
} // namespace BrandFontFile

// The families used when the brand font cannot be loaded, best first.
QStringList brandFallbackFamilies();

// Strips, charts, pickers, progress and scroll bars draw their own text and keep
// their fonts; every other control takes the brand family. classChain: the class
// names of the control, most derived first.
bool canTakeFont(const QStringList& classChain);

// In the labels-only mode just labels, text boxes and frames take the font; the note
// box keeps its own.
bool takesFontInLabelsMode(const QStringList& classChain, const QString& objectName);
