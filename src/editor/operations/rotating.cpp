#include "editor/operations/operation.h"
#include "editor/pixels/rotation.h"

#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

Operation::Outcome plan(const Operation::Input& input) {
    const double number = numberFromText(input.entry);
    const double degrees = std::isfinite(number) ? number : 0;
    const QSize box = rotatedSize(input.size, degrees);
    const auto size = possibleSize(box.width(), box.height());
    if (!size) throw Error(tooLargeText());
    const auto paint = [picture = input.picture, pixels = inPixels(*size), degrees](const Progress& progress) {
        return rotated(picture, pixels, degrees, pictureBackground, progress);
    };
    return {*size, input.origin, u' ' + input.entry + u"度"_s, paint};
}

}  // namespace

const Operation& rotating() {
    static const Operation operation{
        .key = u"xz"_s,
        .item = u"mnuXz"_s,
        .caption = u"旋 转"_s,
        .toolTip = u"旋转"_s,
        .asks = Operation::Asks::angle,
        .question = u"请输入旋转角度"_s,
        .isExclusive = true,
        .isSlow = true,
        .code = u"x"_s,
        .doneCode = u"v"_s,
        .askingHint =
            {u"x1"_s,
             u"在对话框中填入旋转角度，然后按“确定”或者回车显示旋转结果。旋转角度按反时针。旋转完成需要较长时间。"_s},
        .doneHint = {u"x2"_s, goOnHint},
        .plan = plan,
    };
    return operation;
}
