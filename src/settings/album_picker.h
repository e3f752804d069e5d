#pragma once

#include "intake/shared_controls.h"

#include <QFont>
#include <QObject>
#include <QPalette>
#include <QRect>
#include <vector>

class TextBox;
struct Album;

/// The list lstBh as a list of album tables that stands over a box while it is being filled. The list belongs to
/// another page: it is borrowed while it stands open and given back as it was. It closes at a choice, and when the
/// mouse moves beside it.
class AlbumPicker : public QObject {
    Q_OBJECT

  public:
    /// `frame` is the group in which `box` stands.
    AlbumPicker(SharedControls& controls, QWidget* frame, TextBox* box);

    void open(const std::vector<Album>& albums);
    void close();
    bool isOpen() const { return open_; }

  Q_SIGNALS:
    void picked(const QString& table);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void borrow();
    void placeOverBox(int lines);
    void lineClicked(int index);

    SharedControls& controls_;
    QWidget* frame_;
    TextBox* box_;
    bool open_ = false;

    // The list as it was.
    QWidget* home_ = nullptr;
    QRect place_;
    QPalette palette_;
    QFont font_;
    Qt::FocusPolicy focus_ = Qt::StrongFocus;
    int columns_ = 1;
    bool enabled_ = true;
};
