#pragma once

#include "platform/desktop/list_box.h"

#include <QPointer>

/// The one drop-down list of the main window: albums, number conditions or columns. What a click in it means follows
/// from where it stands.
class DropList : public ListBox {
    Q_OBJECT

  public:
    explicit DropList(QWidget* form);

    enum class Role { albums, numbers, columns, none };
    static Role roleAt(int left);  ///< Twips.
    Role role() const;

    /// Shows the lines at a place in twips. The list is higher than `height` where its lines need it, as far as the
    /// form reaches.
    void open(const QStringList& lines, int left, int top, int width, int height);
    /// The open list is used by keyboard: it has the focus until it is hidden, which gives it back.
    void takeKeys();

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    QPointer<QWidget> opener_;
};
