#pragma once

#include "catalogue/colour_scheme.h"
#include "viewer/album_menu.h"
#include "viewer/button_panel.h"
#include "viewer/date_dialog.h"
#include "viewer/drop_list.h"
#include "viewer/filter_controls.h"
#include "viewer/paging.h"
#include "viewer/picture_view.h"
#include "viewer/show_dialog.h"
#include "viewer/slide_show.h"
#include "windows/windows.h"

#include <QMainWindow>
#include <QTimer>
#include <memory>

/// The main window: album pages, filters, selection buttons, full view and slide show. It is made anew each time it
/// comes back. Opens the catalogue; writes only settings (`tcsz`), and fills `pmtp` when that is empty.
class frmTp : public QMainWindow {
    Q_OBJECT

  public:
    explicit frmTp(Windows& windows);
    ~frmTp() override;

    /// Notes whether the help window and the colour window are open: then their menu items offer to close them.
    void windowsBeside(bool help, bool colours);

    /// Wears the active colour scheme.
    void applyColours();
    /// Wears these colours. In place of those that are invalid: the usual light ground, black frames, no fill.
    void wear(const ColourScheme& scheme);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    static constexpr QStringView stillTitle_ = u"viewer.stillTitle";  ///< Name under which the choice is remembered.

    void buildMenus();
    QAction* addMenuAction(const QString& name, const QString& caption, const std::function<void()>& click);
    void connectControls();

    void load();
    /// The table of the last album. Without a collection title the window keeps its caption.
    QString readSettings();
    void wearGround(const QColor& ground);
    void wearFrame(const QColor& ground);
    void fillAlbumMenu();
    void fillScreenPictures();

    /// Opens the album at that place of the menu, or the first one with its title; a place behind the last one means
    /// the preset album. Draws no page. Throws where the album does not open: then none is open.
    void dkxc(int index);
    /// Opens the album of a table, or the first one where no album has it.
    void openTable(const QString& table);
    void openSelection(const QString& table, const QString& title);
    /// Closes the album. Throws where the catalogue does not take the change, once the window shows the closed state.
    void closeAlbum();
    void showNothingOpen();
    void listAlbums();

    void resizeForm();
    void finishDrawing();
    void clickScreen();
    void chooseButton(int index, const QString& name);
    void storeFlag(const QString& column, bool on);
    void fillScreen(bool on);
    void tick();
    void colourTitle(QTime now);
    void keepTitleStill(bool on);
    void toolClicked(const QString& key);
    void listColumns(const QWidget* box);
    void listNumberConditions(const QWidget* box);
    void toggle(WindowKind window, bool isOpen);
    void leaveColoursOnTrial();
    void goTo(WindowKind window);
    /// A small dialog takes the focus as it comes. When it goes, the form gets it: in a box of the tool bar keys would
    /// write.
    void moveFocusWith(QWidget* dialog, QEvent::Type event);
    bool isInDialog(const QWidget* control) const;
    SmallDialog* openDialog() const;  ///< Nothing while none is open.
    std::array<SmallDialog*, 2> dialogs() const { return {picRq, picYc}; }
    void escape();
    bool viewByKey(const QKeyEvent& event);
    bool pageByKey(int key);
    bool workByKey(int key);
    void enter();
    void space();
    void moveFocus(int step);
    void chooseColumns(int columns);

    Windows& windows_;
    Selection selection_;
    QSize windowed_;            ///< Size without full screen, in twips.
    bool smallScreen_ = false;  ///< Less than 800 pixels wide.
    bool albumIsOpen_ = false;
    bool helpIsOpen_ = false;
    bool coloursAreOpen_ = false;

    QWidget* form_;                    ///< Everything below the menu bar.
    QAction* mnuXs = nullptr;          ///< Draws the page.
    QAction* mnuCs = nullptr;          ///< Opens and closes the colour window.
    QAction* mnuBz = nullptr;          ///< Opens and closes the help window.
    QAction* mnuBs = nullptr;          ///< Title that does not change its colours.
    std::array<LineBox*, 4> frame_{};  ///< Around the page: top, left, bottom, right.
    DropList* lstLs;                   ///< Albums, number conditions or columns to choose from.
    DateDialog* picRq;                 ///< Condition on the day.
    ShowDialog* picYc;                 ///< Settings of the slide show.
    QTimer* tmr1;                      ///< Clock.

    std::unique_ptr<AlbumMenu> menu_;
    std::unique_ptr<ToolStrip> strip_;
    std::unique_ptr<StatusLine> status_;
    std::unique_ptr<ScreenPanel> screen_;
    std::unique_ptr<Page> page_;
    std::unique_ptr<FilterControls> filters_;
    std::unique_ptr<Paging> paging_;
    std::unique_ptr<ButtonPanel> buttons_;
    std::unique_ptr<PictureView> view_;
    std::unique_ptr<SlideShow> show_;
};
