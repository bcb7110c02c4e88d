#pragma once
// The text of the hover balloons: a bold title line over the hint.
#include <QString>

// A caption as a title: accelerator marks removed, "&&" shown as one "&".
QString balloonTitle(const QString& caption);

// Rich text for a tool tip. With no title only the hint shows; with no hint, nothing.
QString balloonToolTip(const QString& title, const QString& hint);

// How long a balloon waits before it shows and how long it stays, in milliseconds.
inline constexpr int BalloonDelayMs = 500;
inline constexpr int BalloonVisibleMs = 5000;
