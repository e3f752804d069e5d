#include "settings/backup/keeping_buttons.h"

#include "catalogue/mektp.h"
#include "catalogue/runs/proof_run.h"
#include "catalogue/settings_row.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "settings/backup/backup_run.h"
#include "settings/backup/damaged_window.h"
#include "settings/backup/picture_chooser.h"
#include "settings/backup/restore_swap.h"
#include "settings/backup/restore_window.h"
#include "settings/frame/form_parts.h"

#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLocale>
#include <QPushButton>
#include <QScopeGuard>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int proofLeft = 75, proofWidth = 900, proofTop = 810;
constexpr int restoreLeft = 3200, restoreTop = 240;
/// Over the line that tells of the last backup.
const RunBar::Place barPlace{.at = {5220, 6000, 4050, 225}, .page = setupTab, .growth = rightColumn};

QString number(qint64 value) {
    return QLocale(QLocale::English).toString(value);
}

/// A backup reads the catalogue for minutes, and would end with half of each.
void requireNoBackup() {
    if (BackupRun::current() != nullptr) throw Error(u"备份还在进行，请等它完成。"_s);
}

}  // namespace

QString proofOutcome(const RunReport& report) {
    if (!report.failure.isEmpty()) return u"校验没有完成：%1"_s.arg(report.failure);
    const QString unchanged = u"%1 张图片未变"_s.arg(number(report.count));
    const QString damaged = u"，%1 张有损坏"_s.arg(number(qint64(report.items.size())));
    return (report.cameToEnd ? u"校验完成："_s : u"校验已停止，还没有完成："_s) + unchanged +
           (report.items.empty() ? QString() : damaged) + u'。';
}

QString restoredText(const QString& kept) {
    const QString done = u"图册数据库已经恢复。"_s;
    if (kept.isEmpty()) return done;
    return done + u"\n\n原来的改名为“%1”，留在旁边。确实不再需要时，可以在“图册备份设置”的《恢复…》中删除。"_s.arg(
                      QDir::toNativeSeparators(kept));
}

KeepingButtons::KeepingButtons(const SettingsFrame& frame, QGroupBox* Frame3) : frame_(frame) {
    cmdJy = makeButton(Frame3, u"cmdJy"_s, u"校 验"_s, proofLeft, proofTop, proofWidth);
    cmdJy->setToolTip(u"逐张核对所有图片是否仍与录入时相同"_s);
    cmdHy = makeButton(Frame3, u"cmdHy"_s, u"恢 复…"_s, restoreLeft, restoreTop);
    cmdHy->setToolTip(u"列出备份，恢复全部、图册或图片；设置备份的提醒"_s);
    connect(cmdJy, &QPushButton::clicked, this, guarded(frame.form, [this] { cmdJyClick(); }));
    connect(cmdHy, &QPushButton::clicked, this, guarded(frame.form, [this] { cmdHyClick(); }));
}

void KeepingButtons::cmdJyClick() {
    const auto prove = [catalogue = mekTp::cataloguePath()](RunWatch& watch) {
        return proveCatalogue(catalogue, watch);
    };
    frame_.runBar.startReading(barPlace, {u"校验"_s}, prove, [this](const RunReport& report) { proved(report); });
}

void KeepingButtons::proved(const RunReport& report) {
    Q_EMIT stateChanged();
    const bool isGood = report.cameToEnd && report.items.empty();
    say(frame_.form, proofOutcome(report), isGood ? BoxIcon::information : BoxIcon::exclamation);
    if (DamagedWindow* window = showDamagedPictures(frame_.form))
        connect(window, &DamagedWindow::changed, this, &KeepingButtons::stateChanged);
}

void KeepingButtons::cmdHyClick() {
    auto* window = new RestoreWindow(frame_.form, setting(u"备份路径"_s).textOr());
    connect(window, &RestoreWindow::restoreAsked, this,
            guarded(frame_.form, [this](const BackupFile& backup) { restore(backup); }));
    connect(window, &RestoreWindow::picturesAsked, this,
            guarded(frame_.form, [this](const BackupFile& backup) { takePictures(backup); }));
    window->show();
}

void KeepingButtons::restore(const BackupFile& backup) {
    requireNoBackup();
    const QString question =
        u"用 %1 的这一份（%2 个图册，%3 张图片）换下现在的图册数据库。以后录入和修改的，要从现在的那一份才能找回："
        "它不会删除，改名留在旁边。恢复以后软件自动重新打开。\n\n确实要恢复，请按“确定”；否则按“取消”。"_s;
    if (!askBeforeDeleting(
            frame_.form,
            question.arg(backup.made.toString(u"yyyy-MM-dd HH:mm"_s), number(backup.albums), number(backup.pictures)),
            BoxIcon::question, u"恢复数据库？"_s))
        return;
    const auto prepare = [from = backup.path, to = preparedRestorePath()](RunWatch& watch) {
        return prepareRestore(from, to, watch);
    };
    frame_.runBar.startReading(barPlace, {u"恢复"_s}, prepare, [](const RunReport& report) {
        if (!report.failure.isEmpty()) throw Error(report.failure);
        if (!report.cameToEnd) return;
        auto remove = qScopeGuard([] { QFile::remove(preparedRestorePath()); });
        requireNoBackup();
        planRestore();
        remove.dismiss();
    });
}

void KeepingButtons::takePictures(const BackupFile& backup) {
    auto* window = new PictureChooser(frame_.form, backup.path);
    connect(window, &PictureChooser::chosen, this,
            guarded(frame_.form,
                    [this, path = backup.path](const QList<Return>& returns) { takeBackFrom(path, returns); }));
    window->show();
}

void KeepingButtons::takeBackFrom(const QString& backup, const QList<Return>& returns) {
    const RunWords words{.deed = u"取回"_s, .field = u"序号"_s};
    const auto take = [catalogue = mekTp::cataloguePath(), backup, returns](RunWatch& watch) {
        return takeBack(OpenDatabase(catalogue), backup, returns, watch);
    };
    frame_.runBar.start(barPlace, words, take, [this, words](const RunReport& report) {
        Q_EMIT stateChanged();
        Q_EMIT albumsChanged();
        say(frame_.form, outcomeText(report, words) + u'。',
            report.failure.isEmpty() ? BoxIcon::information : BoxIcon::exclamation);
        frame_.runBar.tellReport(report, words, nullptr);
    });
}
