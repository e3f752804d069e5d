#pragma once

#include "help/rich_text_box.h"
#include "windows/windows.h"

#include <QSizeGrip>
#include <QWidget>
#include <vector>

class ContentsPanel;
class FindBar;
class PictureShow;
class RaisedButtons;

/// The help window: the manual, and its contents that lead to every heading. There is no index of positions: the window
/// looks for the caption of an entry in the text. Reads `tcsz` and `tcbz`, writes nothing.
class frmBz : public QWidget {
    Q_OBJECT

  public:
    explicit frmBz(Windows& windows, QWidget* parent = nullptr);

    /// Brings the first place of `topic` in the text to the top of the view.
    void showTopic(const QString& topic);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void connectEvents();
    void load();
    /// In the colours worn; the view stays where it is.
    void showManual();
    void findChapters();
    /// Marks the chapter that begins last above the upper part of the view, once the view is at rest.
    void markChapter();
    void wearColours();
    /// Shows the first hit of `text`. Jumps to `marker` first, near the end of the manual: so the hit comes to the top
    /// of the view.
    void jump(const QString& marker, const QString& text);

    Windows& windows_;
    RichTextBox* rtfBz;        ///< The manual.
    ContentsPanel* contents_;  ///< The contents at its left.
    RaisedButtons* fraAn;      ///< The two picture buttons.
    QSizeGrip* grip_;          ///< In the lower right corner.
    FindBar* search_;          ///< The line for words to look for.
    PictureShow* show_;        ///< A picture of the manual, large.
    QString manual_;           ///< As it is stored.
    std::vector<int> starts_;  ///< Where each chapter begins in the text, -1 where it is not found.
    QColor ground_;            ///< For which the manual is coloured.
    bool isMoving_ = false;    ///< The view is on its way to another place.
};
