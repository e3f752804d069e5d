#pragma once

#include "settings/frame/choice_list.h"

class TabControl;
class TextBox;
struct Album;

/// Offers the albums over a box that is being filled. Closes at a choice, and when the mouse moves beside the list.
class AlbumPicker : public QObject {
    Q_OBJECT

  public:
    /// `frame` is the group in which `box` stands.
    AlbumPicker(ChoiceList& list, TabControl* sstFz, QWidget* frame, TextBox* box);

    void open(const std::vector<Album>& albums);
    void close() { list_.close(); }

  Q_SIGNALS:
    void picked(const QString& table);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void choose(const QString& table);

    ChoiceList& list_;
    QWidget* frame_;
    TextBox* box_;
};
