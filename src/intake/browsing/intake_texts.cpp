#include "intake/browsing/intake_texts.h"

#include "catalogue/album_rules.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int echoWidth = 67;
constexpr int echoHead = 33;
constexpr int echoTail = 30;
}  // namespace

QString selectionEcho(const QStringList& names) {
    if (names.isEmpty()) return {};
    QString line = names.join(u';');
    if (wzcd(line) >= echoWidth) line = line.left(echoHead) + u"...\n"_s + line.right(echoTail);
    if (names.size() != 1) line += u"等共%1条"_s.arg(names.size());
    return line;
}

QString selectionHint(int count) {
    return u"操作提示：共选中：%1条，按《录入图册》录入，按《取消》返回前步，按Ctrl可再重复选择。"_s.arg(count);
}

QString intakeDescription(const QString& focusedFile, bool replace, int count) {
    const QString file = focusedFile.isEmpty() ? QString() : u'[' + focusedFile + u']';
    QString text = u"（从文件"_s + file + (replace ? u"替换"_s : u"追加"_s) + u"到本图册 "_s;
    const QString number = focusedFile.chopped(std::min<qsizetype>(4, focusedFile.size()));
    if (replace && !number.isEmpty()) text += u"序号＝"_s + number;
    text += u"）\n\n"_s;
    if (count >= 2) text += u"    等共%1条"_s.arg(count);
    return text;
}

QString intakeQuestion(const QString& album, bool replace, const QString& description) {
    return u"将所选的图片"_s + (replace ? u"替换"_s : u"追加"_s) + u"本图册("_s + album +
           u")吗？\n\n如果录入，按《确定》；否则按《取消》。\n\n"_s + description;
}

QString recordCountLine(const QString& album, int count) {
    return u"表 ["_s + album + u"] 共有记录："_s + QString::number(count) + u" 条"_s;
}
