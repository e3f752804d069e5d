#include "intake/left_out.h"

#include "intake/intake_texts.h"
#include "platform/desktop/message_box.h"

using namespace Qt::Literals::StringLiterals;

QString leftOutQuestion(const LeftOut& leftOut, bool replace) {
    const bool areFiles = leftOut.field.isEmpty();
    QStringList lines;
    const auto add = [&](const QStringList& names, const QString& fault) {
        if (names.isEmpty()) return;
        const QString what = areFiles ? u"个文件"_s : u"条的图片"_s;
        lines << u"其中 %1 "_s.arg(names.size()) + what + fault + u'：' +
                     (areFiles ? QString() : leftOut.field + u'＝') + someOf(names);
    };
    add(leftOut.noPictures, u"不是 BMP 或 JPEG"_s);
    add(leftOut.truncated, u"不完整"_s);
    return lines.join(u'\n') + u"\n\n它们还没有录入。"_s +
           (replace ? u"如果也用它们替换，请按《也录入》；否则按《不录入》。"_s
                    : u"如果也要录入（接着排在后面），请按《也录入》；否则按《不录入》。"_s);
}

bool takesLeftOut(QWidget* parent, const LeftOut& leftOut, bool replace) {
    constexpr int alsoTaken = 0, stayOut = 1;
    return choose(parent, leftOutQuestion(leftOut, replace), {u"也录入"_s, u"不录入"_s}, stayOut, stayOut) == alsoTaken;
}
