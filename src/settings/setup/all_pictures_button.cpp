#include "settings/setup/all_pictures_button.h"

#include "catalogue/album_directory.h"
#include "catalogue/next_number.h"
#include "catalogue/picture_field.h"
#include "catalogue/selection_buttons.h"
#include "platform/picture/picture.h"
#include "settings/setup/button_records.h"

#include <QPainter>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int jpegQuality = 80;

/// Four small prints in an album.
QImage drawing() {
    QImage image(100, 75, QImage::Format_RGB32);
    image.fill(QColor(52, 81, 103));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const std::array grounds{QColor(214, 118, 72), QColor(62, 112, 150), QColor(186, 74, 92), QColor(66, 126, 92)};
    for (int i = 0; i < 4; ++i) {
        const QRect print(20 + i % 2 * 32, 11 + i / 2 * 28, 28, 24);
        painter.setBrush(QColor(255, 253, 247));
        painter.drawRoundedRect(print, 2, 2);
        const QRectF picture = print.adjusted(2, 2, -2, -2);
        painter.setBrush(QColor(226, 232, 226));
        painter.drawRect(picture);
        painter.setBrush(grounds.at(static_cast<std::size_t>(i)));
        painter.drawPolygon(QPolygonF{picture.bottomLeft(), picture.center(), picture.bottomRight()});
    }
    return image;
}

QString tablesOfAllAlbums(const Database& catalogue) {
    QString tables;
    for (const Album& album : allAlbums(catalogue)) tables += album.table;
    return tables;
}

}  // namespace

bool hasAllPicturesButton(const Database& catalogue) {
    return !buttonsWithCode(catalogue, allPicturesCode).Eof();
}

void putBackAllPicturesButton(const Database& catalogue) {
    // It stands first where nothing else does.
    const int number = buttonsWithNumber(catalogue, 1).empty() ? 1 : NextNumber(catalogue, u"tcan"_s).value();
    Recordset buttons = catalogue.OpenRecordset(u"tcan"_s);
    buttons.AddNew();
    buttons.Fields(u"序号"_s).SetValue(number);
    buttons.Fields(u"编号"_s).SetValue(allPicturesCode);
    buttons.Fields(u"名称"_s).SetValue(u"全部图片"_s);
    buttons.Fields(u"图册"_s).SetValue(tablesOfAllAlbums(catalogue));
    storePictureBytes(buttons.Fields(u"图片"_s), encodeJpeg(drawing(), jpegQuality));
    buttons.Update();
}
