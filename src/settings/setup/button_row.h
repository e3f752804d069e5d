#pragma once

#include <QList>
#include <QObject>

class Preview;
class QGroupBox;
class QPushButton;

/// The row of buttons at the foot of a group. While the preview panel stands over it, the buttons stand in a column
/// beside the panel, where there is room: a picture is loaded there while a button is added or changed.
class ButtonRow : public QObject {
    Q_OBJECT

  public:
    ButtonRow(QGroupBox* group, const QList<QPushButton*>& buttons, const Preview& preview);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void arrange();
    void placeInRow();
    void placeInColumn(int left);
    QRect panelInGroup() const;

    QGroupBox* group_;
    QList<QPushButton*> buttons_;
    QWidget* panel_;
};
