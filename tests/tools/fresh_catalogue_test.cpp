#include "../support/run_all.h"
#include "../support/test_files.h"
#include "catalogue/album_rules.h"
#include "catalogue/picture_field.h"
#include "platform/database/records/database.h"

#include <QTextDocument>

using namespace Qt::Literals::StringLiterals;

/// A copy of the catalogue that the program is shipped with.
class TestFreshCatalogue : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() {
        const QString copy = folder_.filePath(u"lunq.mdb"_s);
        QVERIFY(QFile::copy(qEnvironmentVariable("LUNQ_FRESH_CATALOGUE"), copy));
        database_ = OpenDatabase(copy);
    }

    void holdsEveryTable() {
        const QStringList tables = database_.TableDefs();
        for (const QString& table :
             {u"tcbm"_s, u"tc00"_s, u"tcan"_s, u"tcsz"_s, u"tcys"_s, u"tctb"_s, u"pmtp"_s, u"tcbz"_s, u"tccx"_s})
            QVERIFY2(tables.contains(table), qUtf8Printable(table));
        QCOMPARE(tables.size(), 9);
        QCOMPARE(rows(u"pmtp"_s).rowCount(), 0);
        QCOMPARE(rows(u"tccx"_s).rowCount(), 0);
    }

    void opensOnTheDemonstrationAlbum() {
        Recordset albums = rows(u"tcbm"_s);
        QCOMPARE(albums.rowCount(), 1);
        QCOMPARE(albums.Fields(u"序号"_s).Value().toInteger(), 1);
        QCOMPARE(albums.Fields(u"表名"_s).Value().toText(), u"tc00"_s);
        QCOMPARE(albums.Fields(u"标题"_s).Value().toText(), u"演示"_s);
    }

    void picturesAreWholeDifferentAndTrulyDescribed() {
        QSet<QByteArray> seen;
        QSet<QString> captions;
        QSet<int> years;
        int bitmaps = 0;
        int number = 0;
        for (Recordset album = rows(u"SELECT * FROM tc00 ORDER BY [序号]"_s); !album.Eof(); album.MoveNext()) {
            QCOMPARE(album.Fields(u"序号"_s).Value().toInteger(), ++number);
            const auto picture = pictureFromField(album, u"图片"_s);
            QVERIFY2(picture, qPrintable(QString::number(number)));
            QCOMPARE(picture->image().size(), picture->pixels());
            QCOMPARE(album.Fields(u"规格"_s).Value().toText(), specOfPicture(*picture));

            const QByteArray bytes = album.Fields(u"图片"_s).Value().toBytes();
            seen.insert(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1));
            bitmaps += bytes.startsWith("BM") ? 1 : 0;
            // The stored value is longer than the file by a byte for each chunk.
            const double kilobytes = album.Fields(u"大小"_s).Value().toDouble();
            QVERIFY(kilobytes > 10 && std::abs(kilobytes - double(bytes.size()) / 1000) < 0.2);

            captions.insert(album.Fields(u"备注"_s).Value().toText());
            years.insert(album.Fields(u"日期"_s).Value().toDate().date().year());
        }
        QVERIFY(number >= 30);
        QCOMPARE(seen.size(), number);
        QCOMPARE(captions.size(), number);
        QCOMPARE(bitmaps, 3);
        QVERIFY(years.size() >= 5);
    }

    void codesBelongToButtons() {
        const QStringList codes = column(u"tcan"_s, u"编号"_s);
        QCOMPARE(codes, (QStringList{u"v"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s}));
        QMap<QChar, int> uses;
        for (const QString& ofPicture : column(u"tc00"_s, u"编号"_s)) {
            QVERIFY(!ofPicture.isEmpty() && !ofPicture.contains(u'v'));
            for (const QChar code : ofPicture) ++uses[code];
        }
        QCOMPARE(uses.keys(), (QList<QChar>{u'1', u'2', u'3', u'4', u'5', u'6'}));
        for (const int pictures : std::as_const(uses)) QVERIFY(pictures >= 3);
    }

    void buttonsAreSmallPictures() {
        for (Recordset buttons = rows(u"tcan"_s); !buttons.Eof(); buttons.MoveNext()) {
            const auto picture = pictureFromField(buttons, u"图片"_s);
            QVERIFY(picture);
            QCOMPARE(picture->pixels(), QSize(100, 75));
            QCOMPARE(buttons.Fields(u"图册"_s).Value().toText(), u"tc00"_s);
            QVERIFY(!buttons.Fields(u"名称"_s).Value().toText().isEmpty());
        }
        for (const QString& corner : {u"ks"_s, u"sy"_s}) {
            Recordset stock = rows(u"SELECT * FROM tctb WHERE 文件名 = "_s + quoted(corner));
            QVERIFY(pictureFromField(stock, u"图片"_s));
        }
    }

    void backgroundsFillTheScreenPanel() {
        Recordset pictures = rows(u"SELECT * FROM tc00 WHERE 序号 > 16 ORDER BY [序号]"_s);
        QVERIFY(pictures.rowCount() >= 12);
        for (int i = 0; i < 12; ++i, pictures.MoveNext()) {
            const auto size = sizeFromSpec(pictures.Fields(u"规格"_s).Value().toText());
            QVERIFY(size && size->width() * 3 == size->height() * 4);
        }
    }

    void settingsStandInOneRow() {
        Recordset settings = rows(u"tcsz"_s);
        QCOMPARE(settings.rowCount(), 1);
        for (const auto& [name, value] : {std::pair{u"当前像册"_s, QString()},
                                          {u"备份路径"_s, QString()},
                                          {u"像册标题"_s, u"览忆集苑"_s},
                                          {u"颜色"_s, u"0"_s},
                                          {u"幻灯延时"_s, u"500"_s}})
            QCOMPARE(settings.Fields(name).Value().textOr(), value);
        for (const QString& on : {u"显示标签"_s, u"幻灯循环"_s, u"处理工具条"_s, u"处理提示"_s})
            QVERIFY2(settings.Fields(on).Value().toBool(), qUtf8Printable(on));
        QVERIFY(!settings.Fields(u"全屏显示"_s).Value().toBool());
        const auto cover = pictureFromField(settings, u"封面"_s);
        QVERIFY(cover && cover->pixels().width() >= 1024);
    }

    void schemesHaveColours() {
        static const QRegularExpression colour(u"^&H00[0-9A-F]{6}&$"_s);
        QStringList palettes;
        QStringList numbers;
        for (Recordset schemes = rows(u"tcys"_s); !schemes.Eof(); schemes.MoveNext()) {
            numbers << schemes.Fields(u"序号"_s).Value().toText();
            QStringList palette;
            for (const QString& part : {u"窗体"_s, u"外框"_s, u"填充"_s, u"内框"_s})
                palette << schemes.Fields(part).Value().toText();
            for (const QString& text : palette) QVERIFY2(colour.match(text).hasMatch(), qPrintable(text));
            palettes << palette.join(u' ');
            QVERIFY(pictureFromField(schemes, u"主窗口"_s));
        }
        QCOMPARE(numbers, (QStringList{u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s}));
        QCOMPARE(palettes.takeLast(), palettes.first());
        palettes.removeDuplicates();
        QCOMPARE(palettes.size(), 5);
        QCOMPARE(column(u"tcys"_s, u"方案名"_s).first(), u"默认"_s);
    }

    /// The help window jumps to the first place of a caption in the text: that place has to be its heading.
    void helpLeadsToEveryHeading() {
        QTextDocument manual;
        manual.setHtml(rows(u"tcsz"_s).Fields(u"帮助"_s).Value().toText());
        QStringList captions =
            u"概述|1 软件的安装|1.1 网络下载版的安装|2 软件的启动|3 软件的设置|3.1 软件设置窗口概述|3.2 "
            u"《图册设置》页面的设置|"
            "3.3 《图片录入》页面的设置|3.4 《图册编辑》页面的设置|3.5 《图片转存》页面的设置|4 软件的使用|4.1 "
            "主窗口的使用|"
            "4.2 窗口颜色配置|4.3 图片处理窗口的使用|4.4 使用帮助|附注："_s.split(u'|');
        QSet<QString> chapters;
        for (const QString& caption : std::as_const(captions)) chapters.insert(caption.section(u' ', 0, 0).left(3));
        for (Recordset contents = rows(u"tcbz"_s); !contents.Eof(); contents.MoveNext()) {
            const QString number = contents.Fields(u"编号"_s).Value().toText();
            QVERIFY2(chapters.contains(number.left(3)), qUtf8Printable(number));
            captions << number + u' ' + contents.Fields(u"标题"_s).Value().toText();
        }
        for (const QString& caption : std::as_const(captions)) QCOMPARE(manual.find(caption).block().text(), caption);

        // What windows look for besides: the way back to the top, their own topics, and a place behind all headings.
        QCOMPARE(manual.find(u"《览忆集苑》"_s).blockNumber(), 0);
        for (const QString& topic : {u"3 软件的使用"_s, u"5使用帮助"_s, u"－－－－－－"_s})
            QVERIFY(!manual.find(topic).isNull());
        QVERIFY(manual.find(u"邮编："_s).position() > manual.find(u"附注："_s).position());
    }

    /// Runs the commands in the description of the file format without any change.
    void picturesComeOutWithoutTheProgram() {
        const QString description = QString::fromUtf8(contentOf(qEnvironmentVariable("LUNQ_FILE_FORMAT")));
        const QString commands = description.section(u"```sh\n"_s, 1).section(u"```"_s, 0, 0);
        QProcess shell;
        shell.setWorkingDirectory(folder_.path());
        shell.start(u"sh"_s, {u"-c"_s, commands});
        QVERIFY(shell.waitForFinished());
        QCOMPARE(shell.readAllStandardError(), QByteArray());

        const QDir album(folder_.filePath(u"pictures/tc00"_s));
        Recordset records = rows(u"SELECT * FROM tc00 ORDER BY [序号]"_s);
        QCOMPARE(album.entryList({u"*.jpg"_s, u"*.bmp"_s}).size(), records.rowCount());
        for (; !records.Eof(); records.MoveNext()) {
            const QByteArray bytes = records.Fields(u"图片"_s).Value().toBytes();
            const QString ending = bytes.startsWith("BM") ? u"bmp"_s : u"jpg"_s;
            const int number = records.Fields(u"序号"_s).Value().toInteger();
            const QString file = album.filePath(u"%1.%2"_s.arg(number, 5, 10, QChar(u'0')).arg(ending));
            QVERIFY2(contentOf(file, "none") == bytes, qPrintable(file));
        }
        QCOMPARE(contentOf(album.filePath(u"list.csv"_s)).count('\n'), records.rowCount() + 1);
    }

  private:
    Recordset rows(const QString& source) const { return database_.OpenRecordset(source); }

    QStringList column(const QString& source, const QString& name) const {
        QStringList texts;
        for (Recordset records = rows(source); !records.Eof(); records.MoveNext())
            texts << records.Fields(name).Value().textOr();
        return texts;
    }

    QTemporaryDir folder_;
    Database database_;
};

const Registered<TestFreshCatalogue> registered;

#include "fresh_catalogue_test.moc"
