#include "settings/button_rules.h"

using namespace Qt::Literals::StringLiterals;

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

QString codeInUse(const QString& name, const QString& code) {
    return u"编号不能重复，重来！（已有："_s + name + u'＝' + code + u'）';
}

QString numberInUse(const QString& name, int number) {
    return u"序号不能重复，重来！（已有："_s + name + u'＝' + QString::number(number) + u'）';
}

QString buttonDeletionQuestion(const QString& code) {
    return u"删除本像册按钮吗？(编号＝"_s + code + u")\n\n如果是按《确定》；否则按《取消》。"_s;
}
