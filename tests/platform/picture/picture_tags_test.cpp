#include "platform/picture/picture_tags.h"

#include "../../support/run_all.h"
#include "picture_samples.h"
#include "platform/picture/exif_library.h"
#include "platform/picture/lossless_turn.h"
#include "platform/picture/picture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray bytesOf(Exiv2::Image& image) {
    image.writeMetadata();
    image.io().open();
    const Exiv2::DataBuf bytes = image.io().read(long(image.io().size()));
    return {reinterpret_cast<const char*>(bytes.pData_), qsizetype(bytes.size_)};
}

/// As a camera and a program for captions leave it: stored on its side, with a small picture.
QByteArray photograph(QSize pixels, int orientation) {
    const QByteArray preview = jpegBytes(quadrants({16, 12}));
    const QByteArray jpeg = withPreview(jpegBytes(quadrants(pixels)), preview, orientation);
    const auto image = openedTags(jpeg);
    Exiv2::ExifData& exif = image->exifData();
    exif["Exif.Image.Make"] = "Lake";
    exif["Exif.Photo.DateTimeOriginal"] = "2003:10:02 12:30:59";
    exif["Exif.Photo.FNumber"] = Exiv2::Rational(28, 10);
    exif["Exif.Photo.PixelXDimension"] = uint32_t(pixels.width());
    exif["Exif.GPSInfo.GPSLatitudeRef"] = "N";
    image->iptcData()["Iptc.Application2.Caption"] = "湖边";
    image->xmpData()["Xmp.dc.title"] = "湖";
    image->xmpData()["Xmp.tiff.Orientation"] = std::to_string(orientation);
    image->setComment("by hand");
    return bytesOf(*image);
}

/// All tags but those that must change.
QStringList kept(const QByteArray& jpeg) {
    const auto image = openedTags(jpeg);
    QStringList tags{QString::fromStdString(image->comment())};
    const auto take = [&](const auto& data) {
        for (const auto& each : data) {
            const QString name = QString::fromStdString(each.key());
            const bool changes = name.contains(u"Orientation") || name.contains(u"Dimension") ||
                                 name.contains(u"Thumbnail") || name.endsWith(u"ExifTag") || name.endsWith(u"GPSTag");
            if (!changes) tags << name + u'=' + QString::fromStdString(each.toString());
        }
    };
    take(image->exifData());
    take(image->iptcData());
    take(image->xmpData());
    tags.sort();
    return tags;
}

std::string exifOf(const QByteArray& jpeg, const char* key) {
    const auto image = openedTags(jpeg);
    const auto found = image->exifData().findKey(Exiv2::ExifKey(key));
    return found == image->exifData().end() ? "" : found->toString();
}

class TestPictureTags : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void everyTagComesAlong() {
        const QByteArray before = photograph({64, 48}, 6);
        const PictureTags tags(before);
        QCOMPARE(tags.orientation(), 6);
        const QByteArray after = tags.in(encodeJpeg(quadrants({480, 640}), 80));
        QVERIFY(kept(before).size() > 7);
        QCOMPARE(kept(after), kept(before));
        QCOMPARE(exifOf(after, "Exif.Image.Orientation"), "1");
        QCOMPARE(exifOf(after, "Exif.Photo.PixelXDimension"), "480");
        QCOMPARE(exifOf(after, "Exif.Photo.PixelYDimension"), "640");
        QCOMPARE(LoadPicture(after, u"after"_s).pixels(), QSize(480, 640));
        const auto image = openedTags(after);
        const Exiv2::DataBuf preview = Exiv2::ExifThumb(image->exifData()).copy();
        const QImage small = QImage::fromData(preview.pData_, int(preview.size_));
        QCOMPARE(small.size(), QSize(90, 120));
        QCOMPARE(quadrantsOf(small), QByteArray("ABCD"));
    }

    void whatHasNoneStaysAsItIs() {
        const QByteArray bare = encodeJpeg(quadrants({64, 48}), 80);
        const QByteArray cases[] = {bare, bmpBytes(24), {}, "\xff\xd8", photograph({64, 48}, 1).left(40)};
        for (const QByteArray& each : cases) {
            const PictureTags tags(each);
            QVERIFY(tags.isEmpty());
            QCOMPARE(tags.orientation(), 1);
            QCOMPARE(tags.in(bare), bare);
        }
    }

    /// A segment has 64 KB. Where it is nearly full, the small picture gives way and no tag.
    void fullSegmentsLoseTheirPreviewAlone() {
        const QByteArray jpeg = photograph({64, 48}, 1);
        const auto image = openedTags(jpeg);
        image->exifData()["Exif.Photo.UserComment"] = std::string(64300, 'x');
        const QByteArray before = bytesOf(*image);
        QCOMPARE(exifOf(before, "Exif.Photo.UserComment").size(), size_t{64300});
        const QByteArray after = PictureTags(before).in(encodeJpeg(quadrants({640, 480}), 80));
        QCOMPARE(kept(after), kept(before));
        QCOMPARE(Exiv2::ExifThumb(openedTags(after)->exifData()).copy().size_, 0L);
    }

    void turnsWithoutDecoding() {
        const QByteArray jpeg = photograph({64, 48}, 1);
        const std::pair<int, const char*> cases[] = {{1, "ABCD"}, {2, "BADC"}, {3, "DCBA"}, {4, "CDAB"},
                                                     {5, "ACBD"}, {6, "CADB"}, {7, "DBCA"}, {8, "BDAC"}};
        for (const auto& [turn, expected] : cases) {
            const auto turned = turnedJpeg(jpeg, turn);
            QVERIFY(turned);
            QCOMPARE(quadrantsOf(LoadPicture(*turned, u"turned"_s).image()), QByteArray(expected));
            QCOMPARE(kept(*turned), kept(jpeg));
            // Back again, nothing has changed.
            const int back = turn == 6 ? 8 : turn == 8 ? 6 : turn;
            QCOMPARE(LoadPicture(*turnedJpeg(*turned, back), u"back"_s).image(), LoadPicture(jpeg, u"jpeg"_s).image());
        }
        QVERIFY(!turnedJpeg(jpegBytes(quadrants({65, 48})), 2));  // half a block would come to the left edge
        QVERIFY(!turnedJpeg(jpeg.left(300), 2));
    }

    void turnsAddUp() {
        const std::tuple<int, int, int> cases[] = {{1, 6, 6}, {6, 6, 3}, {6, 8, 1}, {2, 6, 7}, {6, 2, 5}, {5, 5, 1}};
        for (const auto& [first, then, both] : cases) QCOMPARE(composed(first, then), both);
    }
};

Registered<TestPictureTags> registered;

}  // namespace

#include "picture_tags_test.moc"
