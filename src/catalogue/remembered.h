#pragma once

#include <QString>

/// What the program remembers beyond the album's tables: choices of check boxes, sizes of windows and the like, each
/// under a name such as `intake.formats`. It stands in the open catalogue and goes with it. What was never stored, or
/// cannot be read, is as if the person had chosen nothing; what cannot be stored is forgotten with the window.
namespace remembered {

QString text(const QString& name, const QString& otherwise = {});
bool flag(const QString& name);  ///< False where nothing is stored.

/// An empty text and false remove what was stored.
void setText(const QString& name, const QString& value);
void setFlag(const QString& name, bool value);

}  // namespace remembered
