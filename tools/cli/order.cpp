#include "cli/order.h"

#include "platform/base/error.h"
#include "platform/base/files.h"

#include <QDir>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Takes `--album FILE` or `--album=FILE` out of the words.
QString takeCatalogue(QStringList& words) {
    const QString option = u"--album"_s;
    for (qsizetype i = 0; i < words.size(); ++i) {
        if (words[i].startsWith(option + u'=')) return words.takeAt(i).section(u'=', 1);
        if (words[i] != option) continue;
        if (i + 1 == words.size()) throw Error(u"--album 后面要写像册文件。"_s);
        words.removeAt(i);
        return words.takeAt(i);
    }
    return usualCatalogue();
}

void requireWords(const QStringList& words, qsizetype count, const QString& usage) {
    if (words.size() != count || words.contains(QString())) throw Error(u"用法：lunq-cli [--album 文件] "_s + usage);
}

}  // namespace

QString usualCatalogue() {
    const QString own = joinedPath(QDir::home().filePath(u"览忆集苑"_s), u"lunq.mdb"_s);
    return fileExists(own) ? own : joinedPath(programFolder(), u"lunq.mdb"_s);
}

Order orderFrom(QStringList words) {
    if (words.contains(u"--help"_s) || words.contains(u"-h"_s)) return {Order::Task::help};
    if (words.contains(u"--version"_s)) return {Order::Task::version};
    const QString catalogue = takeCatalogue(words);
    const QString task = words.value(0);
    if (task == u"check") {
        requireWords(words, 1, u"check"_s);
        return {Order::Task::check, catalogue};
    }
    if (task == u"backup") {
        requireWords(words, 2, u"backup 备份文件"_s);
        return {Order::Task::backup, catalogue, words[1]};
    }
    if (task == u"export") {
        requireWords(words, 3, u"export 图册 文件夹"_s);
        return {Order::Task::exportAlbum, catalogue, words[2], words[1]};
    }
    throw Error(task.isEmpty() ? u"要写一个命令：check、backup 或 export。详见 lunq-cli --help。"_s
                               : u"没有命令“%1”。命令有 check、backup 和 export，详见 lunq-cli --help。"_s.arg(task));
}

QString helpText() {
    return u"用法：lunq-cli [--album 文件] 命令\n"
           "\n"
           "命令：\n"
           "  check               检查像册文件是否完整，图片是否还与收进来时一样\n"
           "  backup 备份文件     把像册复制成一份完整的备份；原来的一份改名留下，名称后面加上日期，\n"
           "                      最多留三份；磁盘放不下时，先删去最旧的\n"
           "  export 图册 文件夹  把一本图册的全部图片写成文件；图册写表名（tc01）或标题\n"
           "\n"
           "选项：\n"
           "  --album 文件        像册文件；不写时是主文件夹里的 览忆集苑/lunq.mdb，\n"
           "                      没有它时是本程序旁边的 lunq.mdb\n"
           "  --help              显示这段说明\n"
           "  --version           显示版本\n"
           "\n"
           "览忆集苑开着的时候也可以使用。\n"
           "\n"
           "退出码：0 全部完好；1 有损坏的，或有没有写成的图片；2 命令写错了；3 没有做成，原因已写出\n"_s;
}
