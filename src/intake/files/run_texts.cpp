#include "intake/files/run_texts.h"

#include "settings/frame/name_lists.h"

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Files stand as they are called, records by the values of a field.
QString namesText(const QStringList& names, const QString& indexField) {
    return indexField.isEmpty() ? someOf(names) : indexField + u'＝' + someOf(names);
}

class Lines {
  public:
    explicit Lines(QString indexField) : indexField_(std::move(indexField)) {}

    void add(const QString& line) { lines_ << line; }
    void add(const QString& what, const QStringList& names) {
        if (!names.isEmpty()) lines_ << what + namesText(names, indexField_);
    }
    QString text(const QString& between) const { return lines_.join(between); }

  private:
    QString indexField_;
    QStringList lines_;
};

/// The line that tells where a run was ended by a failure, and why. `stopped` has "%1" for the name.
QString failureLine(const RunReport& report, const QString& indexField, const QString& stopped) {
    const QStringList failed = report.namesOf({Fate::failed});
    return (failed.isEmpty() ? u"录入没有进行："_s : stopped.arg(namesText(failed, indexField))) + report.failure;
}

}  // namespace

QString intakeReport(const RunReport& report) {
    Lines lines({});
    if (!report.failure.isEmpty()) {
        lines.add(failureLine(report, {}, u"录入到文件“%1”时停止，该文件没有录入："_s));
        lines.add(u"以下文件也没有录入："_s, report.namesOf({Fate::left}));
        lines.add(u"文件不完整，没有录入："_s, report.namesOf({Fate::truncated}));
    }
    if (!report.cameToEnd) {
        lines.add(u"文件已录入图册："_s, report.namesOf({Fate::taken}));
        lines.add(u"目标表无对应序号，没有替换："_s, report.namesOf({Fate::notFound}));
    }
    lines.add(u"文件没有内容，没有存入图片："_s, report.namesOf({Fate::withoutPicture}));
    return lines.text(u"\n\n"_s);
}

QString copyReport(const RunReport& report, const QString& indexField) {
    Lines lines(indexField);
    lines.add(u"源记录没有图片，原有的图片没有改动："_s, report.namesOf({Fate::withoutPicture}));
    if (!report.failure.isEmpty()) {
        lines.add(failureLine(report, indexField, u"录入到记录“%1”时停止，该记录没有录入："_s));
        lines.add(u"以下记录也没有录入："_s, report.namesOf({Fate::left}));
        lines.add(u"图片不是 BMP 或 JPEG，没有录入："_s, report.namesOf({Fate::notAPicture}));
        lines.add(u"图片不完整，没有录入："_s, report.namesOf({Fate::truncated}));
        lines.add(u"记录已录入图册："_s, report.namesOf({Fate::taken, Fate::withoutPicture}));
        lines.add(u"目标表中没有对应的记录，没有替换："_s, report.namesOf({Fate::notFound}));
    }
    return lines.text(u"\n\n"_s);
}

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
    Lines lines(indexField);
    const auto add = [&](Fate fate, const QString& fault) {
        const QStringList names = report.namesOf({fate});
        const QString what = indexField.isEmpty() ? u"个文件"_s : u"条的图片"_s;
        lines.add(u"其中 %1 "_s.arg(names.size()) + what + fault + u'：', names);
    };
    add(Fate::notAPicture, u"不是 BMP 或 JPEG"_s);
    add(Fate::truncated, u"不完整"_s);
    return lines.text(u"\n"_s) + u"\n\n它们还没有录入。"_s +
           (replace ? u"如果也用它们替换，请按《也录入》；否则按《不录入》。"_s
                    : u"如果也要录入（接着排在后面），请按《也录入》；否则按《不录入》。"_s);
}
