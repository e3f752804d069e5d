#include "catalogue_maker/rows.h"

#include "catalogue/album_rules.h"
#include "catalogue/picture_in_hand.h"

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

void addRow(const Database& database, const QString& table, const Row& row) {
    Recordset records = database.OpenRecordset(table);
    records.AddNew();
    for (const auto& [column, cell] : row) {
        Field field = records.Fields(column);
        if (const auto* picture = std::get_if<PictureFile>(&cell))
            PictureInHand(picture->path).storeIn(field);
        else
            field.SetValue(std::get<FieldValue>(cell));
    }
    records.Update();
}

PictureFile Workshop::jpeg(const QImage& image, int quality) {
    const QString path = nextPath(u"jpg"_s);
    saveJpeg(image, path, quality);
    return described(image, path);
}

PictureFile Workshop::bitmap(const QImage& image) {
    const QString path = nextPath(u"bmp"_s);
    SavePicture(image, path);
    return described(image, path);
}

QString Workshop::nextPath(const QString& suffix) {
    return folder_.filePath(u"%1.%2"_s.arg(++count_).arg(suffix));
}

PictureFile Workshop::described(const QImage& image, const QString& path) const {
    return {path, specOfPicture(Picture(image)), QFileInfo(path).size()};
}
