#pragma once

#include "catalogue/colour_scheme.h"

#include <QAbstractButton>

/// A small drawing of the main window in one colour scheme; a click chooses the scheme. Checked: the scheme on show.
class SchemeTile : public QAbstractButton {
    Q_OBJECT

  public:
    explicit SchemeTile(QWidget* parent = nullptr);

    void setScheme(const ColourScheme& scheme);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void paintWindow(QPainter& painter, const QRectF& window) const;
    ColourScheme scheme_;
};
