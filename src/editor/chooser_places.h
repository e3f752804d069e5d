#pragma once

#include "platform/desktop/placing.h"

#include <QLabel>

/// The places of the album chooser's parts, in twips.
namespace chooserPlaces {

inline constexpr int rightColumn = 4215, rightWidth = 5070;
inline constexpr int previewTop = 1500;
inline constexpr int previewWidth = 5000, previewHeight = 3750;

/// A line of plain text.
inline QLabel* makeLabel(QWidget* parent, const QString& name, const QString& text, int left, int top, int width) {
    auto* label = make<QLabel>(parent, name);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    place(label, left, top, width, 300);
    return label;
}

}  // namespace chooserPlaces
