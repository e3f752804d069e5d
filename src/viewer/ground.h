#pragma once

#include <QColor>
#include <QString>

class QWidget;

/// The colour of the window's ground, and texts that are readable on it.

/// Gives a part of the window its ground, and texts that are seen on it.
void setGround(QWidget* part, const QColor& ground);

/// Like `setGround`, but only for the text: the part keeps its own ground.
void setInkFor(QWidget* part, const QColor& ground);

/// Style sheet of the window for that ground.
QString barStyle(const QColor& ground);
