#include "catalogue/album_rules.h"
#include "catalogue/colour_text.h"
#include "catalogue_maker/chapters.h"
#include "drawing/album_art.h"
#include "help/shipped_manual.h"

using namespace Qt::Literals::StringLiterals;

namespace {

struct Scheme {
    QString name;
    QColor window, outerFrame, fill, innerFrame;
};

/// Calm grounds on which texts read well; the frames take other tones of the same hue. Light ones first, then the dark.
std::vector<Scheme> schemes() {
    const Scheme plain{u"默认"_s, QColor(238, 241, 244), QColor(140, 163, 181), QColor(220, 229, 236),
                       QColor(51, 71, 91)};
    Scheme own = plain;
    own.name = u"自定义"_s;
    return {plain,
            {u"青瓷"_s, QColor(235, 243, 239), QColor(134, 175, 162), QColor(207, 227, 220), QColor(47, 107, 94)},
            {u"暖沙"_s, QColor(247, 241, 231), QColor(196, 167, 126), QColor(236, 223, 201), QColor(138, 98, 56)},
            {u"黛蓝"_s, QColor(36, 48, 66), QColor(92, 122, 160), QColor(54, 71, 96), QColor(164, 190, 220)},
            {u"墨夜"_s, QColor(32, 31, 30), QColor(112, 102, 86), QColor(52, 49, 46), QColor(201, 178, 138)},
            own};
}

}  // namespace

void fillSelectionButtons(const Database& database, Workshop& workshop) {
    const std::vector<std::pair<QString, QString>> buttons{
        {u"v"_s, u"全部图片"_s}, {u"1"_s, u"山水"_s}, {u"2"_s, u"天空"_s}, {u"3"_s, u"花木"_s},
        {u"4"_s, u"图案"_s},     {u"5"_s, u"夜景"_s}, {u"6"_s, u"生灵"_s}};
    qint32 number = 0;
    for (const auto& [code, name] : buttons)
        addRow(database, u"tcan"_s,
               {{u"序号"_s, ++number},
                {u"编号"_s, code},
                {u"名称"_s, name},
                {u"图册"_s, demoTable},
                {u"图片"_s, workshop.bitmap(selectionButton(code.at(0)))}});
}

void fillColourSchemes(const Database& database) {
    int number = 0;
    for (const Scheme& scheme : schemes())
        addRow(database, u"tcys"_s,
               {{u"序号"_s, QString::number(number++)},
                {u"方案名"_s, scheme.name},
                {u"窗体"_s, colourText(scheme.window)},
                {u"外框"_s, colourText(scheme.outerFrame)},
                {u"填充"_s, colourText(scheme.fill)},
                {u"内框"_s, colourText(scheme.innerFrame)}});
}

void fillSettings(const Database& database, Workshop& workshop) {
    addRow(database, u"tctb"_s, {{u"文件名"_s, u"ks"_s}, {u"图片"_s, workshop.bitmap(bookCorner())}});
    addRow(database, u"tctb"_s, {{u"文件名"_s, u"sy"_s}, {u"图片"_s, workshop.bitmap(turnedPageCorner())}});
    addRow(database, u"tcsz"_s,
           {{u"当前像册"_s, QString()},
            {u"显示标签"_s, true},
            {u"全屏显示"_s, false},
            {u"像册标题"_s, u"览忆集苑"_s},
            {u"颜色"_s, u"0"_s},
            {u"幻灯延时"_s, 500},
            {u"幻灯循环"_s, true},
            {u"帮助"_s, shippedManual().text},
            {u"封面"_s, workshop.jpeg(albumCover({1600, 1200}))},
            {u"备份路径"_s, QString()},
            {u"处理工具条"_s, true},
            {u"处理提示"_s, true}});
}
