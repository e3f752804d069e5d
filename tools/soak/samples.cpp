#include "soak/samples.h"

#include "catalogue/album_rules.h"
#include "catalogue/fixed_tables.h"
#include "catalogue/picture_field.h"
#include "platform/base/error.h"
#include "platform/database/records/database.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <QRandomGenerator>

using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray encoded(const QImage& image, const char* format, int quality = 80) {
    QBuffer buffer;
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    if (!writer.write(image)) throw Error(writer.errorString());
    return buffer.data();
}

QImage noise(QSize size, quint64 seed) {
    QImage image(size, QImage::Format_RGB32);
    QRandomGenerator random(static_cast<quint32>(seed));
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) image.setPixel(x, y, random.generate());
    return image;
}

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) throw Error(file.errorString());
}

constexpr QSize smallSize(64, 48), largeSize(1900, 1400);

void addAlbum(const Database& database, int number, const QString& table) {
    database.Execute(createAlbumSql(table));
    Recordset directory = database.OpenRecordset(u"tcbm"_s);
    directory.AddNew();
    directory.Fields(u"序号"_s).SetValue(number);
    directory.Fields(u"表名"_s).SetValue(table);
    directory.Fields(u"标题"_s).SetValue(u"册"_s + table);
    directory.Update();
}

void addPictures(const Database& database, const QString& table, int count, Samples& samples) {
    Recordset rows = database.OpenRecordset(table);
    for (int number = 1; number <= count; ++number) {
        const QByteArray bytes = samples.small();
        rows.AddNew();
        rows.Fields(u"序号"_s).SetValue(number);
        rows.Fields(u"编号"_s).SetValue(u" "_s);
        rows.Fields(u"大小"_s).SetValue(kilobytesText(bytes.size()));
        rows.Fields(u"规格"_s).SetValue(smallSpec);
        rows.Fields(u"日期"_s).SetValue(QDateTime(QDate(2003, 10, 1).addDays(number * 7919 % 4001), QTime(12, 0)));
        storePictureBytes(rows.Fields(u"图片"_s), bytes);
        rows.Update();
    }
}

}  // namespace

Samples::Samples(quint64 serial) : serial_(serial) {}

/// With a comment behind the first marker that no other picture has.
QByteArray Samples::marked(const QByteArray& jpeg) {
    constexpr int firstMarker = 2;
    const QByteArray text = QByteArray::number(++serial_).rightJustified(20, '0');
    QByteArray comment("\xFF\xFE\x00", 3);
    comment += char(text.size() + 2);
    return QByteArray(jpeg).insert(firstMarker, comment + text);
}

QByteArray Samples::small() {
    return marked(encoded(noise(smallSize, serial_), "jpeg"));
}

QByteArray Samples::large() {
    static const QByteArray jpeg = encoded(noise(largeSize, 0), "jpeg", 70);
    return marked(jpeg);
}

QByteArray Samples::bitmap() {
    return encoded(noise(smallSize, ++serial_), "bmp");
}

void Samples::writeFiles(const QString& folder, int first, int count) {
    constexpr int few = 2;
    for (int i = 0; i < count; ++i) {
        const bool isBitmap = count > few && i == 1;
        const QString ending = isBitmap ? u"bmp"_s : u"jpg"_s;
        const QByteArray bytes = isBitmap ? bitmap() : count > few && i == 2 ? large() : small();
        writeFile(QDir(folder).filePath(u"%1.%2"_s.arg(first + i).arg(ending)), bytes);
    }
}

void Samples::writeLarge(const QString& path) {
    writeFile(path, large());
}

void removeCatalogue(const QString& path) {
    for (const QString& file : {path, path + u"-journal"_s}) QFile::remove(file);
}

void makeCatalogue(const QString& fresh, const QString& path, int longPictures) {
    constexpr int workPictures = 24;
    QFile::remove(path);
    if (!QFile::copy(fresh, path)) throw Error(u"%1 cannot be copied to %2"_s.arg(fresh, path));
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    const Database database = OpenDatabase(path);
    Transaction transaction(database);
    Samples samples(0);
    int number = 4;
    for (const auto& [table, count] :
         {std::pair(workAlbum, workPictures), {otherAlbum, workPictures}, {longAlbum, longPictures}}) {
        addAlbum(database, ++number, table);
        addPictures(database, table, count, samples);
    }
    Recordset all = database.OpenRecordset(u"SELECT * FROM tcan WHERE 编号 = 'v'"_s);
    all.Edit();
    all.Fields(u"图册"_s).SetValue(demoTable + workAlbum + otherAlbum + longAlbum);
    all.Update();
    transaction.commit();
}

void makeOtherCatalogue(const QString& path) {
    const Database other = createDatabase(path);
    Transaction transaction(other);
    createFixedTables(other);
    int number = 0;
    for (const QString& table : {u"tc02"_s, u"tc05"_s}) addAlbum(other, ++number, table);
    transaction.commit();
}
