#include "start/ways_out.h"

#include "catalogue/conversion/conversion_files.h"
#include "catalogue/conversion/rescue.h"
#include "catalogue/mektp.h"
#include "catalogue/runs/backup_return.h"
#include "platform/base/error.h"
#include "platform/base/file_lock.h"
#include "platform/base/files.h"
#include "platform/database/records/reading_alone.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/offer_box.h"
#include "settings/backup/keeping_buttons.h"
#include "settings/backup/restore_swap.h"
#include "settings/backup/restore_window.h"
#include "start/damage_notice.h"
#include "start/first_catalogue.h"
#include "start/run_window.h"

#include <QApplication>
#include <QEventLoop>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTimer>
#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

const RunWords words{.deed = u"取出"_s, .field = u"记录"_s};

enum class WayOut { none, rescue, restore };
WayOut planned = WayOut::none;

bool wantsInPlace(const RunReport& report, const ConversionFiles& files) {
    constexpr int puts = 0, leaves = 1;
    const auto notes = std::ranges::count(report.items, Fate::noted, &RunItem::fate);
    const QString remarks = notes == 0 ? QString() : u"\n\n清单中另有 %1 条说明，请先看看。"_s.arg(notes);
    const QString question =
        u"取出完成！  %1。%4\n\n现在用取出的像册换下损坏的“%2”，请按《换上》：损坏的文件不改动，改名为“%3”，留在旁边。"
        "否则按《先不换》：取出的像册另存在旁边。"_s;
    return choose(
               nullptr,
               question.arg(outcomeText(report, words), files.old(), QFileInfo(files.nameOfOld()).fileName(), remarks),
               {u"换上"_s, u"先不换"_s}, puts, leaves, BoxIcon::question) == puts;
}

/// What is chosen in the window of the backups; nothing when it is closed.
std::optional<BackupFile> chosenBackup() {
    std::optional<BackupFile> chosen;
    auto* window = new RestoreWindow(nullptr, rescueOfCatalogue().backup);
    QObject::connect(window, &RestoreWindow::restoreAsked, window, [&](const BackupFile& file) { chosen = file; });
    QEventLoop choosing;
    QObject::connect(window, &QDialog::finished, &choosing, &QEventLoop::quit, Qt::QueuedConnection);
    window->show();
    choosing.exec();
    return chosen;
}

void plan(WayOut way) {
    planned = way;
    QApplication::closeAllWindows();
    const bool isOneLeft =
        std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget* window) { return window->isVisible(); });
    if (isOneLeft)
        planned = WayOut::none;
    else
        QCoreApplication::quit();
}

}  // namespace

QString textOfWaysOut() {
    return damageText(rescueOfCatalogue()) +
           u"\n\n也可以马上处理。《取出完好的部分》：建立一个新的像册，能读的都放进去，并列出缺了什么；损坏的文件不改动"
           u"。"
           "《恢复…》：用备份换下损坏的文件，它改名留着。"_s;
}

bool takeOutWhole() {
    const ConversionFiles files(mekTp::cataloguePath(), namesOfRescue());
    const auto giveUp = qScopeGuard([&] { files.giveUp(); });
    files.begin();
    RunWindow window({u" 取出完好的部分"_s, u"正在从“%1”取出完好的部分。损坏的文件不会改动。"_s.arg(files.old()),
                      u"停止取出（Esc）：损坏的文件还是现在的样子"_s});
    const RunReport report = window.run([&](RunWatch& watch) {
        return rescueCatalogue({files.old(), shippedCatalogue(), files.half()}, watch);
    });
    if (!report.failure.isEmpty())
        throw Error(u"没有取出：%1。\n\n损坏的文件没有改动。"_s.arg(withoutStop(report.failure)));
    if (!report.cameToEnd || report.stopped) return false;
    files.close();
    showReport(report, words);
    if (!wantsInPlace(report, files)) {
        say(nullptr, u"取出的像册是“%1”。"_s.arg(files.leave()), BoxIcon::information);
        return false;
    }
    FileLock taken;
    taken.take(files.whole());
    files.exchange();
    return true;
}

bool restoreBackup() {
    const std::optional<BackupFile> backup = chosenBackup();
    if (!backup) return false;
    RunWindow window(
        {u" 恢复数据库"_s, u"正在恢复“%1”。"_s.arg(backup->path), u"停止恢复（Esc）：图册数据库还是现在的样子"_s});
    const RunReport report =
        window.run([&](RunWatch& watch) { return prepareRestore(backup->path, preparedRestorePath(), watch); });
    if (!report.failure.isEmpty()) throw Error(report.failure);
    if (!report.cameToEnd) return false;
    say(nullptr, restoredText(carryOutRestore()), BoxIcon::information);
    return true;
}

void offerWaysOut() {
    const auto go = [](int answer) {
        if (answer == 2) {
            attempt([] { keepFromChanges(mekTp::catalogue); });
            return;
        }
        // The box that asks is closed first.
        QTimer::singleShot(0, qApp, [answer] { plan(answer == 0 ? WayOut::rescue : WayOut::restore); });
    };
    const QString rest = u"按这两个按钮，先关闭各个窗口。《继续只读》：只能看，什么都不改。"_s;
    offer(textOfWaysOut() + rest, {takesOutWhole, restoresBackup, u"继续只读"_s}, go, u"错误提示"_s);
}

bool isWayOutPlanned() {
    return planned != WayOut::none;
}

void goPlannedWay() {
    const bool takesOut = std::exchange(planned, WayOut::none) == WayOut::rescue;
    runHandler(nullptr, [takesOut] { takesOut ? takeOutWhole() : restoreBackup(); });
}
