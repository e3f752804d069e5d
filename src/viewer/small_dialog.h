#pragma once

#include "platform/desktop/surface.h"

#include <QLabel>
#include <QPushButton>

/// A small dialog inside the main window, which can be dragged with the mouse. Hidden until it is opened. All lengths
/// are twips.
class SmallDialog : public Surface {
    Q_OBJECT

  public:
    SmallDialog(QWidget* form, const QString& name, int width, int height);

  protected:
    void openAt(int left, int top);
    QLabel* addLabel(const QString& name, const QString& text, int left, int top, int width);
    QPushButton* addButton(const QString& name, const QString& caption, int left, int top, int width);
    /// The small button in the upper right corner that closes the dialog.
    void addCloseButton(const QString& name);
};
