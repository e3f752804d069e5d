#include "settings/backup/backup_run.h"

#include "platform/base/processes.h"
#include "platform/desktop/message_box.h"
#include "settings/backup/backup_files.h"

#include <QCoreApplication>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int lookEveryMs = 200;
}  // namespace

BackupRun::BackupRun(qint64 process) : QObject(qApp), process_(process) {
    timer_.callOnTimeout([this] { look(); });
    timer_.start(lookEveryMs);
}

BackupRun* BackupRun::current() {
    return qApp->findChild<BackupRun*>(QString(), Qt::FindDirectChildrenOnly);
}

void BackupRun::start() {
    new BackupRun(Shell(u"/bin/sh"_s, {backupScriptPath()}));
}

void BackupRun::look() {
    if (isRunning(process_)) return;
    timer_.stop();
    setParent(nullptr);
    deleteLater();
    Q_EMIT ended();
    const QString result = resultInScript(textOfScript(backupScriptPath()));
    if (!tellsOfGoodCopy(result))
        tell(u"备份没有成功。\n\n%1"_s.arg(result.isEmpty() ? u"备份脚本没有留下原因。"_s : result),
             BoxIcon::exclamation, u"错误提示"_s);
}
