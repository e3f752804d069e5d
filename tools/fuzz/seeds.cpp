// Writes what the fuzz targets begin with: make_fuzz_seeds FOLDER [FOLDER-OF-JET-DATABASES]

#include "jet_maker/jet_maker.h"
#include "platform/picture/formats/format_samples.h"
#include "platform/picture/picture_samples.h"
#include "platform/picture/profile_samples.h"
#include "support/sample_catalogue.h"

#include <sqlite3.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QUuid>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The seeds of one target, in a folder of its name.
class Seeds {
  public:
    Seeds(const QString& folder, const QString& target) : folder_(folder + u'/' + target) { QDir().mkpath(folder_); }

    QString next() { return folder_ + u"/seed-%1"_s.arg(++count_, 2, 10, QChar(u'0')); }

    void add(const QByteArray& bytes) {
        QFile file(next());
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("No place for seeds.");
    }

    void addLines(const QString& lines) {
        for (const QString& line : lines.split(u'\n', Qt::SkipEmptyParts)) {
            add(line.trimmed().replace(u" ⏎ "_s, u"\n"_s).toUtf8());
        }
    }

  private:
    QString folder_;
    int count_ = 0;
};

void pictures(Seeds seeds) {
    using Kind = JpegOptions::Kind;
    const QImage image = quadrants({48, 40});
    for (const Kind kind : {Kind::baseline, Kind::progressive, Kind::coloursApart, Kind::greyscale, Kind::inks,
                            Kind::lights, Kind::arithmetic}) {
        seeds.add(jpegBytes(image, {kind}));
        seeds.add(jpegBytes(image, {kind, 6, kind == Kind::progressive}));
        seeds.add(jpegBytes(image, {kind}) + QByteArray(30, '\0'));
    }
    for (const QSize sampling : {QSize(1, 1), QSize(2, 1), QSize(1, 2)}) {
        seeds.add(jpegBytes(image, {.sampling = sampling, .restartInterval = 2}));
        seeds.add(jpegBytes(image, {.sampling = sampling, .quality = 40, .ownCodes = true}));
    }
    for (const bool bigEndian : {false, true})
        seeds.add(withPreview(jpegBytes(image), jpegBytes(quadrants({16, 12})), 8, bigEndian));
    seeds.add(jpegWithSegments(jpegBytes(image), displayP3Profile(), 200));
    seeds.add(jpegWithSegments(jpegBytes(image, {Kind::inks}), inkProfile()));
    seeds.add(withMoreScans(jpegBytes(image, {Kind::progressive}), 30));
    seeds.add(withSides(jpegBytes(image), {600, 500}));
    for (const int depth : {1, 4, 8, 16, 24, 32}) seeds.add(bmpBytes(depth, depth == 24));
    seeds.add(bmpBytes(8, false, true));
}

void profiles(Seeds seeds) {
    const std::pair<ColourKind, QByteArray> all[] = {
        {ColourKind::grey, greyProfile(1.8)},     {ColourKind::lights, displayP3Profile(2.1)},
        {ColourKind::lights, displayP3Profile()}, {ColourKind::lights, adobeRgbProfile()},
        {ColourKind::lights, tableProfile()},     {ColourKind::inks, inkProfile()},
    };
    for (const auto& [kind, profile] : all) seeds.add(char(kind) + profile);
}

void otherFormats(Seeds seeds) {
    const QImage image = quadrants({48, 40});
    const Beside beside{displayP3Profile(), exifBlock(6), "<x tiff:Orientation=\"6\"/>"};
    for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_Indexed8,
                                        QImage::Format_Grayscale16, QImage::Format_RGBA64, QImage::Format_Mono})
        seeds.add(pngBytes(image.convertToFormat(format), beside));
    seeds.add(gifBytes());
    for (const bool lossless : {false, true}) seeds.add(webpBytes(image, lossless, beside));
    seeds.add(webpBytes(image, image.mirrored()));
    using Kind = TiffOptions::Kind;
    for (const Kind kind : {Kind::lights, Kind::deepLights, Kind::lightsWithAlpha, Kind::greys, Kind::inks, Kind::lab})
        seeds.add(tiffBytes(image, {.kind = kind, .orientation = 6, .profile = inkProfile()}));
    for (const bool av1 : {false, true}) seeds.add(heifBytes(image, {.av1 = av1, .turn = 6}, beside));
}

void statements(Seeds seeds) {
    seeds.addLines(
        uR"(
        tc01 ⏎ 序号 = 3
        [tc01] ⏎ 编号 = 'AA' Or IsNull(图片)
        SELECT * FROM tc01 WHERE InStr(编号,'a') > 0 And  DateValue(日期) > #2003-10-01# And 序号 > 2 ORDER BY [序号] ⏎ 序号 < 4
        SELECT 序号, 备注 FROM tc01 AS t WHERE LCase(编号) = 'aa' ORDER BY 日期 DESC; ⏎ Left(编号, 1) <> "b"
        SELECT count(*) AS 数, max(序号) FROM tc01 GROUP BY 编号 HAVING 数 > 0 ⏎ 数 = 1
        SELECT a.序号, b.标题 FROM tc01 a LEFT JOIN tcbm b ON a.序号 = b.序号 WHERE a.序号 IN (1,2,3) ⏎ 序号 = 2
        SELECT * FROM (SELECT * FROM tc01 UNION ALL SELECT * FROM tc01) LIMIT 3 ⏎ 0 UNION SELECT 5
        DELETE FROM tc01 WHERE 序号 = 3 ⏎ 1
        DROP TABLE tcbm ⏎ 2003-10-01 12:30:59
        CREATE TABLE tc02 ([序号] LONG PRIMARY KEY,[编号] TEXT(10) NOT NULL,[图片] LONGBINARY,[备注] MEMO DEFAULT 'x')
        SELECT `序号`, 1.5e3, &H1F, 'it''s', #2003/10/1 12:30# FROM tc01 ⏎ 序号 BETWEEN 1 AND 2)"_s);
}

void typedTexts(Seeds seeds) {
    seeds.addLines(
        uR"(
        2003-10-01
        2003/10/1 12:30:59
        2003年10月1日 9:05
        2003-
        03
        1,234.5e+2
        -&HFF0000&
        &O17
        1024 * 768
        tc00tc01tc02
        tc01 旅行
        0003.jpg
        yyyy-mm-dd hh:mm:ss
        it's)"_s);
}

/// Tables and values that the program would not have made.
void oddCatalogues(Seeds& seeds) {
    const QString usual =
        u"CREATE TABLE tc01(序号 LONG,编号 TEXT(10),大小 SINGLE,规格 TEXT(12),日期 DATETIME,图片 LONGBINARY,备注 "
        u"TEXT(50));"
        "CREATE TABLE long_binary(id INTEGER PRIMARY KEY,bytes BLOB);INSERT INTO long_binary VALUES(7,x'424d00ff');"_s;
    for (
        const QString& change : {
            u"INSERT INTO tc01 VALUES(1,'1',1.5,'4 * 3','2003-10-01',7,'a'),(9e99,x'00',-1,'*','x','7',NULL);"_s,
            u"INSERT INTO tc01 VALUES(1,'1',1,1,1,-7,1),(NULL,NULL,NULL,NULL,NULL,9223372036854775807,NULL);"_s,
            u"ALTER TABLE tc01 RENAME 备注 TO _rowid_;ALTER TABLE tc01 RENAME 序号 TO rowid;INSERT INTO tc01(图片) VALUES(7);"_s,
            u"UPDATE long_binary SET bytes=3.5;INSERT INTO tc01 VALUES(1,1,1,1,1,7,1);CREATE INDEX i ON tc01(序号);"_s,
            u"DROP TABLE long_binary;CREATE VIEW long_binary AS SELECT 1 id,'a' bytes;INSERT INTO tc01(图片) VALUES(1);"_s,
            u"CREATE TRIGGER t AFTER UPDATE ON tc01 BEGIN DELETE FROM tc01; END;INSERT INTO tc01(序号) VALUES(3);"_s,
            u"CREATE TABLE tcsz(a TEXT(-5),b BINARY(99999999999),c,d INT PRIMARY KEY,e YESNO,f CURRENCY CHECK(f>0)) "
            "WITHOUT ROWID;INSERT INTO tcsz VALUES(1,2,3,4,'x',5);"_s,
            u"CREATE TABLE tcbm(a INTEGER PRIMARY KEY,b AS (a*2),备注 TEXT(3));INSERT INTO tcbm(a) VALUES(-9),(5);"_s,
            u"PRAGMA journal_mode=WAL;PRAGMA user_version=9;INSERT INTO tc01(序号,日期) VALUES(1,'2003-10-01');"_s,
            u"CREATE VIRTUAL TABLE tc00 USING fts5(序号,备注);INSERT INTO tc00 VALUES(1,2);"_s,
        })
        seeds.add((usual + change).toUtf8());
}

/// Small pages, so that a small file has many of them, and the settings of the catalogue's files.
void addCatalogue(Seeds& seeds, const QByteArray& settings) {
    const QString path = seeds.next();
    QFile::remove(path);
    const SampleCatalogue sample;
    if (!QFile::copy(sample.file(u"lunq.mdb"_s), path)) qFatal("No place for seeds.");
    sqlite3* file = nullptr;
    sqlite3_open(path.toUtf8().constData(), &file);
    const QByteArray sql =
        "DELETE FROM pmtp WHERE 序号 > 1; DELETE FROM tc01 WHERE 序号 > 5; DELETE FROM tcys WHERE 序号 > 1;"
        "PRAGMA page_size = 512;" +
        settings + "VACUUM";
    if (sqlite3_exec(file, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK) qFatal("%s", sqlite3_errmsg(file));
    sqlite3_close(file);
}

void catalogues(Seeds seeds) {
    addCatalogue(seeds, "");
    addCatalogue(seeds, "PRAGMA auto_vacuum = 0; PRAGMA encoding = 'UTF-16le'; PRAGMA application_id = 0;");
    addCatalogue(seeds, "ALTER TABLE tc01 RENAME COLUMN 备注 TO _rowid_; CREATE VIEW tc05 AS SELECT * FROM tc01;");
    oddCatalogues(seeds);
}

/// Every type of column, and a row of values beside one of nothing.
QByteArray tinyJetDatabase(const jet::Form& form) {
    using jet::Type;
    jet::Table table{u"T"_s,
                     {{u"序号"_s, Type::longInteger},
                      {u"日期"_s, Type::date},
                      {u"价"_s, Type::currency},
                      {u"大小"_s, Type::real},
                      {u"小"_s, Type::byte},
                      {u"短"_s, Type::integer},
                      {u"单"_s, Type::single},
                      {u"真"_s, Type::truth},
                      {u"名"_s, Type::text, 20},
                      {u"字节"_s, Type::binary, 8},
                      {u"号"_s, Type::guid},
                      {u"图片"_s, Type::ole},
                      {u"备注"_s, Type::memo}},
                     {{7, QDateTime(QDate(2003, 10, 2), QTime(12, 0)), u"1.2345"_s, 1.5, 2, 3, 0.5F, true, u"字a"_s,
                       QByteArray("ab"), QUuid(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11), jet::wrapped(bmpBytes(24)), u"记"_s},
                      jet::Row(13)}};
    if (form.version == jet::Version::jet4) {
        table.columns << jet::Column{u"准"_s, Type::decimal, 0, 2};
        table.rows[0] << u"-12.34"_s;
        table.rows[1] << QVariant();
    }
    return jet::database({table}, form);
}

/// Some made by hand, and what real ones there are.
void foreignDatabases(Seeds seeds, const QString& samples) {
    seeds.add(tinyJetDatabase({}));
    seeds.add(tinyJetDatabase({.version = jet::Version::jet3}));
    if (samples.isEmpty()) return;
    constexpr qint64 quickToRead = 500'000;
    for (const QFileInfo& sample : QDir(samples).entryInfoList({u"*.mdb"_s}, QDir::Files)) {
        QFile file(sample.filePath());
        if (file.size() < quickToRead && file.open(QIODevice::ReadOnly)) seeds.add(file.readAll());
    }
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2) return EXIT_FAILURE;
    const QString& folder = arguments[1];
    pictures({folder, u"picture"_s});
    profiles({folder, u"profile"_s});
    otherFormats({folder, u"formats"_s});
    statements({folder, u"dialect"_s});
    typedTexts({folder, u"typed"_s});
    catalogues({folder, u"catalogue"_s});
    foreignDatabases({folder, u"foreign"_s}, arguments.value(2));
    return EXIT_SUCCESS;
}
