#pragma once

#include <QLabel>
#include <QPushButton>
#include <QStatusBar>

/// A line cut to a width in pixels. Its first `soft` characters are cut first, at their end; the rest is cut only if it
/// does not fit alone, at its beginning.
QString cutLine(const QString& text, qsizetype soft, int width, const QFontMetrics& metrics);

/// Widths of the first three panels, in twips.
struct PanelWidths {
    int title, album, message;
    bool operator==(const PanelWidths& other) const = default;
};

/// Shares the room. Title and album line get the width that they ask for if there is enough, also from the part of
/// `messageWidth` that the message does not need.
PanelWidths sharedWidths(const PanelWidths& asked, int messageWidth);

/// A panel of the status bar. `text()` is always the whole line; the painted line is cut to the panel's width.
class PanelLabel : public QLabel {
    Q_OBJECT

  public:
    explicit PanelLabel(QWidget* parent) : QLabel(parent) {}

    void setLine(const QString& text, qsizetype soft);
    int widthOfWholeLine() const;  ///< Pixels, with its margins.

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    QString shown() const;
    void updateToolTip();
    qsizetype soft_ = 0;
};

/// The status bar with its four panels, counted from 1: main title, album line, page line, clock. If there is not
/// enough room, titles and conditions are cut, but never the counts.
class StatusLine {
  public:
    explicit StatusLine(QStatusBar* sta1);

    void showCollection(const QString& title);
    /// The open album: its title, then table and counts.
    void showAlbum(const QString& title, const QString& rest);
    /// The page line, or a message of the paging.
    void showPage(const QString& text);
    /// Returns whether the text has changed.
    bool showClock(const QString& text);
    void setMessageWidth(int twips);  ///< Width of panel 3.

    /// Puts a button before the clock. As long as it is to be seen, panel 3 leaves it its room.
    void offer(QPushButton* button);
    /// To be called when that button has come or gone.
    void shareRoom();

  private:
    void setLine(PanelLabel* panel, const QString& text, qsizetype soft);

    PanelLabel* collection_;  ///< Main title.
    PanelLabel* album_;       ///< Album line.
    PanelLabel* page_;        ///< Page line.
    PanelLabel* clock_;       ///< Date and time.
    int messageWidth_ = 0;
    QStatusBar* sta1_;
    QPushButton* offered_ = nullptr;
};
