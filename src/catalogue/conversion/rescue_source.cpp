#include "catalogue/conversion/rescue_source.h"

#include "catalogue/album_tables.h"
#include "catalogue/fixed_tables.h"
#include "catalogue/runs/readable_rows.h"
#include "catalogue/runs/run_report.h"
#include "catalogue/table_shape.h"
#include "platform/base/error.h"
#include "platform/base/processes.h"
#include "platform/database/file/lenient_opening.h"

#include <QFile>
#include <QProcess>
#include <QUrl>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The steps of the editor are copies for the time of an edit.
const QString steps = u"tccx"_s;

/// The engine is not to look for a journal beside the file, and not to write.
QString untouched(const QString& path) {
    return u"file:"_s + QString::fromLatin1(QUrl::toPercentEncoding(path, "/")) + u"?immutable=1"_s;
}

void removeDatabase(const QString& path) {
    for (const QString& file : {path, path + u"-journal"_s}) QFile::remove(file);
}

}  // namespace

RescueSource::RescueSource(const QString& damaged, const QString& scratch, RunWatch& watch)
    : scratch_(scratch), found_(look(damaged)) {
    if (found_.failure.isEmpty() && found_.unreadable.isEmpty()) return;
    recovery_ = recover(damaged, watch);
    if (!found_.tables.empty()) return;
    removeDatabase(scratch_);
    throw Error(u"“%1”中没有能读取的图册或设置%2。%3。请用备份恢复。"_s.arg(
        damaged, found_.failure.isEmpty() ? QString() : u"："_s + withoutStop(found_.failure), recovery_));
}

RescueSource::~RescueSource() {
    found_ = {};
    removeDatabase(scratch_);
}

Database RescueSource::openAgain() const {
    const LenientOpening lenient;
    return openForOnePass(found_.database.Name());
}

RescueSource::Found RescueSource::look(const QString& path) {
    Found found;
    try {
        const LenientOpening lenient;
        found.database = OpenDatabase(path);
        for (const QString& name : found.database.TableDefs()) {
            const bool isAlbum = isAlbumTable(found.database, name);
            if (name == steps || (!isAlbum && !fixedTables().contains(name))) continue;
            const bool isRead = attempt([&] {
                const QString key = shapeOf(found.database, name).at(0).name;
                const ReadableRows rows(found.database, name, key);
                found.tables.push_back({name, rows.sql(key), rows.missing(), isAlbum});
            });
            if (!isRead) found.unreadable << name;
        }
    } catch (const Error& failure) {
        found.failure = failure.text();
    }
    return found;
}

/// By the shell's own statements, which a second shell carries out. Shells that were built without a table of all pages
/// cannot do it. Returns what became of it.
QString RescueSource::recover(const QString& damaged, RunWatch& watch) {
    const QString shell = findProgram({u"sqlite3"_s});
    if (shell.isEmpty()) return u"有的表打不开；没有安装 sqlite3，不能再用它的 .recover 试"_s;
    removeDatabase(scratch_);
    const QStringList plain{u"-batch"_s, u"-init"_s, u"/dev/null"_s};
    QProcess reads, writes;
    reads.setStandardOutputProcess(&writes);
    writes.start(shell, plain + QStringList{scratch_});
    reads.start(shell, plain + QStringList{u"-readonly"_s, untouched(damaged), u".recover"_s});
    constexpr int patienceMs = 100;
    while (!writes.waitForFinished(patienceMs)) {
        if (writes.state() == QProcess::NotRunning) break;
        if (watch.progress({})) continue;
        reads.kill();
        writes.kill();
    }
    reads.waitForFinished();
    Found recovered = QFile(scratch_).size() > 0 ? look(scratch_) : Found();
    if (recovered.tables.size() > found_.tables.size()) {
        found_ = std::move(recovered);
        return u"有的表打不开，用了 sqlite3 的 .recover 找回的内容"_s;
    }
    const bool isDone = reads.exitStatus() == QProcess::NormalExit && reads.exitCode() == 0;
    return isDone ? u"有的表打不开，sqlite3 的 .recover 也没有找回更多"_s
                  : u"有的表打不开；这里的 sqlite3 不能执行 .recover，只有直接读出的内容"_s;
}
