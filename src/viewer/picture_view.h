#pragma once

#include "viewer/alone.h"
#include "viewer/facts_panel.h"
#include "viewer/page.h"
#include "viewer/screen_panel.h"
#include "viewer/stage_pictures.h"
#include "viewer/status_line.h"
#include "viewer/viewed_picture.h"

#include <QPointer>

/// One picture alone, on the screen panel or on black over the whole screen: leafing through the selection, zooming,
/// and the switch between original size and that of the window. The page behind it is drawn anew only at the end.
/// Black is also there for the picture of a page that has only one, so for the slide show.
class PictureView : public QObject {
    Q_OBJECT

  public:
    PictureView(Page& page, ToolStrip& strip, StatusLine& status, ScreenPanel& screen);

    /// Shows the picture of a cell alone. Throws when its record is gone.
    void open(int cell);
    /// Fits the picture in view to the window anew. The page behind it may have changed meanwhile.
    void refit();
    /// Back to the page, to that of the picture seen last.
    void leave();
    /// Key `yd`.
    void switchSize();
    /// To the picture that is so many behind it in the selection, or before it.
    void leaf(int steps);
    /// Keys that leaf and zoom, and I for what the photograph tells; false for all others.
    bool takeKey(const QKeyEvent& event);
    /// Shows the picture on black, or ends that.
    void switchAlone();
    /// The page was drawn: on black its only picture follows.
    void followPage();

  Q_SIGNALS:
    void pageWanted(const QString& key);  ///< On black over a page of one picture: another page, by its tool key.
    void showSwitched();                  ///< There, too: the slide show stops or goes on.

  private:
    bool isAlone() const { return alone_ != nullptr && alone_->isVisible(); }
    Stage& stage() { return isAlone() ? alone_->stage() : screen_.stage(); }
    Alone& alone();
    void backFromAlone();
    void endView();
    void takeKeyAlone(QKeyEvent* event);
    bool zoomByKey(int key);

    void switchFacts();
    void showFacts();
    void hideFacts();

    void show();
    void beginPlace(QSize pixels);
    void showKeepingStrip();
    void sayWhy();
    QString name() const;
    QSize fittedPixels(QSize pixels) const;
    void turnPage();
    StagePictures::Requests neighbours();
    PictureRequest requestOf(const ViewedPicture& viewed);

    Page& page_;
    ToolStrip& strip_;
    StatusLine& status_;
    ScreenPanel& screen_;
    Alone* alone_ = nullptr;     ///< Made when it is first wanted.
    QPointer<FactsPanel> lblZl;  ///< The same. It goes with the ground that it is on.
    bool hasFacts_ = false;      ///< The person wants to see them.
    StagePictures pictures_;
    ViewedPicture viewed_;  ///< The picture in view.
    int row_ = 0;           ///< Its row in the selection.
    int direction_ = 1;     ///< Of the last leafing.
    int selectedCell_ = 0;  ///< The cell of the picture that was seen last.
    // The page of that picture: its first row, and how many cells it has.
    int pageRow_ = 0, pageCells_ = 1;
    bool hasLeafed_ = false;   ///< Since the view was opened.
    StoredValue behindBlack_;  ///< What the screen panel shows meanwhile.
};
