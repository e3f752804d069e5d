#include "editor/operations/operation.h"
#include "editor/pixels/painting.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// The source is read from where the last crop had its corner.
template <Mirror mirror>
Operation::Outcome plan(const Operation::Input& input, const QString& tag) {
    const QRect part = inPixels(QRect(input.origin, input.size));
    const auto paint = [picture = input.picture, part](const Progress&) {
        return painted(picture, part, part.size(), mirror, pictureBackground);
    };
    return {input.size, input.origin, tag, paint};
}

}  // namespace

const Operation& flippingSideways() {
    static const Operation operation{
        .key = u"fs"_s,
        .item = u"mnuFs"_s,
        .caption = u"水平翻转"_s,
        .toolTip = u"水平翻转"_s,
        .doneCode = u"p"_s,
        .doneHint = {u"p1"_s, goOnHint},
        .plan = [](const auto& input) { return plan<Mirror::horizontal>(input, u" 水平翻转"_s); },
    };
    return operation;
}

const Operation& flippingUpsideDown() {
    static const Operation operation{
        .key = u"fc"_s,
        .item = u"mnuFc"_s,
        .caption = u"垂直翻转"_s,
        .toolTip = u"垂直翻转"_s,
        .doneCode = u"z"_s,
        .doneHint = {u"z1"_s, goOnHint},
        .plan = [](const auto& input) { return plan<Mirror::vertical>(input, u" 垂直翻转"_s); },
    };
    return operation;
}
