#include "settings/backup/backup_rules.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString catalogueName = u"lunq.mdb"_s;

const QString resultMark = u"# 上次备份："_s;
const QString resultOfGoodCopy = u"，完好"_s;

// lunq-backup copies without disturbing a program that writes. Where it is missing, the sqlite3 shell does it, which
// reads no quotes in the name of its copy: so it works within the folder. How a copy has ended stands in the script's
// own last line: the script is there when the backup's disk is not, and is the one file that has to lie beside the
// program anyway. It is replaced for that, not written over: the shell goes on reading the old one.
const QString backupText =
    uR"sh(#!/bin/sh
# 备份图册数据库。先在旁边写成完整的一份，再换下旧备份，中途失败时旧备份不变。软件运行时也可使用。
# 结果记在本文件的最后一行。
copier=%1
from=%2
to=%3
script=$(readlink -f "$0")

leave() {
    [ -f "$script" ] || return 0
    {
        LC_ALL=C sed '/^# 上次备份：/d' "$script" &&
            printf '# 上次备份：%s，%s\n' "$(date '+%Y-%m-%d %H:%M')" "$(printf %s "$1" | tr '\n' ' ')"
    } 2>/dev/null >"$script.$$" && chmod 755 "$script.$$" && mv -f "$script.$$" "$script" || rm -f "$script.$$"
}

fail() {
    leave "$1"
    printf '%s\n' "$1" >&2
    exit 1
}

leave 没有做完
[ -d "${to%/*}/" ] || fail "备份文件夹“${to%/*}/”不存在，没有备份。放备份的磁盘可能没有接上。"
if [ -x "$copier" ]; then
    said=$("$copier" "$from" "$to" 2>&1) || fail "${said:-程序“$copier”意外中止，没有备份。}"
    leave 完好
    exit 0
fi
command -v sqlite3 >/dev/null || fail "找不到程序“$copier”，没有备份。"
[ -f "$from" ] || fail "图册数据库“$from”不存在，没有备份。"
cd "${to%/*}/" || fail "备份文件夹“${to%/*}/”不能打开，没有备份。"
new=lunq-backup.$$
trap 'rm -f "$new"' EXIT
trap 'exit 1' HUP INT TERM
sqlite3 "$from" '.timeout 60000' ".backup $new" || fail "图册数据库不能备份到“$to”。"
[ "$(sqlite3 "$new" 'PRAGMA quick_check(1)' 2>/dev/null)" = ok ] ||
    fail "图册数据库“$from”有损坏的地方，没有备份，以前的备份不变。"
{ sync "$new" 2>/dev/null || sync; } && mv -f "$new" "$to" || fail "图册数据库不能备份到“$to”。"
leave 完好
)sh"_s;

// The lock file is the one by which the program notices a second copy of itself: number and name of the process, and
// the computer. The script takes it too, so that the program cannot be started on a catalogue that is just being
// replaced. A journal that is not empty belongs to the catalogue that goes: beside the new one it would damage it.
// The backup that lies beside the script is meant, wherever both were moved to; but never the catalogue itself.
const QString restoreText =
    uR"sh(#!/bin/sh
# 用备份恢复图册数据库。请先关闭软件再运行。先在旁边写成完整的一份，再换下现有的，中途失败时现有的不变。
# 软件的文件夹移走或改名以后，请这样指定它：sh hf.sh 软件的文件夹
from=%1
to=%2
lock=%3

fail() {
    printf '%s\n' "$1" >&2
    exit 1
}

if [ $# -gt 0 ]; then
    folder=$(cd -- "$1" 2>/dev/null && pwd) || fail "文件夹“$1”不存在，或不能打开，没有恢复。"
    to=${folder%/}/${to##*/}
    lock=$to
    [ ! -L "$to" ] || lock=$(readlink -f "$to")
    lock=${lock%/*}/lunq.lock
fi
beside=$(cd "$(dirname -- "$0")" 2>/dev/null && pwd)/${from##*/}
if [ -f "$beside" ] && [ ! "$beside" -ef "$to" ]; then
    from=$beside
fi
[ -d "${to%/*}/" ] ||
    fail "软件的文件夹“${to%/*}/”不存在，没有恢复。它移走或改名以后，请这样指定它：sh hf.sh 软件的文件夹"

program_of() {
    name=$(readlink "/proc/$1/exe") || return 1
    name=${name% (deleted)}
    printf '%s\n' "${name##*/}"
}

is_running() {
    [ -f "$1" ] || return 1
    { read -r pid && read -r program && read -r computer; } <"$1" || return 1
    case $pid in '' | *[!0-9]*) return 1 ;; esac
    [ "$computer" = "$(uname -n)" ] || return 1
    kill -0 "$pid" 2>/dev/null || [ -d "/proc/$pid" ] || return 1
    running=$(program_of "$pid" 2>/dev/null) || return 0
    [ "$running" = "$program" ]
}

on_disk() {
    sync "$1" 2>/dev/null || sync
}

# 数据库开头写着每页的字节数和页数：文件比这短，就是没有复制完。
is_whole() {
    set -- $(od -An -tu1 -v -j16 -N16 "$from")
    page=$(($1 * 256 + $2))
    [ "$page" -ne 1 ] || page=65536
    shift 12
    pages=$(((($1 * 256 + $2) * 256 + $3) * 256 + $4))
    [ $(($(wc -c <"$from"))) -ge $((pages * page)) ]
}

# 替换没有成功时，日志仍属于现有的图册数据库。
finish() {
    if [ -n "$moving" ] && [ -e "$new" ] && [ -e "$to-journal.old" ] && [ ! -e "$to-journal" ]; then
        mv -f "$to-journal.old" "$to-journal"
    fi
    rm -f "$new" "$lock"
}

busy='软件正在运行，或另一次恢复正在进行，没有恢复。请先关闭软件，再运行本脚本。'
[ "$(dd if="$from" bs=15 count=1 2>/dev/null)" = 'SQLite format 3' ] ||
    fail "备份文件“$from”不存在，或不是图册数据库，没有恢复。"
is_whole || fail "备份文件“$from”不完整，没有恢复。"
! is_running "$lock" || fail "$busy"
# 软件可能刚刚打开：移开的若不是刚才看过的那一个，就放回去。
if mv -f "$lock" "$lock.$$" 2>/dev/null; then
    if is_running "$lock.$$"; then
        mv -n "$lock.$$" "$lock"
        fail "$busy"
    fi
    rm -f "$lock.$$"
fi
(set -C && printf '%s\n' $$ "$(program_of $$ || echo sh)" "$(uname -n)" >"$lock") 2>/dev/null ||
    fail "文件夹“${lock%/*}/”不能写入，或软件刚刚打开，没有恢复。"
[ ! -L "$to" ] || to=$(readlink -f "$to")
new=$to.restore
moving=
trap finish EXIT
trap 'exit 1' HUP INT TERM

# 从只读的光盘等复制来的也要能写。
cp -f "$from" "$new" && chmod u+rw "$new" && on_disk "$new" ||
    fail "备份不能复制到“$new”，没有恢复，现有的图册数据库不变。"
if [ -s "$to-journal" ]; then
    moving=1
    mv -f "$to-journal" "$to-journal.old" || fail "文件“$to-journal”不能移开，没有恢复。"
fi
mv -f "$new" "$to" || fail "“$to”不能替换，没有恢复，现有的图册数据库不变。"
rm -f "$to-journal.old"
on_disk "${to%/*}/"
echo '图册数据库已经恢复。'
)sh"_s;

}  // namespace

QString completedBackupPath(const QString& typed) {
    const QString ending = QDir::separator() + catalogueName;
    if (typed.isEmpty() || typed.endsWith(ending)) return typed;
    return typed.endsWith(QDir::separator()) ? typed + catalogueName : typed + ending;
}

QStringList folderPrefixes(const QString& path) {
    QStringList prefixes;
    for (qsizetype at = path.indexOf(QDir::separator()); at >= 0; at = path.indexOf(QDir::separator(), at + 1))
        prefixes << path.left(at + 1);
    return prefixes;
}

QString backupPathFault(const QString& path, const QString& catalogue) {
    if (!QDir::isAbsolutePath(path))
        return u"备份路径“%1”不完整，请填写从“%2”开始的完整路径。"_s.arg(path, QDir::rootPath());
    const QFileInfo folder(QFileInfo(path).absolutePath()), own(QFileInfo(catalogue).absolutePath());
    const bool sameFolder =
        QDir::cleanPath(folder.filePath()) == QDir::cleanPath(own.filePath()) ||
        (!folder.canonicalFilePath().isEmpty() && folder.canonicalFilePath() == own.canonicalFilePath());
    const QString realPath = QFileInfo(path).canonicalFilePath();
    const bool leadsToIt = !realPath.isEmpty() && realPath == QFileInfo(catalogue).canonicalFilePath();
    if (leadsToIt || (sameFolder && QFileInfo(path).fileName() == QFileInfo(catalogue).fileName()))
        return u"备份路径“%1”就是图册数据库本身，请另选一个文件夹。"_s.arg(path);
    if (QFileInfo(path).isDir()) return u"备份路径“%1”是一个文件夹，备份应是一个文件。"_s.arg(path);
    return {};
}

QString shellQuoted(const QString& text) {
    return u'\'' + QString(text).replace(u"'"_s, u"'\\''"_s) + u'\'';
}

QString targetOfScript(const QString& script) {
    const QString assignment = u"\nto='"_s, quote = u"'"_s;
    const qsizetype start = script.indexOf(assignment) + assignment.size();
    const qsizetype end = script.indexOf(u"'\n"_s, start);
    if (start < assignment.size() || end < 0) return {};
    return script.sliced(start, end - start).replace(u"'\\''"_s, quote);
}

QString resultInScript(const QString& script) {
    const qsizetype line = script.lastIndexOf(u'\n' + resultMark);
    return line < 0 ? QString() : script.sliced(line + 3).section(u'\n', 0, 0);
}

bool tellsOfGoodCopy(const QString& result) {
    return result.endsWith(resultOfGoodCopy);
}

QString foreignFolder(const QString& restoreScript, const QString& catalogue) {
    const QString target = targetOfScript(restoreScript);
    const QFileInfo folder(QFileInfo(target).path()), own(QFileInfo(catalogue).path());
    const bool isOther = !target.isEmpty() && folder.isDir() && folder.canonicalFilePath() != own.canonicalFilePath();
    return isOther ? folder.filePath() : QString();
}

QString backupScript(const BackupPlaces& places, const QString& result) {
    const QString script =
        backupText.arg(shellQuoted(places.copier), shellQuoted(places.catalogue), shellQuoted(places.backup));
    return result.isEmpty() ? script : script + u"# "_s + result + u'\n';
}

QString restoreScript(const BackupPlaces& places) {
    return restoreText.arg(shellQuoted(places.backup), shellQuoted(places.catalogue), shellQuoted(places.lock));
}
