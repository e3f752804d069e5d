#include "platform/picture/picture_facts.h"

#include "../../support/run_all.h"
#include "picture_samples.h"
#include "platform/picture/exif_library.h"
#include "platform/picture/picture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray tagged(const std::function<void(Exiv2::Image&)>& write) {
    const QByteArray bare = encodeJpeg(quadrants({64, 48}), 80);
    const auto image = openedTags(bare);
    write(*image);
    image->writeMetadata();
    image->io().open();
    const Exiv2::DataBuf bytes = image->io().read(long(image->io().size()));
    return {reinterpret_cast<const char*>(bytes.pData_), qsizetype(bytes.size_)};
}

PictureFacts factsWith(const std::function<void(Exiv2::ExifData&)>& write) {
    return pictureFacts(tagged([&](Exiv2::Image& image) { write(image.exifData()); }));
}

}  // namespace

class TestPictureFacts : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void everythingIsSaidInOrder() {
        const PictureFacts facts = pictureFacts(tagged([](Exiv2::Image& image) {
            Exiv2::ExifData& exif = image.exifData();
            exif["Exif.Image.Make"] = "Lake";
            exif["Exif.Image.Model"] = "Lake 5";
            exif["Exif.Photo.LensModel"] = "24-70";
            exif["Exif.Photo.ExposureTime"] = Exiv2::URational(1, 125);
            exif["Exif.Photo.FNumber"] = Exiv2::URational(28, 10);
            exif["Exif.Photo.ISOSpeedRatings"] = uint16_t(200);
            exif["Exif.Photo.FocalLength"] = Exiv2::URational(50, 1);
            exif["Exif.Photo.DateTimeOriginal"] = "2003:10:02 12:30:59";
            exif["Exif.GPSInfo.GPSLatitude"] = "31/1 13/1 4944/100";
            exif["Exif.GPSInfo.GPSLatitudeRef"] = "S";
            exif["Exif.GPSInfo.GPSLongitude"] = "121/1 28/1 0/1";
            exif["Exif.GPSInfo.GPSLongitudeRef"] = "E";
            exif["Exif.GPSInfo.GPSAltitude"] = Exiv2::URational(124, 10);
            image.xmpData()["Xmp.dc.title"] = "湖 边";
        }));
        QStringList said;
        for (const auto& [heading, sentence] : facts.lines()) said << heading + u'=' + sentence;
        QCOMPARE(said, (QStringList{u"相机=Lake 5"_s, u"镜头=24-70"_s, u"曝光=1/125 秒  f/2.8  ISO 200  50 毫米"_s,
                                    u"拍摄时间=2003-10-02 12:30:59"_s,
                                    u"地点=南纬 31.2304°  东经 121.4667°  高 12 米"_s, u"标题=湖 边"_s}));
    }

    void momentsAndTheirFallbacks() {
        const char* const original = "Exif.Photo.DateTimeOriginal";
        const std::tuple<const char*, const char*, QString> cases[] = {
            {original, "2003:10:02 12:30:59", u"2003-10-02T12:30:59"_s},
            {"Exif.Photo.DateTimeDigitized", "2003:10:02 12:30:59", u"2003-10-02T12:30:59"_s},
            {"Exif.Image.DateTime", "2003:10:02 12:30:59", u"2003-10-02T12:30:59"_s},
            {original, "2003-10-02T12:30:59+08:00", u"2003-10-02T12:30:59"_s},
            {original, "0000:00:00 00:00:00", {}},
            {original, "    :  :     :  :  ", {}},
            {original, "2003:02:30 12:30:59", {}},
            {original, "yesterday", {}},
        };
        for (const auto& [tag, text, expected] : cases) {
            const PictureFacts facts = factsWith([&](Exiv2::ExifData& exif) { exif[tag] = text; });
            QCOMPARE(facts.taken.toString(Qt::ISODate), expected);
        }
    }

    void placesOfSeveralKinds() {
        const auto place = [](const char* north, const char* east, const char* height, uint16_t below) {
            return factsWith([=](Exiv2::ExifData& exif) {
                       exif["Exif.GPSInfo.GPSLatitude"] = north;
                       exif["Exif.GPSInfo.GPSLongitude"] = east;
                       exif["Exif.GPSInfo.GPSAltitude"] = height;
                       exif["Exif.GPSInfo.GPSAltitudeRef"] = std::to_string(below);
                   })
                .place;
        };
        QCOMPARE(place("31/1 0/1 0/1", "35/1 30/1 0/1", "400/1", 1), u"北纬 31.0000°  东经 35.5000°  高 -400 米"_s);
        QCOMPARE(place("31/1 0/1 0/1", "35/1 30/1 0/1", "0/0", 0), u"北纬 31.0000°  东经 35.5000°"_s);
        QCOMPARE(place("0/0 0/0 0/0", "0/0 0/0 0/0", "0/0", 0), QString());  // a camera that has not found itself
    }

    void nonsenseIsNotSaid() {
        const PictureFacts facts = factsWith([](Exiv2::ExifData& exif) {
            exif["Exif.Photo.ExposureTime"] = Exiv2::URational(0, 0);
            exif["Exif.Photo.FNumber"] = Exiv2::URational(0, 10);
            exif["Exif.GPSInfo.GPSLatitude"] = "131/1 0/1 0/1";
            exif["Exif.GPSInfo.GPSLongitude"] = "1/0 0/0 0/1";
            exif["Exif.Photo.MakerNote"] = std::string(30000, '\xa5');
        });
        QVERIFY(facts.lines().isEmpty());
        for (const QByteArray& bytes : {QByteArray(), QByteArray("\xff\xd8"), bmpBytes(24), QByteArray(70000, '\xff')})
            QVERIFY(pictureFacts(bytes).lines().isEmpty());
    }

    void titlesOfOtherSystems() {
        const PictureFacts facts = factsWith([](Exiv2::ExifData& exif) {
            exif["Exif.Image.ImageDescription"] = "\xba\xfe\xb1\xdf";  // GBK
        });
        QCOMPARE(facts.title, u"湖边"_s);
    }
};

Registered<TestPictureFacts> registeredPictureFacts;

#include "picture_facts_test.moc"
