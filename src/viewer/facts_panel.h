#pragma once

#include "platform/picture/picture_facts.h"

#include <QLabel>
#include <QSize>

/// Headings and sentences about a photograph: what it tells itself, and its size in pixels and on the disk.
QList<std::pair<QString, QString>> factLines(const PictureFacts& facts, QSize pixels, qint64 bytes);

/// A calm panel over the upper left corner of a picture. The mouse works through it, and assistive software reads the
/// same words.
class FactsPanel : public QLabel {
    Q_OBJECT

  public:
    explicit FactsPanel(QWidget* window);

    /// Shows the lines over a picture's ground.
    void showOn(QWidget* ground, const QList<std::pair<QString, QString>>& lines);

  protected:
    void paintEvent(QPaintEvent* event) override;
};
