#pragma once

#include "shell/windows.h"
#include "viewer/album_opening.h"
#include "viewer/drop_list.h"
#include "viewer/paging.h"
#include "viewer/picture_view.h"
#include "viewer/slide_show.h"

#include <QMainWindow>
#include <QTimer>
#include <memory>

/// The main window: album pages, filters, selection buttons, full view and slide show. It is loaded afresh each time it
/// comes back. Opens the catalogue; writes only settings (`tcsz`), and fills `pmtp` once when that is empty.
class frmTp : public QMainWindow {
    Q_OBJECT

  public:
    explicit frmTp(Windows& windows);
    ~frmTp() override;

    /// Whether the help window and the colour window stand beside this one: their menu items offer to close them then.
    void windowsBeside(bool help, bool colours);

    /// Wears the active colour scheme.
    void applyColours();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildMenus();
    QAction* addMenuAction(const QString& name, const QString& caption, const std::function<void()>& click);
    void connectControls();

    void load();
    /// The table of the last album. Without a collection title the window keeps its caption.
    QString readSettings();
    void fillAlbumMenu();
    void fillScreenPictures();

    void resizeForm();
    void clickScreen();
    void storeFlag(int index);
    void fillScreen(bool on);
    void tick();
    void toolClicked(const QString& key);
    void listAlbums();
    void listClicked(int index);
    void toggleColours();
    void offerColours(bool on);
    void toggleHelp();
    bool isHelpOffered() const;
    void offerHelp(bool on);
    void goTo(WindowKind window);
    /// A small dialog takes the focus as it comes. When it goes, no box of the tool bar gets it, where keys would
    /// write.
    void moveFocusWith(QWidget* dialog, QEvent::Type event);
    bool isInDialog(const QWidget* control) const;
    void scrollBy(int pixels);
    void escape();
    bool pageByKey(int key);
    bool workByKey(int key);
    bool openListByKey(const QKeyEvent& event);
    void enter();
    void space();
    void moveFocus(int step);
    void chooseColumns(int columns);
    void listColumns();
    void listNumberConditions();

    Windows& windows_;
    ViewerState state_;
    QWidget* form_;
    QAction *mnuCs = nullptr, *mnuBz = nullptr;
    AlbumMenu menu_{};
    std::array<LineBox*, 4> frame_{};
    DropList* lstLs;
    QTimer* tmr1;

    std::unique_ptr<ToolStrip> strip_;
    std::unique_ptr<StatusLine> status_;
    std::unique_ptr<ScreenPanel> screen_;
    std::unique_ptr<Page> page_;
    std::unique_ptr<FilterControls> filters_;
    std::unique_ptr<Paging> paging_;
    std::unique_ptr<ButtonPanel> buttons_;
    std::unique_ptr<AlbumOpening> albums_;
    std::unique_ptr<PictureView> view_;
    std::unique_ptr<SlideShow> show_;
};
