#pragma once

#include <QString>

/// The sentences of the hint box.

/// The hint for a code such as "w1" or "c2"; empty for a code that has none.
QString hintFor(const QString& code);

/// Width in twips of a text in a hint box: 90 for each half-character cell, and 60.
int hintWidth(const QString& text);
