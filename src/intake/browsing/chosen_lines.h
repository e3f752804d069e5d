#pragma once

#include "settings/frame/frame_part.h"
#include "settings/frame/settings_frame.h"

#include <QStringList>

class ListBox;

/// The list lstSu of what is chosen from the grid: keys of records on the page 图片录入, numbers of pictures on
/// 图片转存.
class ChosenLines : public QObject, public FramePart {
    Q_OBJECT

  public:
    explicit ChosenLines(const SettingsFrame& frame);

    int count() const;
    QString at(int index) const;
    QStringList all() const;

    void add(const QString& line);
    void addAll(const QStringList& lines);
    void drop(int index);
    void clear();

    /// In twips of the tab control.
    void putOn(int page, const QRect& place, const Growth& growth);
    void show();
    void hide();
    void setEnabled(bool on);
    void setColumns(int columns);
    /// As many columns as have room for the longest line, five at most.
    void fitColumns();

    void pageTurned() override { setEnabled(true); }

  Q_SIGNALS:
    void clicked(int index);

  private:
    TabControl* sstFz_;
    ListBox* lstSu;  ///< The list.
};
