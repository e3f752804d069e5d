#include "catalogue/mektp.h"
#include "catalogue/open_check.h"
#include "platform/base/error.h"
#include "platform/desktop/failure_list.h"
#include "platform/desktop/look.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/toolkit_texts.h"
#include "settings/backup/backup_reminder.h"
#include "settings/backup/damaged_window.h"
#include "settings/backup/keeping_buttons.h"
#include "settings/backup/restore_swap.h"
#include "start/bin_keeping.h"
#include "start/damage_notice.h"
#include "start/hash_keeping.h"
#include "start/program.h"
#include "start/start_failure.h"
#include "start/start_up.h"
#include "start/ways_out.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QTranslator>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Called in the thread of the check.
void tellDamage(FileCheck::Outcome outcome) {
    if (outcome != FileCheck::Outcome::damaged) return;
    QMetaObject::invokeMethod(qApp, offerWaysOut, Qt::QueuedConnection);
}

/// Told when the windows are back.
struct Notice {
    QString text = {};
    bool isFailure = false;
};

Notice restoreOutcome() {
    try {
        return {restoredText(carryOutRestore())};
    } catch (const Error& failure) {
        return {failure.text(), true};
    }
}

void tellNotice(const Notice& notice) {
    if (notice.isFailure)
        tell(notice.text, BoxIcon::exclamation, u"错误提示"_s);
    else if (!notice.text.isEmpty())
        tell(notice.text, BoxIcon::information);
}

/// Until the windows are closed, or a restored catalogue is to take the place of the open one. `notice` is shown first.
int runOnce(const StartUp& startUp, const Notice& notice) {
    int status = 0;
    {
        Program program;  // its windows go before the catalogue that they read
        startUp.start(program);
        tellNotice(notice);
        std::optional<OpenCheck> check;
        if (isCatalogueCheckable()) check.emplace(mekTp::cataloguePath(), tellDamage);
        const BinKeeping bin;
        std::optional<HashKeeping> hashes;
        if (isCatalogueCheckable()) {
            hashes.emplace(mekTp::cataloguePath());
            QObject::connect(&*hashes, &HashKeeping::damageFound, qApp, [] {
                noteFailure(u"图册数据库“%1”中有图片损坏了。"_s.arg(mekTp::cataloguePath()));
                showDamagedPictures(nullptr);
            });
        }
        remindOfBackup();
        status = QApplication::exec();
    }
    mekTp::catalogue = {};
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    std::optional<StartFailureWords> words(std::in_place);
    QApplication application(argc, argv);
    words.reset();
    QApplication::setApplicationName(u"lunq"_s);
    QApplication::setApplicationVersion(QString::fromLatin1(LUNQ_VERSION));
    QApplication::setDesktopFileName(u"org.lunq.album"_s);
    QApplication::setWindowIcon(QIcon(u":/icons/lunq.svg"_s));

    QTranslator chinese;  // the texts of the toolkit's own dialogs
    ToolkitTexts mostTexts;
    QApplication::installTranslator(&mostTexts);
    if (chinese.load(u"qtbase_zh_CN"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&chinese);
    applyLook(application);

    StartUp startUp;
    if (!startUp.isReady()) return 0;
    int status = runOnce(startUp, {});
    while (isRestorePlanned() || isWayOutPlanned()) {
        const Notice outcome = isRestorePlanned() ? restoreOutcome() : Notice();
        if (isWayOutPlanned()) goPlannedWay();
        if (!startUp.isReady()) return 0;
        status = runOnce(startUp, outcome);
    }
    return status;
}
