#include "catalogue/album_rules.h"
#include "catalogue_maker/chapters.h"
#include "drawing/scenes.h"
#include "platform/base/conversion.h"

using namespace Qt::Literals::StringLiterals;

namespace {

struct Demonstration {
    QImage (*scene)(QSize);
    QSize size;
    QString codes;
    QString taken;
    QString caption;
    bool bitmap = false;
};

/// The order is that of the album. Numbers 17 to 28 also become the backgrounds of the screen panel, of which the last
/// six are the curtain before a page: these are wide 4 by 3 views.
std::vector<Demonstration> demonstrations() {
    const QSize usual(1024, 768);
    const QSize small(800, 600);
    const QSize large(1200, 900);
    const QSize upright(768, 1024);
    const QSize wide(1280, 720);
    return {
        {mistyMountains, usual, u"1"_s, u"2003-09-27 06:12:40"_s, u"远山如黛，晨雾初开"_s},
        {summerClouds, usual, u"2"_s, u"2003-10-01 10:05:12"_s, u"白云悠悠，草坡上的一棵树"_s},
        {plumBranch, upright, u"3"_s, u"2004-02-08 16:40:03"_s, u"疏影横斜，暗香浮动"_s},
        {latticeWindow, small, u"4"_s, u"2004-04-18 14:22:51"_s, u"园林花窗"_s, true},
        {cityNight, wide, u"5"_s, u"2004-05-02 20:31:09"_s, u"江城夜色，万家灯火"_s},
        {koiPond, usual, u"6"_s, u"2004-05-03 09:48:27"_s, u"池中锦鲤"_s},
        {desertDunes, wide, u"1"_s, u"2004-10-04 17:26:55"_s, u"驼队走过沙丘"_s},
        {rainbow, usual, u"12"_s, u"2005-06-11 18:02:33"_s, u"雨后彩虹，菜花正黄"_s},
        {bamboo, upright, u"3"_s, u"2005-07-16 08:15:20"_s, u"竹林深处"_s},
        {paperCut, small, u"4"_s, u"2005-12-31 11:30:00"_s, u"剪纸窗花"_s, true},
        {rainyWindow, usual, u"5"_s, u"2006-03-25 21:17:46"_s, u"雨夜窗前"_s},
        {butterfly, usual, u"36"_s, u"2006-05-06 10:52:18"_s, u"花间蝶舞"_s},
        {starTrails, large, u"25"_s, u"2006-08-12 23:40:11"_s, u"斗转星移"_s},
        {dahlia, small, u"34"_s, u"2006-09-09 09:09:36"_s, u"大丽花"_s},
        {seaWaves, small, u"4"_s, u"2006-10-02 15:00:25"_s, u"海水朝阳纹样"_s, true},
        {wildGeese, wide, u"26"_s, u"2006-11-05 17:03:58"_s, u"雁阵惊寒"_s},
        {sunsetSea, usual, u"12"_s, u"2007-07-21 19:12:04"_s, u"落日熔金，归帆一片"_s},
        {aurora, large, u"25"_s, u"2007-12-22 22:45:30"_s, u"极光"_s},
        {lotus, usual, u"3"_s, u"2008-07-05 07:36:49"_s, u"小荷才露，清水芙蓉"_s},
        {autumnLake, usual, u"13"_s, u"2008-10-18 11:20:15"_s, u"秋林倒影"_s},
        {inkRiver, usual, u"1"_s, u"2008-11-23 14:08:42"_s, u"水墨江山，一叶扁舟"_s},
        {milkyWay, usual, u"25"_s, u"2009-06-20 23:58:07"_s, u"仰望银河"_s},
        {snowPeak, large, u"1"_s, u"2009-08-01 06:47:31"_s, u"雪峰晨照"_s},
        {moonOverSea, usual, u"25"_s, u"2009-10-03 20:15:53"_s, u"海上生明月"_s},
        {cranes, usual, u"26"_s, u"2010-01-16 07:22:10"_s, u"鹤舞朝阳"_s},
        {skyLanterns, usual, u"5"_s, u"2010-02-28 20:40:28"_s, u"元夕天灯"_s},
        {riceTerraces, usual, u"1"_s, u"2010-04-30 06:55:44"_s, u"梯田如画"_s},
        {burningClouds, usual, u"2"_s, u"2010-08-14 18:59:21"_s, u"火烧云"_s},
        {mapleLeaves, usual, u"3"_s, u"2010-11-06 13:33:39"_s, u"霜叶红于二月花"_s},
        {seedSpiral, usual, u"4"_s, u"2011-03-14 15:09:26"_s, u"葵心的秩序"_s},
        {fireworks, usual, u"5"_s, u"2011-02-03 00:00:30"_s, u"除夕烟花"_s},
        {jellyfish, upright, u"6"_s, u"2011-04-23 10:11:12"_s, u"海月水母"_s},
        {ceilingRosette, usual, u"4"_s, u"2011-05-01 09:30:17"_s, u"古建藻井"_s},
        {dandelion, usual, u"3"_s, u"2011-05-21 16:24:08"_s, u"蒲公英的旅行"_s},
        {forestDeer, usual, u"16"_s, u"2011-06-18 05:50:55"_s, u"林深见鹿"_s},
        {flowingLines, wide, u"4"_s, u"2011-07-09 21:03:47"_s, u"流光"_s},
    };
}

}  // namespace

void fillDemonstrationAlbum(const Database& database, Workshop& workshop) {
    addRow(database, u"tcbm"_s,
           {{u"序号"_s, 1}, {u"表名"_s, demoTable}, {u"标题"_s, u"演示"_s}, {u"备注"_s, u"随软件提供的示例图片"_s}});
    database.Execute(createAlbumSql(demoTable));
    qint32 number = 0;
    for (const Demonstration& shown : demonstrations()) {
        const QImage image = shown.scene(shown.size);
        const PictureFile picture = shown.bitmap ? workshop.bitmap(image) : workshop.jpeg(image);
        addRow(database, demoTable,
               {{u"序号"_s, ++number},
                {u"编号"_s, shown.codes},
                {u"大小"_s, kilobytesText(picture.bytes)},
                {u"规格"_s, picture.sizeText},
                {u"日期"_s, dateFromText(shown.taken).value()},
                {u"图片"_s, picture},
                {u"备注"_s, shown.caption}});
    }
}
