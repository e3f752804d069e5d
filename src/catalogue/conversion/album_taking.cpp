#include "catalogue/conversion/album_taking.h"

#include "platform/base/error.h"
#include "platform/picture/picture_bytes.h"

#include <QSet>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 mostBytesOfGroup = 24 << 20;

QString noteAboutPicture(const TableTaking::Taken& taken, const QString& deed) {
    if (!taken.hasPicture) return {};
    switch (pictureBytes(taken.picture)) {
        case PictureBytes::truncated:
            return u"图片不完整，按原样"_s + deed;
        case PictureBytes::notAPicture:
            return u"图片不是 BMP 或 JPEG，按原样"_s + deed;
        default:
            return {};
    }
}

}  // namespace

QStringList recordNames(const Database& old, const std::vector<TakenAlbum>& albums) {
    QStringList names;
    for (const TakenAlbum& album : albums) {
        const Recordset rows = old.OpenRecordset(album.source.isEmpty() ? allRecordsSql(album.table) : album.source);
        const bool hasNumbers = fieldNamed(shapeOf(old, album.table), u"序号"_s).has_value();
        QSet<QString> seen;
        for (int row = 0; row < album.records; ++row) {
            QString number = u"第 %1 行"_s.arg(row + 1);
            if (hasNumbers) attempt([&] { number = u"序号＝"_s + rows.valueAt(row, u"序号"_s).textOr(u"（空）"_s); });
            if (seen.contains(number)) number += u"（重复，第 %1 行）"_s.arg(row + 1);
            seen << number;
            names << album.album + u' ' + number;
        }
    }
    return names;
}

AlbumTaking::AlbumTaking(const Database& old, const Database& target, std::vector<TakenAlbum> albums, int share,
                         TableTaking::Change change, QString deed)
    : RunIntoDatabase(recordNames(old, albums), mostBytesOfGroup),
      old_(old),
      target_(target),
      albums_(std::move(albums)),
      share_(share),
      change_(std::move(change)),
      deed_(std::move(deed)) {}

AlbumTaking::Place AlbumTaking::at(qsizetype place) const {
    std::size_t album = 0;
    for (; place >= albums_[album].records; ++album) place -= albums_[album].records;
    return {album, int(place)};
}

RunInTurn::Taken AlbumTaking::take(qsizetype place) {
    const auto [album, row] = at(place);
    if (!taking_ || inHand_ != album)
        taking_.emplace(old_, albums_[album].table, target_, albums_[album].album, albums_[album].source);
    inHand_ = album;
    TableTaking::Taken taken = taking_->take(row, change_);
    if (names()[place].contains(u"重复")) taken.odd.prepend(u"序号与前面的记录重复"_s);
    if (const QString note = noteAboutPicture(taken, deed_); !note.isEmpty()) taken.odd << note;
    const QString reason = taken.odd.join(u'；');
    const qint64 bytes = taken.picture.size();
    if (taken.isUnreadable) return {Fate::doubtful, bytes, reason};
    return {taken.hasPicture ? Fate::taken : Fate::withoutPicture, bytes, reason};
}
