#include "../../support/disk_faults.h"
#include "../../support/run_all.h"
#include "picture_samples.h"
#include "platform/picture/picture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int quality = 80;

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void save(const QImage& image, const QString& path, bool jpeg) {
    jpeg ? saveJpeg(image, path, quality) : SavePicture(image, path);
}

}  // namespace

class TestSavePicture : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void comesBackAsItWas() {
        const QImage image = quadrants({64, 48});
        const QString bmp = folder_.filePath(u"图.bmp"_s);
        SavePicture(image, bmp);
        QCOMPARE(LoadPicture(bmp).image(), image);
        const QByteArray bytes = contentOf(bmp);
        QVERIFY(bytes.startsWith("BM"));
        QCOMPARE(int(bytes[28]), 24);

        // The name does not decide the kind.
        saveJpeg(image, bmp, quality);
        QVERIFY(contentOf(bmp).startsWith("\xFF\xD8"));
        QCOMPARE(quadrantsOf(LoadPicture(bmp).image()), QByteArray("ABCD"));
    }

    void transparentBecomesWhite() {
        QImage image(16, 16, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        for (const bool jpeg : {true, false}) {
            const QString path = folder_.filePath(u"透明"_s);
            save(image, path, jpeg);
            QCOMPARE(LoadPicture(path).image().pixel(8, 8), 0xFFFFFFFF);
        }
    }

    void takesThePlaceOfTheOldFile() {
        const QString path = folder_.filePath(u"旧图.jpg"_s);
        saveJpeg(quadrants({640, 480}), path, quality);
        const auto permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
        QVERIFY(QFile::setPermissions(path, permissions));
        saveJpeg(quadrants({16, 16}), path, quality);
        QCOMPARE(LoadPicture(path).pixels(), QSize(16, 16));
        QCOMPARE(QFile::permissions(path) & ~(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser), permissions);
    }

    void failureNamesTheFileAndLeavesTheOldOne() {
        const QString file = folder_.filePath(u"文件.jpg"_s);
        saveJpeg(quadrants({16, 16}), file, quality);
        const QByteArray before = contentOf(file);
        const QString sub = folder_.filePath(u"夹"_s);
        QVERIFY(QDir().mkpath(sub));
        const QStringList entries = QDir(folder_.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);

        const std::tuple<QImage, QString, QString> cases[] = {
            {quadrants({16, 16}), folder_.filePath(u"没有这个夹/图.jpg"_s), u"文件夹不存在"_s},
            {quadrants({16, 16}), file + u"/图.jpg"_s, u"文件夹不存在"_s},
            {quadrants({16, 16}), sub, u"同名的文件夹"_s},
            {QImage(), file, u"没有图片"_s},
        };
        for (const auto& [image, path, reason] : cases)
            for (const bool jpeg : {true, false}) {
                const QString text = failureOf([&, &image = image, &path = path] { save(image, path, jpeg); });
                QVERIFY2(text.contains(reason) && text.contains(QDir::toNativeSeparators(path)), qPrintable(text));
            }
        QCOMPARE(contentOf(file), before);
        QCOMPARE(before, encodeJpeg(quadrants({16, 16}), quality));
        QVERIFY(!attempt([] { encodeJpeg({}, quality); }));
        QCOMPARE(QDir(folder_.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), entries);
    }

    /// Also when only the last bytes find no room, which neither encoders nor files report by themselves.
    void fullOrReadOnlyDiskLeavesTheOldPicture() {
        const PlainUser user;
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"文件.jpg"_s);
        saveJpeg(quadrants({16, 16}), file, quality);
        const QByteArray before = contentOf(file);
        const auto failsToSave = [&](bool jpeg, const QString& reason) {
            const QString text = failureOf([&] { save(quadrants({640, 480}), file, jpeg); });
            QVERIFY2(text.contains(file) && text.contains(reason), qPrintable(text));
            QCOMPARE(contentOf(file), before);
            QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{u"文件.jpg"_s});
        };
        for (const bool jpeg : {true, false}) {
            const QString whole = folder.filePath(u"whole"_s);
            save(quadrants({640, 480}), whole, jpeg);
            const qint64 size = QFileInfo(whole).size();
            QVERIFY(QFile::remove(whole));
            for (const qint64 room : {qint64(0), qint64(1000), size - 1}) {
                const FullDisk full(room);
                failsToSave(jpeg, {});
            }
            QVERIFY(QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner));
            failsToSave(jpeg, u"文件夹不能写入"_s);
            QVERIFY(QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        }
    }

  private:
    QTemporaryDir folder_;
};

static Registered<TestSavePicture> registered;

#include "save_picture_test.moc"
