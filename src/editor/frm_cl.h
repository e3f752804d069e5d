#pragma once

#include "editor/album_chooser.h"
#include "editor/button_picture.h"
#include "editor/crop_tool.h"
#include "editor/saving.h"
#include "editor/transforms.h"
#include "windows/windows.h"

#include <QMainWindow>

/// The picture editor: opens one picture from a file or an album, works on it, and saves it. Nothing reaches the source
/// before it is saved. Of the catalogue it changes the undo steps and its two view settings; saving tells its own.
class frmCl : public QMainWindow {
    Q_OBJECT

  public:
    explicit frmCl(Windows& windows);
    ~frmCl() override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void connectCommands();
    void connectWindows();
    void load();
    bool runKey(const QKeyEvent& event);
    QString commandOf(const QKeyEvent& event) const;
    bool mayLeave();

    Windows& windows_;
    EditorState state_;
    QWidget* form_;
    Commands* commands_;
    EditorView* view_;
    ViewSettings* settings_;
    OperationDialog* dialog_;
    UndoHistory* history_;
    Loading* loading_;
    Transforms* transforms_;
    AlbumChooser* chooser_;
    ButtonPicture* button_;
    CropTool* crop_;
    Saving* saving_;
};
