#pragma once

#include "jet_maker/jet_maker.h"

/// Makes whole album catalogues as Jet databases, for tests, measurements and the soak.
namespace jet {

/// What such a catalogue holds. Its tables have the columns that the album's own have; what a test wants otherwise, it
/// changes in the tables before it makes the file.
struct OldAlbum {
    QString table;
    QString title;
    QList<QByteArray> pictures = {};  ///< Of the records 1, 2, 3 and so on. A null one: the record has none.
    bool isListed = true;             ///< In the directory of albums.
};

struct OldCatalogue {
    QString title = QStringLiteral("我的老像册");
    QList<OldAlbum> albums = {};
    QByteArray buttonPicture = {};  ///< Of the selection buttons.
    QByteArray screenPicture = {};
};

/// tcbm, tcan, tcsz, tcys, tctb, pmtp, tcbz, tccx and the albums, in this order. The selection buttons are "v" 全部,
/// "1" 风景 and "a" 家人. A record n of an album has the codes "1" or "a", the day n of September 2003, and the caption
/// 表名 + n.
QList<Table> oldCatalogueTables(const OldCatalogue& catalogue);

/// A table by its name; there must be one.
Table& tableOf(QList<Table>& tables, const QString& name);

/// The bytes of a picture as the album stored them, with the zeros at their end.
QByteArray withTail(const QByteArray& picture);

}  // namespace jet
