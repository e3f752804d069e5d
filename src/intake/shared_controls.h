#pragma once

class DataControl;
class Grid;
class ListBox;
class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QWidget;
class TabControl;

/// Controls of the settings window that more than one page uses. The frame makes them and moves them to the page in
/// front.
struct SharedControls {
    QWidget* form = nullptr;
    TabControl* sstFz = nullptr;
    QLabel* lblTs = nullptr;  ///< Hint line.
    QComboBox* cboBm = nullptr;
    QLabel* lblXc = nullptr;
    QLabel* lbl1 = nullptr;
    QLabel* lbl12 = nullptr;
    Grid* msgBm = nullptr;
    DataControl* datBj = nullptr;
    ListBox* lstBh = nullptr;
    ListBox* lstSu = nullptr;
    QProgressBar* prg2 = nullptr;
};
