#pragma once

#include "platform/desktop/text_box.h"
#include "viewer/filters.h"
#include "viewer/small_dialog.h"

#include <QRadioButton>
#include <array>

/// The dialog `picRq` for the condition on the day. Its condition counts only after 确 定.
class DateDialog : public SmallDialog {
    Q_OBJECT

  public:
    explicit DateDialog(QWidget* form);

    void open();

  Q_SIGNALS:
    void dayChosen(const DayCondition& day);
    void dayDropped();

  private:
    void buildOptions();
    void helpTyping();
    void takeDay();
    void refuseDay(const QString& typed);

    std::array<QRadioButton*, 3> optRq{};  ///< Before, after, on the day.
    TextBox* txtR1;                        ///< The day.
    DateRelation relation_ = DateRelation::before;
    qsizetype typedLength_ = 0;
};
