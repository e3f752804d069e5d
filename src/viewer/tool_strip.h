#pragma once

#include "platform/desktop/shapes.h"
#include "platform/desktop/surface.h"
#include "platform/desktop/text_box.h"
#include "platform/desktop/tool_bar.h"
#include "viewer/title_box.h"

#include <QCheckBox>
#include <QProgressBar>
#include <array>
#include <vector>

/// The tool bar of the main window with everything on it. The other parts of the window set what it shows, and learn
/// from its signals what the user wants.
class ToolStrip : public QObject {
    Q_OBJECT

  public:
    explicit ToolStrip(QWidget* form);

    void layOut(int formWidth, bool smallScreen);
    void setGround(const QColor& ground);

    // Keys
    void offer(const QString& key, bool on) { tlb1->setEnabled(key, on); }
    bool offers(const QString& key) const { return tlb1->isEnabled(key); }
    void showAlbumKey(bool isOpen, const QString& toolTip);
    void showSlideShow(bool isRunning);
    void showOriginalSize(bool on);
    void showHelp(bool isOpen);

    // Boxes
    double page() const;  ///< Number in the page box, 0 for none.
    void showPage(const QString& text) { txtYh->setText(text); }
    void selectPage() { txtYh->selectAll(); }
    void chooseColumns(const QString& text) { txtLs->setText(text); }
    void focusColumns() { txtLs->setFocus(); }
    /// The condition in the number boxes, empty for any number.
    QString numberCondition() const;
    /// Takes one of the lines "序号任意", "序号="…; the box of the number shows with all but the first.
    void chooseNumbers(const QString& line);
    /// Asks for the list of the box, as a click in it does. False for a control that has no list.
    bool listFor(const QWidget* box);

    // Flags
    void setCaptions(bool on) { chkBq[0]->setChecked(on); }
    void setFullScreen(bool on) { chkBq[1]->setChecked(on); }

    // Title box
    void showTitle(const QString& title) { txtWd->setText(title); }
    void setTitleColours(const TitleColours& colours) { txtWd->setColours(colours); }
    /// Commands of the menu at the right button on the title.
    void offerOnTitle(QAction* command) { picBq->addAction(command); }
    /// While a page is drawn a progress bar, for more than one picture, takes the place of the title.
    void beginProgress(bool barIsShown);
    void showProgress(int percent);
    void endProgress();

  Q_SIGNALS:
    void keyClicked(const QString& key);
    void pageTyped();
    void pageEntered(bool isTyped);  ///< With Enter. `isTyped`: the text is what the user typed.
    void columnsChanged(const QString& text);
    void columnsEntered();
    void columnListWanted(const QWidget* box);
    void numbersChanged();
    void numbersEntered();
    void numberListWanted(const QWidget* box);
    void captionsSwitched(bool on);
    void fullScreenSwitched(bool on);

  private:
    void addButtons();
    void addPageBox();
    void addConditionBoxes();
    void addFlags();
    void addTitle();
    void showNumberBox(bool on);

    QFrame* clb1;                       ///< Cool bar that holds the tool bar.
    ToolBar* tlb1;                      ///< Tool bar.
    TextBox* txtD1;                     ///< Label "第     页：" under the page box.
    TextBox* txtYh;                     ///< Page number.
    TextBox* txtXh;                     ///< Choice of the number condition.
    TextBox* txtXx;                     ///< Number of the condition.
    TextBox* txtLs;                     ///< Number of columns.
    std::array<QCheckBox*, 2> chkBq{};  ///< Captions, full screen.
    Surface* picBq;                     ///< Ground of title and progress bar.
    QProgressBar* prg1;                 ///< Progress of a page that is drawn.
    TitleBox* txtWd;                    ///< Title of the collection.
    ShapeBox* shpBq;                    ///< Frame of the title.
    std::vector<LineBox*> separators_;  ///< Between the groups of keys.
    bool pageBoxWasEntered_ = false;    ///< A press of the mouse gave it the focus, and the click is still to come.
    bool smallScreen_ = false;          ///< No room for the title.
};
