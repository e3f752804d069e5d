#include "settings/setup/button_rules.h"

#include "catalogue/selection_buttons.h"

using namespace Qt::Literals::StringLiterals;

namespace {
const QString withoutAllPictures =
    u"没有它，主窗口不能列出整本图册。以后建立图册时，软件会问您要不要放回；也可以自己添加一个编号为“v”的按钮。"_s;
}  // namespace

bool isPreset(const QString& code) {
    return !code.isEmpty() && code.front() >= u'1' && code.front() <= u'6';
}

std::optional<int> firstEmpty(const ButtonTexts& texts) {
    for (int place = 0; const QString& text : texts) {
        if (text.trimmed().isEmpty()) return place;
        ++place;
    }
    return {};
}

QString notFilled(int place) {
    const std::array words{u"序号"_s, u"编号"_s, u"名称"_s, u"相关图册"_s};
    return u"数据没填全，请重新进行！\n\n没填写的项目：("_s + words.at(static_cast<std::size_t>(place)) + u')';
}

QString codeInUse(const QString& name, const QString& code, const QString& typed) {
    const QString text = u"编号不能重复，重来！（已有："_s + name + u'＝' + code + u'）';
    return typed == code ? text : text + u"\n\n填写的编号是“%1”，大小写不分。"_s.arg(typed);
}

QString numberInUse(const QString& name, int number) {
    return u"序号不能重复，重来！（已有："_s + name + u'＝' + QString::number(number) + u'）';
}

QString exchangeQuestion(const QString& name, int number, const QString& old) {
    return numberInUse(name, number) +
           u"\n\n要与它交换序号，按《确定》，它的序号就成为 %1；否则按《取消》，另填一个序号。"_s.arg(old);
}

QString buttonDeletionQuestion(const ButtonTexts& button, int albums) {
    const auto& [number, code, name, tables] = button;
    QString text = u"删除本像册按钮吗？(编号＝"_s + code + u")\n\n如果是按《确定》；否则按《取消》。"_s;
    text += u"\n\n要删除的按钮：编号“%1”，名称“%2”，用在 %3 本图册中。图片不会删除。"_s.arg(code, name,
                                                                                            QString::number(albums));
    if (isAllPictures(code)) text += u"\n"_s + withoutAllPictures;
    return text;
}

QString presetCodeQuestion(const QString& code) {
    return u"编号 1 至 6 属于系统预设的按钮，存成以后不能再修改或删除。\n\n"
           "仍用编号“%1”，按《确定》；否则按《取消》，换一个编号。"_s.arg(code);
}

QString allPicturesLeaveQuestion(const QString& code) {
    return u"编号“v”的按钮列出全部图片。"_s + withoutAllPictures +
           u"\n\n编号改成“%1”，按《确定》；否则按《取消》。"_s.arg(code);
}
