#pragma once
// The program's icons from its resources.
#include <QIcon>
#include <QString>

class QWidget;

// The icon of a resource name, all sizes; a null icon for an unknown name.
QIcon resourceIcon(const QString& resourceName);

// Gives a window the icon of the resource name ("AAB" on every form). An unknown name
// leaves the window's icon as it was.
void SetIcon(QWidget* window, const QString& resourceName = QStringLiteral("AAB"));
