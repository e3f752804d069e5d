#pragma once

#include "platform/desktop/surface.h"

#include <QLabel>
#include <QPushButton>

/// The parts of a small dialog that lies on the form and can be dragged about. All lengths are twips.

Surface* makeSmallDialog(QWidget* form, const QString& name, int width, int height);
QLabel* makeDialogLabel(Surface* dialog, const QString& name, const QString& text, int left, int top, int width);
QPushButton* makeDialogButton(Surface* dialog, const QString& name, const QString& caption, int left, int top,
                              int width);
/// The small button in the upper right corner that closes the dialog.
QPushButton* makeCloseButton(Surface* dialog, const QString& name);
