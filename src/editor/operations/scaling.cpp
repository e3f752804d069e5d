#include "editor/operations/operation.h"

using namespace Qt::Literals::StringLiterals;

namespace {

Operation::Outcome plan(const Operation::Input& input) {
    const double factor = factorFromText(input.entry);
    if (!(factor > 0)) throw Error(u"缩放倍数应是大于 0 的数。"_s);
    const QString zero = input.entry.startsWith(u'.') ? u"0"_s : QString();
    return stretched(input, {QPoint(), input.size}, factor, u" *"_s + zero + input.entry);
}

}  // namespace

const Operation& scaling() {
    static const Operation operation{
        .key = u"sf"_s,
        .item = u"mnuSf"_s,
        .caption = u"缩 放"_s,
        .toolTip = u"缩放"_s,
        .asks = Operation::Asks::number,
        .question = u"请输入缩放倍数"_s,
        .code = u"s"_s,
        .doneCode = u"s"_s,
        .askingHint = {u"s1"_s,
                       u"在对话框中填入缩放倍数，然后按“确定”或者回车显示缩放结果。缩放倍数可为整数或一、二位小数。"_s},
        .doneHint = {u"s2"_s, goOnHint},
        .value = factorFromText,
        .plan = plan,
    };
    return operation;
}
