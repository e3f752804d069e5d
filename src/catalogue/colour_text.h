#pragma once

#include <QColor>
#include <QString>

/// The colours of a scheme (`tcys`) are texts of a number with blue, green and red from the high byte down.

/// Reads a colour, decimal or `&H00…&`. Throws `Error` for a number that is no colour.
QColor colourFromText(const QString& text);

/// "&H00", the hexadecimal digits of the number without padding, "&": blue is `&H00FF0000&`, red `&H00FF&`.
QString colourText(const QColor& colour);
