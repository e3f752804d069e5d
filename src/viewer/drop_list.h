#pragma once

#include "platform/desktop/list_box.h"

#include <QPointer>
#include <functional>

/// The one drop-down list of the main window. `open` takes the action for the chosen line; the list hides first.
class DropList : public ListBox {
    Q_OBJECT

  public:
    using Chosen = std::function<void(int index)>;

    explicit DropList(QWidget* form);

    /// Shows the lines, called `name` by assistive software, at a place in twips. The list is higher than `height` if
    /// its lines need that, down to the end of the form.
    void open(const QString& name, const QStringList& lines, int left, int width, int height, Chosen chosen);
    /// Under a box of the tool bar.
    void openUnder(const QWidget* box, const QStringList& lines, Chosen chosen);
    /// Gives the open list the focus, for use by keyboard. The focus returns when the list hides.
    void takeKeys();

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    void choose(int index);
    Chosen chosen_;
    QPointer<QWidget> opener_;  ///< Gets the focus back.
};
