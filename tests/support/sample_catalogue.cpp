#include "sample_catalogue.h"

#include "catalogue/album_rules.h"
#include "catalogue/fixed_tables.h"
#include "platform/base/error.h"
#include "platform/base/files.h"

#include <QImageWriter>

using namespace Qt::Literals::StringLiterals;

namespace {

QColor colourOf(int number) {
    return QColor::fromHsv(number * 67 % 360, 200, 220);
}

void addAlbum(int number, const QString& table, const QString& title) {
    mekTp::catalogue.Execute(createAlbumSql(table));
    addRow(u"tcbm"_s, {{u"序号"_s, number}, {u"表名"_s, table}, {u"标题"_s, title}, {u"备注"_s, title + u"备注"_s}});
}

void addPicture(Recordset& album, int number, const QString& codes, QSize pixels, const QDateTime& date) {
    const QByteArray bytes = pictureBytes(pixels, colourOf(number));
    addRow(album, {{u"序号"_s, number},
                   {u"编号"_s, codes},
                   {u"大小"_s, float(bytes.size() / 1000.0)},
                   {u"规格"_s, u"%1 * %2"_s.arg(pixels.width()).arg(pixels.height())},
                   {u"日期"_s, date},
                   {u"图片"_s, bytes},
                   {u"备注"_s, u"图片%1"_s.arg(number)}});
}

void addAlbums() {
    const QDateTime firstDay(QDate(2003, 9, 26), QTime(12, 0));
    addAlbum(1, u"tc00"_s, u"演示"_s);
    Recordset demo = mekTp::catalogue.OpenRecordset(u"tc00"_s);
    for (int i = 1; i <= 3; ++i) addPicture(demo, i, u" "_s, {40, 30}, firstDay);

    addAlbum(2, u"tc01"_s, u"旅行"_s);
    Recordset travel = mekTp::catalogue.OpenRecordset(u"tc01"_s);
    for (int i = 1; i <= 10; ++i) {
        const QString codes = QString(i % 2 == 1 ? u"1"_s : u""_s) + (i <= 5 ? u"2"_s : u""_s);
        const QSize pixels = i == 3 ? QSize(30, 40) : i == 4 ? QSize(100, 50) : QSize(40, 30);
        addPicture(travel, i, codes.isEmpty() ? u" "_s : codes, pixels, firstDay.addDays(i - 1));
    }
    addAlbum(3, u"tc02"_s, u"空册"_s);
}

void addButtons() {
    const QString albums = u"tc00tc01tc02"_s;
    Recordset buttons = mekTp::catalogue.OpenRecordset(u"tcan"_s);
    int number = 0;
    for (const auto& [code, name] : {std::pair(u"v"_s, u"全部"_s), {u"1"_s, u"风景"_s}, {u"2"_s, u"人物"_s}}) {
        ++number;
        addRow(buttons, {{u"序号"_s, number},
                         {u"编号"_s, code},
                         {u"名称"_s, name},
                         {u"图册"_s, albums},
                         {u"图片"_s, pictureBytes({100, 75}, colourOf(number))}});
    }
    addRow(buttons, {{u"序号"_s, number + 1}, {u"编号"_s, u"a"_s}, {u"名称"_s, u"无图"_s}, {u"图册"_s, albums}});
}

void addSettings() {
    addRow(u"tcsz"_s, {{u"显示标签"_s, false},
                       {u"全屏显示"_s, false},
                       {u"像册标题"_s, u"览忆集苑"_s},
                       {u"颜色"_s, u"0"_s},
                       {u"幻灯延时"_s, 500},
                       {u"幻灯循环"_s, false},
                       {u"帮助"_s, u"邮编：000000\n1 软件简介\n3 软件的使用\n"_s},
                       {u"封面"_s, pictureBytes({80, 60}, Qt::darkCyan)},
                       {u"处理工具条"_s, true},
                       {u"处理提示"_s, true}});
    Recordset schemes = mekTp::catalogue.OpenRecordset(u"tcys"_s);
    for (int i = 0; i <= 5; ++i)
        addRow(schemes, {{u"序号"_s, QString::number(i)},
                         {u"方案名"_s, u"方案%1"_s.arg(i)},
                         {u"窗体"_s, u"&H00C%1F0FF&"_s.arg(i)},
                         {u"外框"_s, u"&H00808080&"_s},
                         {u"填充"_s, u"&H00E0E0E0&"_s},
                         {u"内框"_s, u"&H00404040&"_s}});
}

void addStockPictures() {
    Recordset corners = mekTp::catalogue.OpenRecordset(u"tctb"_s);
    for (const QString& name : {u"ks"_s, u"sy"_s})
        addRow(corners, {{u"文件名"_s, name}, {u"图片"_s, pictureBytes({30, 30}, Qt::yellow)}});

    Recordset screens = mekTp::catalogue.OpenRecordset(u"pmtp"_s);
    for (int i = 1; i <= 12; ++i)
        addRow(screens, {{u"序号"_s, i}, {u"规格"_s, u"64 * 48"_s}, {u"图片"_s, pictureBytes({64, 48}, colourOf(i))}});

    Recordset help = mekTp::catalogue.OpenRecordset(u"tcbz"_s);
    addRow(help, {{u"编号"_s, u"1  "_s}, {u"标题"_s, u"1 软件简介"_s}});
    addRow(help, {{u"编号"_s, u"3  "_s}, {u"标题"_s, u"3 软件的使用"_s}});
}

}  // namespace

SampleCatalogue::SampleCatalogue() {
    setProgramFolder(folder_.path());
    mekTp::catalogue = createDatabase(mekTp::cataloguePath());
    mekTp::currentTable = demoTable;
    Transaction transaction(mekTp::catalogue);
    createFixedTables(mekTp::catalogue);
    addAlbums();
    addButtons();
    addSettings();
    addStockPictures();
    transaction.commit();
}

SampleCatalogue::~SampleCatalogue() {
    mekTp::catalogue = {};
    mekTp::currentTable = demoTable;
    setProgramFolder({});
}

void addRow(const QString& table, const RowValues& values) {
    Recordset records = mekTp::catalogue.OpenRecordset(table);
    addRow(records, values);
}

void changeRow(const QString& source, const RowValues& values) {
    Recordset records = mekTp::catalogue.OpenRecordset(source);
    changeRow(records, values);
}

FieldValue fieldOf(const QString& source, const QString& column) {
    return mekTp::catalogue.OpenRecordset(source).Fields(column).Value();
}

QByteArray pictureBytes(QSize pixels, const QColor& colour, const char* format) {
    QImage image(pixels, QImage::Format_RGB32);
    image.fill(colour);
    QBuffer buffer;
    QImageWriter writer(&buffer, format);
    if (!writer.write(image)) throw Error(writer.errorString());
    return buffer.data();
}

void writePicture(const QString& path, QSize pixels, const QColor& colour, const char* format) {
    writeFile(path, pictureBytes(pixels, colour, format));
}
