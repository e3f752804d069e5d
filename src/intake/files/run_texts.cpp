#include "intake/files/run_texts.h"

#include "settings/frame/name_lists.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Files stand as they are called, records by the values of a field.
QString namesText(const QStringList& names, const QString& indexField) {
    return indexField.isEmpty() ? someOf(names) : indexField + u'＝' + someOf(names);
}

}  // namespace

QString filesNotReplacedText(const RunReport& report) {
    const QStringList names = report.namesOf({Fate::notFound});
    if (names.isEmpty() || !report.cameToEnd) return {};
    return u"本目标表无下列对应序号：\n\n"_s + nearlyAllOf(names) + u"\n\n这些文件没有替换！"_s;
}

QString notReplacedText(const RunReport& report, const QString& indexField) {
    const QStringList keys = report.namesOf({Fate::notFound});
    if (keys.isEmpty() || !report.cameToEnd) return {};
    return u"目标表中下列序号的对应的记录不存在，没有替换。\n\n["_s + indexField + u" = "_s + nearlyAllOf(keys) + u']';
}

QString leftOutQuestion(const RunReport& report, const QString& indexField, bool replace) {
    QStringList lines;
    const auto add = [&](Fate fate, const QString& fault) {
        const QStringList names = report.namesOf({fate});
        const QString what = indexField.isEmpty() ? u"个文件"_s : u"条的图片"_s;
        if (!names.isEmpty())
            lines << u"其中 %1 "_s.arg(names.size()) + what + fault + u'：' + namesText(names, indexField);
    };
    add(Fate::notAPicture, u"不是 BMP 或 JPEG"_s);
    add(Fate::truncated, u"不完整"_s);
    return lines.join(u'\n') + u"\n\n它们还没有录入。"_s +
           (replace ? u"如果也用它们替换，请按《也录入》；否则按《不录入》。"_s
                    : u"如果也要录入（接着排在后面），请按《也录入》；否则按《不录入》。"_s);
}
