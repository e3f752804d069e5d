#pragma once

#include <QByteArray>
#include <QObject>
#include <QStringList>
#include <functional>

class QMimeData;
class QWidget;

/// Pictures that a person drops on a window, or pastes into it.
struct PictureOffer {
    QStringList paths = {};  ///< Files and folders of this computer.
    QByteArray picture =
        {};             ///< A picture without a file, as browsers drop and clipboards hold it; empty beside paths.
    QString name = {};  ///< That such a picture brings, without an ending; empty where it has none.

    bool isEmpty() const { return paths.isEmpty() && picture.isEmpty(); }
};

/// What is on offer. A picture that comes as pixels alone is made a PNG.
PictureOffer offerIn(const QMimeData& data);

/// Lets a window take pictures: dropped ones, and those that are pasted (Ctrl+V) while no text is being edited. Belongs
/// to the window.
class OfferTaker : public QObject {
    Q_OBJECT

  public:
    explicit OfferTaker(QWidget* window);

    /// Not set: always.
    std::function<bool()> mayTake;

  Q_SIGNALS:
    /// The program from which they come waits no more.
    void offered(const PictureOffer& offer);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool takes() const { return !mayTake || mayTake(); }
    void paste();
};
