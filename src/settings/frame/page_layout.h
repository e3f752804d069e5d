#pragma once

#include "platform/desktop/growing.h"

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QString>
#include <optional>

class QWidget;

/// Headings of the grid on pages that show the records of an album.
inline const QString pictureHeadings =
    QStringLiteral("序号|编号|^  大  小  |^  规  格  |^    日      期    |^    备        注    ");

/// Where the controls that all pages share stand on one page, in twips of the tab control.
struct PageLayout {
    QColor outerFrame;  ///< shpWk
    QColor innerFrame;  ///< shpNk
    QRect grid;         ///< msgBm
    Growth gridGrowth;
    QWidget* gridGroup = nullptr;  ///< The group that holds the grid, whose place is in twips of it then.
    QString gridHeadings = pictureHeadings;

    struct Chooser {
        QPoint label;  ///< lblXc
        QString caption;
        QPoint box;  ///< cboBm
        int width;
        Growth growth;  ///< Of the box.
    };
    std::optional<Chooser> chooser = {};  ///< Nothing on a page without an album chooser.
};
