#pragma once

#include "platform/desktop/growing.h"

#include <QFont>
#include <QObject>
#include <QPalette>
#include <QRect>
#include <QStringList>

class ListBox;
class TabControl;

/// The list lstBh, which serves two pages: on 图册编辑 it has its place and lists the selection codes; on 图册设置 it
/// opens over a box that is being filled. It is given back then as it was.
class ChoiceList : public QObject {
    Q_OBJECT

  public:
    explicit ChoiceList(TabControl* sstFz);

    void fill(const QStringList& lines);
    /// The same lines as they are by now: the chosen line and the part that is shown stay.
    void fillAgain(const QStringList& lines);
    void setEnabled(bool on);
    void setToolTip(const QString& text);
    /// In twips of the tab control.
    void putOn(int page, const QRect& place, int columns, const Growth& growth);

    /// Opens over a box, as high as its lines need and the group of the box has room. `tips` explain the lines.
    void openOver(const QWidget* box, const QStringList& lines, const QStringList& tips);
    bool isOpen() const { return group_ != nullptr; }
    bool covers(const QPoint& place) const;  ///< A place in the group, in pixels.
    void close();

  Q_SIGNALS:
    void lineClicked(const QString& line);    ///< By mouse or Enter.
    void lineActivated(const QString& line);  ///< By a double click or Enter.

  private:
    void borrow(QWidget* group);
    void placeOver(const QWidget* box);

    TabControl* sstFz_;
    ListBox* lstBh;             ///< The list.
    QWidget* group_ = nullptr;  ///< Of the box over which it is open.

    // The list as it was before it was opened over a box.
    QWidget* home_ = nullptr;
    QRect place_;
    QPalette palette_;
    QFont font_;
    Qt::FocusPolicy focus_ = Qt::StrongFocus;
    Growth growth_;
    int columns_ = 1;
    bool enabled_ = true;
};
