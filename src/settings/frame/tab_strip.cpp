#include "settings/frame/tab_strip.h"

#include "platform/desktop/tab_control.h"

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Caption {
    int left;
    int right;
    QStringView hint;
};

constexpr int captionsBottom = 270;
constexpr int blankLeft = 4800;
constexpr int blankRight = 7100;

constexpr std::array captions{
    Caption{120, 840,
            u"“图册设置”：可建立图册、设置图册、设置图册主标题及建立图片选择按钮。并可确定全屏显示及标签显示。"},
    Caption{1020, 1800,
            u"“图片录入”：可在本页面中录入本软件要保存及显示的图片，可从数据库和文件中录入到本软件各图册中。"},
    Caption{2000, 2700, u"“图册编辑”：可对本软件中各图册进行编辑，包括重排序号、修改或设置编号及录入备注。"},
    Caption{2900, 3600,
            u"“图片转存”：将本软件中的图片在各图册间复制或移动。也可转存入其它数据库或以默认文件名存入文件夹中。"},
    // No page stands here any more, yet the hint line goes blank over it.
    Caption{3840, 4600, u""},
};

}  // namespace

std::optional<QString> captionHint(int x, int y) {
    if (y >= captionsBottom) return {};
    for (const Caption& caption : captions)
        if (x > caption.left && x < caption.right) return caption.hint.toString();
    return {};
}

bool leadsToOtherPage(int x, int y) {
    return y < TabControl::stripHeight && (x < blankLeft || x > blankRight);
}
