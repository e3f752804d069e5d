#pragma once

#include <QLabel>
#include <QStatusBar>
#include <array>

/// The status bar with its four panels, counted from 1: main title, album line, page line, clock.
class StatusLine {
  public:
    explicit StatusLine(QStatusBar* sta1);

    void setPanel(int panel, const QString& text);
    QString panel(int panel) const;
    void setMessageWidth(int twips);  ///< Width of panel 3.

  private:
    void shareRoom();
    QLabel* label(int panel) const { return panels_.at(size_t(panel - 1)); }
    std::array<QLabel*, 4> panels_{};
};
