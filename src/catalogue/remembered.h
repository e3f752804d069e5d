#pragma once

#include <QString>

/// What the program remembers besides the tables of the catalogue: choices of check boxes, sizes of windows and the
/// like, each under a name such as `intake.formats`. The open catalogue holds them. A value that was never stored, or
/// cannot be read, counts as not chosen. A value that cannot be stored is forgotten when the window closes.
namespace remembered {

QString text(const QString& name, const QString& otherwise = {});
bool flag(const QString& name);  ///< False where nothing is stored.

/// An empty text and false remove what was stored.
void setText(const QString& name, const QString& value);
void setFlag(const QString& name, bool value);

}  // namespace remembered
