#pragma once

#include <QObject>
#include <QRect>
#include <QSize>

class QWidget;

/// Where windows stand on the screen, and how large they are. Rectangles are pixels of the desktop, frames included.

/// A frame as it is wholly on the screen: no larger than its room, and shifted into it.
QRect wholeInRoom(const QRect& frame, const QRect& room);

/// A frame in the middle of another one, wholly on the screen.
QRect inMiddleOf(const QRect& other, QSize frame, const QRect& room);

/// Puts a window that has not been shown yet where another one is, on the same screen. Without another one its own
/// place counts. When it is shown, with its frame, it is brought wholly onto the screen.
void standInPlaceOf(QWidget& window, const QWidget* other);

/// Brings a shown window wholly onto the screen once it has its frame again: it leaves the full screen.
void stayOnScreen(QWidget& window);

/// Gives a window the size that a person gave it the last time, maximised or not, and remembers the next one when the
/// window is hidden. It is remembered under the name of the window, such as `window.frmSz`. To be made by the window
/// itself, when that has its name, its smallest size, and the size with which it opens the first time.
class RememberedSize : public QObject {
  public:
    explicit RememberedSize(QWidget* window);

    /// The present size counts as that with which the window was opened: no person has given it.
    void takePresent();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void takeRemembered();
    void remember();
    QString sizeNow() const;

    QWidget* window_;
    QString name_;
    QString opened_;  ///< What is remembered already: the size with which the window was opened.
};
