#pragma once

#include "viewer/page.h"

#include <QPushButton>
#include <QRadioButton>
#include <array>

/// The conditions that choose pictures: number boxes of the tool bar, date dialog `picRq`, code of the active button.
class FilterControls : public QObject {
  public:
    FilterControls(ViewerState& state, ToolStrip& strip, StatusLine& status, Page& page, QWidget* window,
                   QWidget* form);

    /// Replaces the selection by what the conditions choose, counts it and tells it in the page line. Draws nothing.
    void tpsx();

    /// Key `rq`.
    void openDateDialog();

    Surface* picRq;

  private:
    void buildDateDialog();
    void connectDateDialog();
    void helpTyping();
    void refuseDate(const QString& typed);
    void takeDate();
    void dropDate();

    ViewerState& state_;
    ToolStrip& strip_;
    StatusLine& status_;
    Page& page_;
    QWidget* window_;
    std::array<QRadioButton*, 3> optRq{};
    TextBox* txtR1 = nullptr;
    QPushButton *cmdRq = nullptr, *cmdRx = nullptr, *cmdRy = nullptr, *cmdS0 = nullptr;
    int chosenOperator_ = 0;  ///< In the dialog: it counts when the date is taken.
    qsizetype typedLength_ = 0;
};
