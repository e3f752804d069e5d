#include "editor/document/hints.h"

#include "catalogue/album_rules.h"
#include "editor/operations/operation.h"

#include <QHash>

using namespace Qt::Literals::StringLiterals;

namespace {

QHash<QString, QString> allHints() {
    const QString choose =
        u"先选择图册，再在右边筛选，或直接按左边表格中相应记录选择。完成按“确定”，放弃选择按“取消”。"_s;
    const QString loaded =
        u"如果进行编辑操作请按相应菜单，也可重新打开图片。进行编辑操作只要不保存，不会对原有图片产生影响。"_s;
    QHash<QString, QString> hints{
        {u"w0"_s, choose},
        {u"k0"_s, choose},
        {u"w1"_s, loaded},
        {u"k1"_s, loaded},
        {u"a1"_s,
         u"先确定裁剪方式：“固定尺寸”从点击处选择100＊75像素；“固定比例”拖动鼠标总自动保持固定长宽比为4/3。"_s},
        {u"a2"_s, u"在对话框中按“显示”按钮，查看裁剪效果，并准备进行下一步。"_s},
        {u"a3"_s, u"在对话框中选择保存位置，然后在出现的对话框中进行相应操作后按“确定”按钮可进入保存操作。"_s},
        {u"c20"_s, u"在对话框中按“确定”按钮，查看裁剪效果，并准备进行下一步。"_s},
    };
    for (const Operation* operation : operations())
        for (const Operation::Hint& hint : {operation->askingHint, operation->doneHint})
            hints.insert(hint.code, hint.text);
    return hints;
}

}  // namespace

QString hintFor(const QString& code) {
    static const QHash<QString, QString> hints = allHints();
    return hints.value(code);
}

int hintWidth(const QString& text) {
    return wzcd(text) * 90 + 60;
}
