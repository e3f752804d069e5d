#pragma once

#include "catalogue/runs/picture_storing.h"

#include <QStringList>
#include <optional>

class QWidget;

/// Asks what becomes of those of the files that can become JPEG; without any nothing is asked. Nothing: do not take
/// them in. The answer holds for one run.
std::optional<BmpFiles> askAboutBmp(QWidget* parent, const QStringList& paths);
