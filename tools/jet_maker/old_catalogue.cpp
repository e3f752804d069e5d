#include "jet_maker/old_catalogue.h"

#include <QDateTime>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace jet {
namespace {

QList<Column> albumColumns() {
    return {{u"序号"_s, Type::longInteger}, {u"编号"_s, Type::text, 10}, {u"大小"_s, Type::single},
            {u"规格"_s, Type::text, 12},    {u"日期"_s, Type::date},     {u"图片"_s, Type::ole},
            {u"备注"_s, Type::text, 50}};
}

Table albumTable(const OldAlbum& album) {
    Table table{album.table, albumColumns(), {}};
    for (qsizetype i = 0; i < album.pictures.size(); ++i) {
        const int number = int(i) + 1;
        const QByteArray& picture = album.pictures[i];
        const QDateTime day({2003, 9, number % 30 + 1}, {8, 30, number % 60});
        table.rows << Row{number,
                          number % 2 == 0 ? u"a"_s : u"1a"_s,
                          float(picture.size()) / 1000,
                          u"40 * 30"_s,
                          day,
                          picture.isNull() ? QVariant() : QVariant(picture),
                          album.table + QString::number(number)};
    }
    return table;
}

Table directory(const QList<OldAlbum>& albums) {
    Table table{u"tcbm"_s,
                {{u"序号"_s, Type::longInteger},
                 {u"表名"_s, Type::text, 10},
                 {u"标题"_s, Type::text, 20},
                 {u"备注"_s, Type::text, 255}},
                {}};
    for (const OldAlbum& album : albums)
        if (album.isListed)
            table.rows << Row{int(table.rows.size()) + 1, album.table, album.title, album.title + u"的备注"_s};
    return table;
}

Table buttons(const OldCatalogue& catalogue) {
    QString all;
    for (const OldAlbum& album : catalogue.albums)
        if (album.isListed) all += album.table;
    const QByteArray& picture = catalogue.buttonPicture;
    return {u"tcan"_s,
            {{u"序号"_s, Type::longInteger},
             {u"编号"_s, Type::text, 2},
             {u"名称"_s, Type::text, 20},
             {u"图册"_s, Type::memo},
             {u"图片"_s, Type::ole}},
            {{1, u"v"_s, u"全部"_s, all, picture},
             {2, u"1"_s, u"风景"_s, all, picture},
             {3, u"a"_s, u"家人"_s, all.right(4), picture}}};
}

Table settings(const OldCatalogue& catalogue) {
    return {u"tcsz"_s,
            {{u"当前像册"_s, Type::text, 10},
             {u"显示标签"_s, Type::truth},
             {u"全屏显示"_s, Type::truth},
             {u"像册标题"_s, Type::text, 50},
             {u"颜色"_s, Type::text, 10},
             {u"幻灯延时"_s, Type::longInteger},
             {u"幻灯循环"_s, Type::truth},
             {u"帮助"_s, Type::memo},
             {u"封面"_s, Type::ole},
             {u"备份路径"_s, Type::text, 255},
             {u"处理工具条"_s, Type::truth}},  // 处理提示 came later
            {{u"01"_s, true, false, catalogue.title, u"5"_s, 1500, true, u"{\\rtf1 old manual}"_s, QVariant(),
              u"D:\\备份\\lunq.mdb"_s, true}}};
}

Table schemes() {
    Table table{u"tcys"_s,
                {{u"序号"_s, Type::text, 10},
                 {u"方案名"_s, Type::text, 50},
                 {u"窗体"_s, Type::text, 20},
                 {u"外框"_s, Type::text, 20},
                 {u"填充"_s, Type::text, 20},
                 {u"内框"_s, Type::text, 20},
                 {u"主窗口"_s, Type::ole}},
                {}};
    for (int number = 0; number <= 5; ++number)
        table.rows << Row{QString::number(number),
                          number == 5 ? u"自己的方案"_s : u"旧方案"_s,
                          u"&H00112233&"_s,
                          u"&H00445566&"_s,
                          u"&H00778899&"_s,
                          u"&H00AABBCC&"_s,
                          QVariant()};
    return table;
}

}  // namespace

QList<Table> oldCatalogueTables(const OldCatalogue& catalogue) {
    QList<Table> tables{directory(catalogue.albums),
                        buttons(catalogue),
                        settings(catalogue),
                        schemes(),
                        {u"tctb"_s, {{u"文件名"_s, Type::text, 10}, {u"图片"_s, Type::ole}}, {{u"ks"_s, QVariant()}}},
                        {u"pmtp"_s,
                         {{u"序号"_s, Type::longInteger}, {u"规格"_s, Type::text, 12}, {u"图片"_s, Type::ole}},
                         {{1, u"80 * 60"_s, catalogue.screenPicture}, {2, u"80 * 60"_s, catalogue.screenPicture}}},
                        {u"tcbz"_s, {{u"编号"_s, Type::text, 20}, {u"标题"_s, Type::text, 100}}, {{u"001"_s, u"旧"_s}}},
                        {u"tccx"_s, {{u"编号"_s, Type::text, 10}, {u"图片"_s, Type::ole}}, {}}};
    for (const OldAlbum& album : catalogue.albums) tables << albumTable(album);
    return tables;
}

Table& tableOf(QList<Table>& tables, const QString& name) {
    return *std::ranges::find(tables, name, &Table::name);
}

QByteArray withTail(const QByteArray& picture) {
    constexpr qsizetype piece = 16384;
    return picture + QByteArray(picture.size() / piece + 1, '\0');
}

}  // namespace jet
