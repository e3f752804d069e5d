#include "platform/picture/picture_facts.h"

#include "platform/picture/exif_library.h"

#include <iconv.h>
#include <lcms2.h>

#include <cmath>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr uint32_t smallestProfile = 128;

/// Texts of captions are UTF-8, or what the system of their writer used.
QString decoded(const std::string& bytes) {
    const QByteArray text = QByteArray::fromStdString(bytes).trimmed();
    if (QUtf8StringView(text).isValidUtf8()) return QString::fromUtf8(text).simplified();
    const std::unique_ptr<void, int (*)(void*)> converter(iconv_open("UTF-8", "GB18030"), iconv_close);
    if (reinterpret_cast<intptr_t>(converter.get()) == -1) return {};
    QByteArray made(text.size() * 4, '\0');
    char* in = const_cast<char*>(text.constData());
    char* out = made.data();
    size_t left = size_t(text.size()), room = size_t(made.size());
    if (iconv(converter.get(), &in, &left, &out, &room) != 0) return {};
    return QString::fromUtf8(made.left(made.size() - qsizetype(room))).simplified();
}

/// The tags of one file, by the library's names.
class Tags {
  public:
    explicit Tags(const Exiv2::Image& image)
        : exif_(image.exifData()), xmp_(image.xmpData()), iptc_(image.iptcData()) {}

    QString text(const char* name) const {
        const QByteArrayView key(name);
        if (key.startsWith("Xmp")) return textIn<Exiv2::XmpKey>(xmp_, name);
        if (key.startsWith("Iptc")) return textIn<Exiv2::IptcKey>(iptc_, name);
        return textIn<Exiv2::ExifKey>(exif_, name);
    }
    QString firstOf(std::initializer_list<const char*> names) const {
        for (const char* name : names)
            if (QString found = text(name); !found.isEmpty()) return found;
        return {};
    }
    /// The number in a tag of EXIF; nothing that a camera could mean is 0.
    double number(const char* name, long place = 0) const {
        if (!has(name, place)) return 0;
        const auto found = exif_.findKey(Exiv2::ExifKey(name));
        const auto [above, below] = found->toRational(place);
        return below == 0 ? 0 : double(above) / below;
    }
    /// Whether a tag of EXIF has a number, which 0/0 is not.
    bool has(const char* name, long place = 0) const {
        const auto found = exif_.findKey(Exiv2::ExifKey(name));
        return found != exif_.end() && place < found->count() && found->toRational(place).second != 0;
    }

  private:
    template <class Key, class Data>
    static QString textIn(const Data& data, const char* name) {
        const auto found = data.findKey(Key(name));
        if (found == data.end() || found->count() == 0) return {};
        const bool isWide = QByteArrayView(name).contains(".XP");
        std::string text = isWide ? found->print() : found->toString();
        // A title in several languages is written as lang="x-default" and the title.
        if (text.starts_with("lang=")) text.erase(0, text.find(' ') + 1);
        return decoded(text);
    }

    const Exiv2::ExifData& exif_;
    const Exiv2::XmpData& xmp_;
    const Exiv2::IptcData& iptc_;
};

QString camera(const Tags& tags) {
    const QString make = tags.text("Exif.Image.Make"), model = tags.text("Exif.Image.Model");
    return model.startsWith(make, Qt::CaseInsensitive) ? model : (make + u' ' + model).trimmed();
}

QString exposure(const Tags& tags) {
    QStringList parts;
    const auto add = [&](double number, const QString& text) {
        if (number > 0 && std::isfinite(number)) parts << text.arg(QString::number(number, 'g', 4));
    };
    const double seconds = tags.number("Exif.Photo.ExposureTime");
    if (seconds > 0 && seconds < 0.3)
        parts << u"1/%1 秒"_s.arg(std::lround(1 / seconds));
    else
        add(seconds, u"%1 秒"_s);
    add(tags.number("Exif.Photo.FNumber"), u"f/%1"_s);
    add(tags.number("Exif.Photo.ISOSpeedRatings"), u"ISO %1"_s);
    add(tags.number("Exif.Photo.FocalLength"), u"%1 毫米"_s);
    return parts.join(u"  "_s);
}

QString place(const Tags& tags) {
    const auto degrees = [&](const char* name) {
        return tags.number(name, 0) + tags.number(name, 1) / 60 + tags.number(name, 2) / 3600;
    };
    const double north = degrees("Exif.GPSInfo.GPSLatitude"), east = degrees("Exif.GPSInfo.GPSLongitude");
    const bool isPlace = tags.has("Exif.GPSInfo.GPSLatitude") && tags.has("Exif.GPSInfo.GPSLongitude") && north >= 0 &&
                         north <= 90 && east >= 0 && east <= 180;
    if (!isPlace) return {};
    const bool isSouth = tags.text("Exif.GPSInfo.GPSLatitudeRef") == u"S";
    const bool isWest = tags.text("Exif.GPSInfo.GPSLongitudeRef") == u"W";
    QString text = u"%1 %2°  %3 %4°"_s.arg(isSouth ? u"南纬"_s : u"北纬"_s, QString::number(north, 'f', 4),
                                           isWest ? u"西经"_s : u"东经"_s, QString::number(east, 'f', 4));
    if (tags.has("Exif.GPSInfo.GPSAltitude")) {
        const bool isBelowSea = tags.number("Exif.GPSInfo.GPSAltitudeRef") == 1;
        const long metres = std::lround(tags.number("Exif.GPSInfo.GPSAltitude"));
        text += u"  高 %1 米"_s.arg(isBelowSea ? -metres : metres);
    }
    return text;
}

/// Cameras write "2003:10:02 12:30:59", programs "2003-10-02T12:30:59+08:00"; a camera without a date writes zeros.
QDateTime moment(const QString& text) {
    QString digits = text.left(19);
    for (const int place : {4, 7})
        if (digits.size() > place) digits[place] = u'-';
    if (digits.size() > 10) digits[10] = u'T';
    const QDateTime read = QDateTime::fromString(digits, Qt::ISODate);
    return read.isValid() && read.date().year() > 1800 ? read : QDateTime();
}

QDateTime taken(const Tags& tags) {
    for (const char* name : {"Exif.Photo.DateTimeOriginal", "Exif.Photo.DateTimeDigitized", "Xmp.exif.DateTimeOriginal",
                             "Xmp.photoshop.DateCreated", "Exif.Image.DateTime"})
        if (const QDateTime found = moment(tags.text(name)); found.isValid()) return found;
    return {};
}

QString nameOfProfile(const Exiv2::DataBuf& bytes) {
    if (bytes.size_ < long(smallestProfile)) return {};
    const std::unique_ptr<void, cmsBool (*)(void*)> profile(
        cmsOpenProfileFromMem(bytes.pData_, cmsUInt32Number(bytes.size_)), cmsCloseProfile);
    std::array<wchar_t, 100> name{};
    if (!profile || cmsGetProfileInfo(profile.get(), cmsInfoDescription, "zh", "CN", name.data(), sizeof name) == 0)
        return {};
    name.back() = 0;
    return QString::fromWCharArray(name.data()).simplified();
}

PictureFacts factsOf(Exiv2::Image& image) {
    const Tags tags(image);
    PictureFacts facts;
    facts.camera = camera(tags);
    facts.lens = tags.text("Exif.Photo.LensModel");
    facts.exposure = exposure(tags);
    facts.place = place(tags);
    facts.title = tags.firstOf({"Xmp.dc.title", "Iptc.Application2.ObjectName", "Exif.Image.XPTitle",
                                "Xmp.dc.description", "Iptc.Application2.Caption", "Exif.Image.ImageDescription"});
    facts.taken = taken(tags);
    if (image.iccProfileDefined()) facts.profile = nameOfProfile(*image.iccProfile());
    return facts;
}

}  // namespace

QList<std::pair<QString, QString>> PictureFacts::lines() const {
    QList<std::pair<QString, QString>> all{{u"相机"_s, camera}, {u"镜头"_s, lens},  {u"曝光"_s, exposure},
                                           {u"地点"_s, place},  {u"标题"_s, title}, {u"色彩"_s, profile}};
    if (taken.isValid()) all.insert(3, {u"拍摄时间"_s, taken.toString(u"yyyy-MM-dd HH:mm:ss"_s)});
    all.removeIf([](const auto& line) { return line.second.isEmpty(); });
    return all;
}

PictureFacts pictureFacts(const QByteArray& jpeg) {
    if (!jpeg.startsWith("\xff\xd8")) return {};
    try {
        return factsOf(*openedTags(jpeg));
    } catch (const Exiv2::AnyError&) {
        return {};
    }
}
