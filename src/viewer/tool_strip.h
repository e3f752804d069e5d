#pragma once

#include "platform/desktop/shapes.h"
#include "platform/desktop/surface.h"
#include "platform/desktop/text_box.h"
#include "platform/desktop/tool_bar.h"

#include <QCheckBox>
#include <QProgressBar>
#include <array>
#include <vector>

/// The tool bar of the main window with everything that stands on it, and the places of it all. Children of the form;
/// what they do lies with the chapters of the window.
class ToolStrip {
  public:
    explicit ToolStrip(QWidget* form);

    void layOut(int formWidth, bool smallScreen);
    /// The box of the number condition shows beside the choice, or the choice alone.
    void showNumberBox(bool on);
    /// The title box shows the collection's title; its colours change with the clock.
    void setTitleColours(const QColor& text, const QColor& ground);
    /// While a page is drawn the progress bar stands in place of the title.
    void showProgress(bool on, bool titleShown);

    QFrame* clb1;
    ToolBar* tlb1;
    TextBox *txtD1, *txtYh, *txtXh, *txtXx, *txtLs;
    std::array<QCheckBox*, 2> chkBq;
    Surface* picBq;
    QProgressBar* prg1;
    TextBox* txtWd;
    ShapeBox* shpBq;

  private:
    void addButtons();
    void addBoxes();
    void addTitle();
    std::vector<LineBox*> separators_;
};
