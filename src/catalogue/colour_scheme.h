#pragma once

#include <QColor>
#include <QString>

/// The colours of the main window, a row of `tcys`. A colour that is not stored, or cannot be read, is invalid.
struct ColourScheme {
    QColor ground;      ///< 窗体
    QColor outerFrame;  ///< 外框
    QColor fill;        ///< 填充
    QColor innerFrame;  ///< 内框

    bool operator==(const ColourScheme& other) const = default;
};

/// The scheme with that 序号; without a row all its colours are invalid. Throws where the catalogue cannot be read.
ColourScheme storedScheme(const QString& number);

/// The scheme that the main window wears.
ColourScheme activeScheme();
