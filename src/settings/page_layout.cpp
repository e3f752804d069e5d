#include "settings/page_layout.h"

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString buttonHeadings = u"^序号|^编号|^ 名  称 |^      相 关 图 册      "_s;
const QString pictureHeadings = u"序号|编号|^  大  小  |^  规  格  |^    日      期    |^    备        注    "_s;

}  // namespace

const PageLayout& layoutOf(SettingsTab tab) {
    static const std::array layouts{
        PageLayout{.outerFrame = {255, 0, 255},
                   .innerFrame = {192, 255, 255},
                   .grid = {200, 400, 4330, 3400},
                   .gridHeadings = buttonHeadings,
                   .chooser = {},
                   .codesLabel = {}},
        PageLayout{.outerFrame = {255, 0, 0},
                   .innerFrame = {255, 255, 0},
                   .grid = {5180, 1320, 4100, 3525},
                   .gridHeadings = pictureHeadings,
                   .chooser = PageLayout::Chooser{{5335, 1050}, u"目标图册："_s, {6250, 990}, 1950},
                   .codesLabel = QPoint{6710, 5175}},
        PageLayout{.outerFrame = {0, 0, 255},
                   .innerFrame = {0, 255, 0},
                   .grid = {300, 1350, 5100, 5150},
                   .gridHeadings = pictureHeadings,
                   .chooser = PageLayout::Chooser{{370, 790}, u"选择图册："_s, {1245, 720}, 4155},
                   .codesLabel = {}},
        PageLayout{.outerFrame = {192, 0, 192},
                   .innerFrame = {0, 255, 0},
                   .grid = {200, 1130, 4800, 5320},
                   .gridHeadings = pictureHeadings,
                   .chooser = PageLayout::Chooser{{240, 790}, u"来源图册："_s, {1100, 720}, 1950},
                   .codesLabel = QPoint{7830, 930}},
    };
    return layouts.at(static_cast<std::size_t>(tab));
}
