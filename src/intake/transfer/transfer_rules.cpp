#include "intake/transfer/transfer_rules.h"

#include "catalogue/album_rules.h"
#include "catalogue/runs/run_report.h"

using namespace Qt::Literals::StringLiterals;

QString operationText(bool move) {
    return move ? u"移动"_s : u"复制"_s;
}

RunWords transferWords(bool move) {
    return {operationText(move), u"序号"_s};
}

QString chosenText(int count) {
    return u"已选中%1条"_s.arg(count);
}

QString albumNameOfLine(const QString& line) {
    return titleOfLine(line).trimmed();
}

QString nameQuestion(const QString& album, const QString& number, bool first) {
    return u"输入图册《"_s + album + u"》中序号＝"_s + number + u" 的保存文件名"_s + (first ? u""_s : u"："_s);
}

QString countLine(const QString& album, int count) {
    return album + u" 全部共："_s + QString::number(count) + u"条"_s;
}

QString countLine(const QString& album, const QString& code, int count) {
    return album + u" 编号="_s + code + u" 共："_s + QString::number(count) + u"条"_s;
}

QString startQuestion(bool move) {
    return u"开始"_s + operationText(move) + u"选中的图片记录吗？\n\n如果是，按“确定”；否则按“取消”。"_s;
}

QString toFilesQuestion() {
    return u"要将本图册选中的图片转存成文件吗？\n\n（本操作并不影响原图册中的图片）\n\n"
           "如果“是”，按《确定》；否则按《取消》。"_s;
}

QString copiedText(const QString& album, int count) {
    return u"图册《"_s + album + u"》中的 "_s + QString::number(count) + u" 张图片已复制完成！"_s;
}

QString madeIntoFilesText(int count) {
    return u"选定的图片已全部转换成文件，共%1条"_s.arg(count);
}

QString retryQuestion(bool move, const QString& number, const QString& reason) {
    return u"序号＝%1 的图片没有%2：%3。\n\n可以改用别的文件名，或者排除原因以后再试；也可以跳过这一张。"_s.arg(
        number, operationText(move), withoutStop(reason));
}
