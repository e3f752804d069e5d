#include "platform/picture/formats/helper_reading.h"

#include "../../../support/run_all.h"
#include "../picture_samples.h"
#include "format_samples.h"
#include "platform/picture/formats/decoded_layout.h"

using namespace Qt::Literals::StringLiterals;

namespace {

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) qFatal("No place for a program.");
    file.write(bytes);
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QByteArray rawBytes(const DecodedPicture& header) {
    return {reinterpret_cast<const char*>(&header), sizeof header};
}

class TestHelperReading : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aHelperThatFailsEndsWithAClearText() {
        const QTemporaryDir folder;
        const auto back = qScopeGuard([] { setPictureReaders(); });
        setPictureReaders({folder.path(), 400});
        const QByteArray webp = webpBytes(quadrants({16, 12}), true);
        const auto failure = [&] { return failureOf([&] { readAnyPicture(webp, u"图"_s); }); };
        const QString start = u"不能打开图片“图”："_s;
        QCOMPARE(failure(),
                 start + u"读取它要用的程序“"_s + folder.filePath(u"lunq-webp"_s) + u"”不见了，请重新安装本软件。"_s);
        const std::pair<QByteArray, QString> cases[] = {
            {"kill -9 $$", u"读取它的程序意外终止，它可能已损坏。"_s},
            {"exec sleep 20", u"读取它超出了时间或内存的限制，它可能已损坏。"_s},
            {"exit 127", u"读取 WebP 图片的程序库没有安装，请安装软件包 libwebp7 和 libwebpdemux2。"_s},
            {"exit 64", u"读取 WebP 图片的程序与本软件的版本不符，请重新安装本软件。"_s},
            {"exit 0", u"图片已损坏，或是不支持的 WebP 格式。"_s},
        };
        for (const auto& [script, text] : cases) {
            write(folder.filePath(u"lunq-webp"_s), "#!/bin/sh\n" + script + "\n");
            QCOMPARE(failure(), start + text);
        }
    }

    /// A helper that a malformed file has taken over.
    void nothingThatAHelperWritesIsTrusted() {
        const QTemporaryDir folder;
        const auto back = qScopeGuard([] { setPictureReaders(); });
        setPictureReaders({folder.path(), 10000});
        const DecodedPicture sound{.width = 2, .height = 1};
        const auto answer = [&](const DecodedPicture& header, qsizetype length) {
            const QByteArray bytes = rawBytes(header).leftJustified(length, '\x40', true);
            write(folder.filePath(u"answer"_s), bytes);
            write(folder.filePath(u"lunq-tiff"_s),
                  "#!/bin/sh\nexec cat '" + folder.filePath(u"answer"_s).toUtf8() + "' > /proc/self/fd/$2\n");
            QImage image;
            failureOf([&] { image = readAnyPicture(tiffBytes(quadrants({8, 8})), u"图"_s).picture.image(); });
            return image;
        };
        const auto length = qsizetype(sound.bytes());
        QCOMPARE(answer(sound, length).pixel(1, 0), qRgb(0x40, 0x40, 0x40));
        QVERIFY(answer(sound, length - 1).isNull());
        QVERIFY(answer(sound, length + 1).isNull());
        QVERIFY(answer(sound, 10).isNull());
        DecodedPicture changed[10];
        std::fill(std::begin(changed), std::end(changed), sound);
        changed[0].mark = 0;
        changed[1].width = 0;
        changed[2].height = 40000;
        changed[3].width = 3;
        changed[4].profileBytes = 0xFFFFFFFF;
        changed[5].exifBytes = 0x80000000;
        changed[6].orientation = 9;
        changed[7].across = 0;
        changed[8].colours = DecodedPicture::Colours(7);
        changed[9].alpha = DecodedPicture::Alpha(7);
        for (const DecodedPicture& header : changed) QVERIFY(answer(header, length).isNull());
    }

    void aFileIsReadByItsPath() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"照 '片.jpg"_s);
        write(path, webpBytes(quadrants({64, 48}), true));
        QCOMPARE(quadrantsOf(readAnyPicture(path).picture.image()), QByteArray("ABCD"));
        QVERIFY(failureOf([&] { readAnyPicture(folder.path()); }).contains(u"这不是文件"_s));
    }
};

static Registered<TestHelperReading> registered;

}  // namespace

#include "helper_reading_test.moc"
