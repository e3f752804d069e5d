#pragma once

#include "soak/report.h"

#include <QString>
#include <functional>

/// In place of a scene: nothing happens for a moment.
inline const QString restScene = QStringLiteral("rest");

/// Starts the program as its own main function does, on the catalogue of a folder, and lets scenes be played in it
/// until `next` has no more of them to offer. `next` is asked from the event loop, with nothing else under way. Returns
/// 0, or 1 when the program refused to start or a scene could not be played; that is reported.
int workProgram(const QString& folder, quint64 seed, const Report& report, const std::function<QString()>& next);
