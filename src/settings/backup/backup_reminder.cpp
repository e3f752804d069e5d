#include "settings/backup/backup_reminder.h"

#include "catalogue/remembered.h"
#include "platform/desktop/message_box.h"
#include "settings/backup/backup_files.h"

using namespace Qt::Literals::StringLiterals;

namespace {
const QString daysName = u"backup.reminder"_s;
const QString goodName = u"backup.good"_s;
}  // namespace

int reminderDays() {
    return remembered::text(daysName).toInt();
}

void setReminderDays(int days) {
    remembered::setText(daysName, days > 0 ? QString::number(days) : QString());
}

bool isBackupDue(const QDate& last, const QDate& today, int days) {
    return days > 0 && (!last.isValid() || last > today || last.daysTo(today) > days);
}

QString reminderText(const QDate& last, const QDate& today) {
    const QString when =
        !last.isValid() ? u"图册数据库还没有完好的备份。"_s
        : last > today
            ? u"上次完好的备份记的日期是 %1，比今天还晚，不能作准。"_s.arg(last.toString(Qt::ISODate))
            : u"上次完好的备份是 %1，已经过了 %2 天。"_s.arg(last.toString(Qt::ISODate)).arg(last.daysTo(today));
    return when + u"\n\n请接上放备份的磁盘，在“图册设置”的“图册备份设置”中按《开始备份》。"_s;
}

QDate lastGoodBackup() {
    const QString result = resultInScript(textOfScript(backupScriptPath()));
    if (tellsOfGoodCopy(result)) remembered::setText(goodName, result.section(u'：', 1).section(u' ', 0, 0));
    return QDate::fromString(remembered::text(goodName), Qt::ISODate);
}

void remindOfBackup() {
    const int days = reminderDays();
    if (days == 0) return;
    const QDate last = lastGoodBackup(), today = QDate::currentDate();
    if (isBackupDue(last, today, days)) tell(reminderText(last, today));
}
