#pragma once

#include "help/rich_text_box.h"
#include "windows/windows.h"

#include <QWidget>

class ContentsPanel;
class FindBar;
class RaisedButtons;

/// The help window: the manual, and its contents that lead to every heading. There is no index of positions: the
/// caption of an entry is looked for in the text. Reads `tcsz` and `tcbz`, writes nothing; opens the catalogue afresh.
class frmBz : public QWidget {
    Q_OBJECT

  public:
    explicit frmBz(Windows& windows, QWidget* parent = nullptr);

    /// Brings the place where `topic` first stands to the top of the view.
    void showTopic(const QString& topic);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void connectEvents();
    void load();
    /// From the end of the text back to the first hit of `text`.
    void jump(const QString& marker, const QString& text);

    Windows& windows_;
    RichTextBox* rtfBz;
    ContentsPanel* contents_;
    RaisedButtons* fraAn;
    FindBar* search_;
};
