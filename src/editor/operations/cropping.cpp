#include "editor/operations/operation.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// The corner of the part stays where the next flip reads its source.
Operation::Outcome plan(const Operation::Input& input) {
    if (inPixels(input.selection.size()).isEmpty())
        throw Error(u"请先在图片上从左上角向右下角拖动鼠标，选择裁剪范围。"_s);
    return stretched(input, input.selection, 1, u" 裁剪"_s);
}

}  // namespace

const Operation& cropping() {
    static const Operation operation{
        .key = u"cj"_s,
        .item = u"mnuCj"_s,
        .caption = u"裁 剪"_s,
        .toolTip = u"裁剪"_s,
        .asks = Operation::Asks::part,
        .question = u"选择裁剪范围完成后按确定"_s,
        .isExclusive = true,
        .code = u"c"_s,
        .doneCode = u"c"_s,
        .askingHint = {u"c1"_s,
                       u"选择裁剪范围即用鼠标左键在范围的左上角向右下角拖动，完成后松开左键。"
                       "按对话框中“确定”或回车显示裁剪结果。"_s},
        .doneHint = {u"c2"_s, goOnHint},
        .plan = plan,
    };
    return operation;
}
