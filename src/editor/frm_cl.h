#pragma once

#include "editor/button_picture.h"
#include "editor/going_on.h"
#include "editor/opening.h"
#include "editor/saving.h"
#include "editor/taking_back.h"
#include "editor/view_settings.h"
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
    void makeForm();
    void makeChapters();
    void connectDocument();
    void connectChapters();
    void connectWindows();
    void load();
    void showCaption();
    void showOpened();
    void showNothingOpen();
    bool runKey(const QKeyEvent& event);
    QString commandOf(const QKeyEvent& event) const;
    bool mayLeave();

    Windows& windows_;
    Document document_;
    QWidget* form_ = nullptr;  ///< All that lies below the menu bar.
    Commands* commands_ = nullptr;
    EditorView* view_ = nullptr;
    ViewSettings* settings_ = nullptr;
    OperationDialog* dialog_ = nullptr;
    AlbumChooser* chooser_ = nullptr;
    ButtonPicture* button_ = nullptr;
    Saving* saving_ = nullptr;
    GoingOn* goingOn_ = nullptr;
};
