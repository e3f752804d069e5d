#include "catalogue/conversion/album_taking.h"

#include "platform/base/error.h"
#include "platform/picture/picture_bytes.h"

#include <QSet>
#include <algorithm>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 mostBytesOfGroup = 24 << 20;

QString noteAboutPicture(const QByteArray& picture, const QString& deed) {
    if (picture.isEmpty()) return {};
    switch (pictureBytes(picture)) {
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

/// The old database in the thread that reads it, with the album in hand.
class AlbumTaking::Reader {
  public:
    explicit Reader(const AlbumTaking& run)
        : run_(run), old_(run.order_.openAgain ? run.order_.openAgain() : openForOnePass(run.order_.old.Name())) {}

    Ready read(qsizetype place) {
        const auto [at, row] = run_.at(place);
        const TakenAlbum& album = run_.order_.albums[at];
        if (!records_ || inHand_ != at) records_.emplace(old_, album.table, run_.columns_[at], album.source);
        inHand_ = at;
        OldRecord record = records_->read(row);
        const QString note = noteAboutPicture(record.picture, run_.order_.deed);
        return {std::move(record), note};
    }

  private:
    const AlbumTaking& run_;
    Database old_;
    std::optional<OldRecords> records_;
    std::size_t inHand_ = 0;
};

std::vector<std::vector<TakenColumn>> AlbumTaking::columnsOf(const Order& order) {
    std::vector<std::vector<TakenColumn>> all;
    all.reserve(order.albums.size());
    for (const TakenAlbum& album : order.albums)
        all.push_back(commonColumns(order.old, album.table, order.target, album.album));
    return all;
}

AlbumTaking::AlbumTaking(Order order)
    : RunIntoDatabase(recordNames(order.old, order.albums), mostBytesOfGroup),
      order_(std::move(order)),
      columns_(columnsOf(order_)),
      ahead_(
          names().size(),
          [this] {
              return [reader = std::make_shared<Reader>(*this)](qsizetype place) { return reader->read(place); };
          },
          [](const Ready& ready) { return qint64(ready.record.picture.size()); }) {}

AlbumTaking::Place AlbumTaking::at(qsizetype place) const {
    std::size_t album = 0;
    for (; place >= order_.albums[album].records; ++album) place -= order_.albums[album].records;
    return {album, int(place)};
}

RunInTurn::Taken AlbumTaking::take(qsizetype place) {
    const std::size_t album = at(place).album;
    const auto [record, note] = ahead_.take(place);
    if (!taking_ || inHand_ != album) taking_.emplace(order_.target, order_.albums[album].album, columns_[album]);
    inHand_ = album;
    QStringList odd = taking_->store(record, order_.change).odd;
    if (names()[place].contains(u"重复")) odd.prepend(u"序号与前面的记录重复"_s);
    if (!note.isEmpty()) odd << note;
    const bool isRead = std::ranges::all_of(record.values, [](const auto& value) { return value.has_value(); });
    const Fate whole = record.picture.isEmpty() ? Fate::withoutPicture : Fate::taken;
    return {isRead ? whole : Fate::doubtful, record.picture.size(), odd.join(u'；')};
}
