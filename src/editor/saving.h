#pragma once

#include "bin/bin_room.h"
#include "editor/album_chooser.h"
#include "editor/button_picture.h"
#include "editor/document/photograph_file.h"
#include "editor/operation_dialog.h"

#include <QCheckBox>
#include <optional>

/// How a picture leaves the editor: over its source, or into another file.
class Saving : public Chapter {
    Q_OBJECT

  public:
    Saving(const Workplace& at, OperationDialog& dialog, AlbumChooser& chooser, const ButtonPicture& button);

    /// Whether the open picture may go: asks about changes that are not saved, and saves them if that is the answer.
    bool mayGo();

  private:
    void mnuBcClick();
    void mnuLcClick();
    /// A picture that is to be kept. With a turn, which is all that was done to its photograph, its own blocks are
    /// turned instead of being encoded anew.
    struct Order {
        QImage picture;
        std::optional<Orientation> turn;
    };

    std::optional<Order> askWhatToSave();
    std::optional<QString> askWhereTo(std::optional<Orientation>& turn);
    bool confirm(const QString& question, const QString& title, std::optional<Orientation>& turn);
    /// The turn by which the photograph can be kept without loss; nothing when it cannot.
    std::optional<Orientation> possibleTurn();
    bool becomesJpeg() const;
    /// The bytes that the picture was loaded from; empty where they are gone, or others by now.
    QByteArray photograph();

    /// Writes a picture over the source; the result tells where it is now.
    QString store(const Order& order);
    QString storeInAlbum(const Order& order);
    /// Writes a picture file; a JPEG with what was written about the photograph.
    void storeInFile(const Order& order, const QString& path);
    PhotographFile made(const Order& order);
    /// The source is what was saved.
    void sourceReplaced();
    void finish();
    /// Tells in the hint box how the picture was stored, where that was a question.
    void tellWay();

    OperationDialog& dialog_;
    AlbumChooser& chooser_;
    const ButtonPicture& button_;
    BinRoom room_;
    bool isReplaced_ = false;  ///< The source is the picture that was saved, and no longer the one that was opened.
    QString way_;              ///< How the picture was stored; empty when nobody has asked for anything.
};
