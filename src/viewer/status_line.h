#pragma once

#include <QLabel>
#include <QStatusBar>

/// A line cut to a width in pixels: its first `soft` characters make way for the rest, which is cut last and at its
/// beginning.
QString cutLine(const QString& text, qsizetype soft, int width, const QFontMetrics& metrics);

/// Widths of the first three panels, in twips or what they ask for.
struct PanelWidths {
    int title, album, message;
    bool operator==(const PanelWidths& other) const = default;
};

/// Title and album line get what they ask for as far as it goes, also from the part of `messageWidth` that the message
/// leaves free.
PanelWidths sharedWidths(const PanelWidths& asked, int messageWidth);

/// A panel of the status bar. Its text is always whole; what is seen of it is cut to the room there is.
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

/// The status bar with its four panels, counted from 1: main title, album line, page line, clock. Where there is not
/// enough room titles and conditions are cut, the counts never.
class StatusLine {
  public:
    explicit StatusLine(QStatusBar* sta1);

    void showCollection(const QString& title);
    /// The open album: its title, and what is said of it.
    void showAlbum(const QString& title, const QString& rest);
    /// The page line, or a word on paging.
    void showPage(const QString& text);
    /// Whether the text is another one than before.
    bool showClock(const QString& text);
    void setMessageWidth(int twips);  ///< Width of panel 3.

  private:
    void setLine(PanelLabel* panel, const QString& text, qsizetype soft);
    void shareRoom();

    PanelLabel *collection_, *album_, *page_, *clock_;
    int messageWidth_ = 0;
};
