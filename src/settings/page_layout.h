#pragma once

#include "intake/settings_tab.h"

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QString>
#include <optional>

/// Where the controls that all pages share stand on one page, in twips of the tab control (the grid of the page
/// 图册设置: of the frame fraAs).
struct PageLayout {
    QColor outerFrame;  ///< shpWk
    QColor innerFrame;  ///< shpNk
    QRect grid;         ///< msgBm
    QString gridHeadings;

    struct Chooser {
        QPoint label;  ///< lblXc
        QString caption;
        QPoint box;  ///< cboBm
        int width;
    };
    std::optional<Chooser> chooser;    ///< Nothing on a page without an album chooser.
    std::optional<QPoint> codesLabel;  ///< lbl1; nothing where it stays on the page it is on.
};

const PageLayout& layoutOf(SettingsTab tab);
