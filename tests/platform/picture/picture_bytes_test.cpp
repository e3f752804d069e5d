#include "platform/picture/picture_bytes.h"

#include "../../support/run_all.h"
#include "picture_samples.h"

#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

namespace {

using Kind = JpegOptions::Kind;
using enum PictureBytes;

/// How many of the beginnings of a picture are taken for whole, the last of which misses `cut` bytes.
int wholeBeginnings(const QByteArray& picture, qsizetype cut) {
    int count = 0;
    for (qsizetype length = 0; length <= picture.size() - cut; ++length)
        count += pictureBytes(picture.left(length)) == whole ? 1 : 0;
    return count;
}

class TestPictureBytes : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void everyKindOfJpegEndsAtItsEnd() {
        const QImage image = quadrants({64, 48});
        const QByteArray small = jpegBytes(quadrants({16, 16}));
        QList<QByteArray> pictures{withPreview(jpegBytes(image), small, 6), withMoreScans(jpegBytes(image), 3)};
        for (const Kind kind :
             {Kind::baseline, Kind::progressive, Kind::coloursApart, Kind::greyscale, Kind::arithmetic})
            for (const unsigned restartInterval : {0U, 2U}) {
                JpegOptions options;
                options.kind = kind;
                options.restartInterval = restartInterval;
                pictures << jpegBytes(image, options);
            }
        // As cameras and programs write them: a comment behind the start, fill bytes before a marker.
        pictures << QByteArray(pictures[2]).insert(2, "\xFF\xFF\xFF\xFE" + QByteArray("\0\6\xFF\xD9\xFF\xD9", 6));
        for (const QByteArray& picture : pictures) {
            QVERIFY(pictureBytes(picture) == whole);
            QCOMPARE(wholeBeginnings(picture, 1), 0);
            QVERIFY(pictureBytes(picture.chopped(1)) == truncated);
            // As values are stored, as cameras append further pictures, and as downloads are filled up.
            QVERIFY(pictureBytes(picture + QByteArray(100'000, '\0')) == whole);
            QVERIFY(pictureBytes(picture + small.chopped(10)) == whole);
            QVERIFY(pictureBytes(picture.left(picture.size() / 2) + QByteArray(100'000, '\0')) == truncated);
        }
    }

    void longPictures() {
        const QByteArray picture = jpegBytes(quadrants({64, 48})), end = picture.right(2);
        const qsizetype scan = picture.indexOf(QByteArrayView("\xFF\xDA"));
        // Marks and ends fall on every place of the buffer through which the bytes are read.
        for (const int length : {65534, 65535, 65536, 65537, 131071}) {
            QByteArray bytes = picture.left(scan + 14);
            bytes += QByteArray("\x7F\xFF\0", 3).repeated((length - bytes.size()) / 3);
            bytes += QByteArray(length - bytes.size(), 'x');
            QVERIFY(pictureBytes(bytes + end) == whole);
            QVERIFY(pictureBytes(bytes + end.left(1)) == truncated);
        }
    }

    void bitmaps() {
        for (const int depth : {1, 4, 8, 16, 24, 32})
            for (const bool topDown : {false, true}) {
                const QByteArray picture = bmpBytes(depth, topDown);
                QVERIFY(pictureBytes(picture) == whole && pictureBytes(picture + "more") == whole);
                QVERIFY(pictureBytes(picture.chopped(4)) == truncated);
            }
        QVERIFY(pictureBytes(bmpBytes(8, false, true)) == whole);
        QVERIFY(pictureBytes(bmpBytes(8, false, true).chopped(1)) == truncated);
        QVERIFY(pictureBytes(bmpWithHeader(56, 32)) == whole && pictureBytes(bmpWithHeader(52, 16)) == whole);
        // A file that was copied in part, as a large picture is.
        QVERIFY(pictureBytes(withSides(bmpBytes(24), {30'000, 30'000})) == truncated);
    }

    void otherBytes() {
        for (const QByteArray& bytes :
             {QByteArray(), QByteArray("B"), QByteArray("\xFF"), QByteArray("GIF89a") + QByteArray(100, 'x'),
              QByteArray("BMW 的照片") + QByteArray(100, ' '), QByteArray("\xFF\xD8 text"),
              QByteArray("\x89PNG\r\n\x1A\n") + QByteArray(100, '\0'), QByteArray(1000, '\0'),
              withSides(bmpBytes(24), {0, 2})})
            QVERIFY2(pictureBytes(bytes) == notAPicture, bytes.left(10).constData());
    }

    void files() {
        const QTemporaryDir folder;
        QFile file(folder.filePath(u"图.jpg"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(jpegBytes(quadrants({64, 48}))) > 0);
        file.close();
        QVERIFY(pictureBytesOfFile(file.fileName()) == whole);
        const QString pipe = folder.filePath(u"管.jpg"_s), link = folder.filePath(u"链.jpg"_s);
        QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
        QVERIFY(QFile::link(pipe, link));
        for (const QString& path : {pipe, link, u"/dev/zero"_s, folder.path()})
            QVERIFY(failureOf([&] { pictureBytesOfFile(path); }).contains(path + u"”：这不是文件"_s));
        QVERIFY(failureOf([&] { pictureBytesOfFile(folder.filePath(u"无"_s)); }).contains(u"无”：找不到文件"_s));
    }
};

const Registered<TestPictureBytes> registered;

}  // namespace

#include "picture_bytes_test.moc"
