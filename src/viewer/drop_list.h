#pragma once

#include "platform/desktop/list_box.h"

#include <QPointer>
#include <functional>

/// The one drop-down list of the main window. Whoever opens it says what becomes of the chosen line; it hides first.
class DropList : public ListBox {
    Q_OBJECT

  public:
    using Chosen = std::function<void(int index)>;

    explicit DropList(QWidget* form);

    /// Shows the lines at a place in twips. The list is higher than `height` where its lines need it, as far as the
    /// form reaches.
    void open(const QStringList& lines, int left, int width, int height, Chosen chosen);
    /// Under a box of the tool bar.
    void openUnder(const QWidget* box, const QStringList& lines, Chosen chosen);
    /// The open list is used by keyboard: it has the focus until it is hidden, which gives it back.
    void takeKeys();

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    void choose(int index);
    Chosen chosen_;
    QPointer<QWidget> opener_;
};
