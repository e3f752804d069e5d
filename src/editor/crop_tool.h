#pragma once

#include "editor/button_picture.h"

/// The rubber band on the working picture: the free selection of a crop, and the constrained one of a button picture.
class CropTool : public QObject {
    Q_OBJECT

  public:
    CropTool(EditorState& state, Commands& commands, EditorView& view, OperationDialog& dialog, ButtonPicture& button);

    /// Opens the crop dialog; the selection is made with the mouse.
    void mnuCjClick();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void mouseDown(int x, int y);
    void mouseMove(int x, int y);
    void mouseUp(int x, int y);
    void moveShape(QSize size);
    SelectionShape shape() const;
    QSize sizeTo(QPoint pointer) const;
    QPoint inView(QPoint pointer) const;
    void placeReadout(QPoint pointer);
    void scrollAlong(QPoint pointer);
    void letThroughHint();
    bool isOnHint(QPoint global) const;
    bool mayShow() const;
    bool readoutShows() const;

    EditorState& state_;
    Commands& commands_;
    EditorView& view_;
    OperationDialog& dialog_;
    ButtonPicture& button_;
};
