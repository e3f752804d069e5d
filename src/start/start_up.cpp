#include "start/start_up.h"

#include "catalogue/conversion/old_albums.h"
#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/message_box.h"
#include "settings/backup/restore_swap.h"
#include "start/first_catalogue.h"
#include "start/old_catalogue.h"
#include "start/program.h"
#include "start/ways_out.h"

#include <QFileInfo>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

bool isMissing(const QString& path) {
    return !QFileInfo::exists(path) && !QFileInfo(path).isSymLink();
}

/// A database of another program holds neither albums nor settings; one of ours that has lost them is damaged at most.
void requireCatalogue(const Database& database) {
    const QStringList tables = database.TableDefs();
    const bool isCatalogue = database.isOurs() || isOldCatalogue(database) ||
                             tables.contains(u"tcbm"_s, Qt::CaseInsensitive) ||
                             tables.contains(u"tcsz"_s, Qt::CaseInsensitive);
    if (!isCatalogue)
        throw Error(u"数据库文件“%1”不能使用：它是其他软件的数据库，其中没有图册。"_s.arg(database.Name()));
}

}  // namespace

bool StartUp::isReady() {
    useCatalogue(mekTp::cataloguePath());
    if (!isOnlyCopy()) return false;
    runHandler(nullptr, [] {
        resumeConversion();
        resumeRestore();
        placeFirstCatalogue();
    });
    if (!isOnlyCopy()) return false;
    for (;;) {
        for (auto found = fault(); found; found = fault())
            if (!mend(*found)) return false;
        switch (askAboutOldCatalogue()) {
            case OldCatalogue::none:
                return true;
            case OldCatalogue::left:
                return false;
            case OldCatalogue::converted:
                if (!isOnlyCopy()) return false;
        }
    }
}

void StartUp::start(Program& program) const {
    const Database opened = mekTp::catalogue;
    program.start();
}

bool StartUp::isOnlyCopy() {
    if (copy_->isOnly()) return true;
    say(nullptr, u"本软件已在运行，不能重复打开！按任意键继续。"_s);
    return false;
}

/// The message for a catalogue that cannot be opened.
std::optional<StartUp::Fault> StartUp::fault() const {
    if (isMissing(mekTp::cataloguePath())) return {};
    try {
        mekTp::openCatalogue();
        requireCatalogue(mekTp::catalogue);
        return {};
    } catch (const Error& failure) {
        mekTp::catalogue = {};
        if (failure.isDamage()) return Fault{textOfWaysOut(), true};
        return Fault{
            failure.text() +
            u"\n\n原有的内容没有改动。可以另选一个像册文件，只在这一次使用；也可以退出，处理好以后再打开本软件。"_s};
    }
}

/// False when the program is to end instead.
bool StartUp::mend(const Fault& fault) {
    const QString another = u"选择其他像册…"_s;
    QStringList answers{another, u"退出"_s};
    if (fault.isDamage) answers = QStringList{takesOutWhole, restoresBackup} + answers;
    for (;;) {
        const int leaves = int(answers.size()) - 1;
        const int given = choose(nullptr, fault.text, answers, 0, leaves, BoxIcon::exclamation, u"错误提示"_s);
        if (given == leaves) return false;
        if (answers[given] == another && chooseAnother()) return true;
        if (answers[given] == another) continue;
        bool isMended = false;
        runHandler(nullptr, [&] { isMended = answers[given] == takesOutWhole ? takeOutWhole() : restoreBackup(); });
        if (isMended) return isOnlyCopy();
    }
}

bool StartUp::chooseAnother() {
    const QString chosen = askOpenFile(nullptr, u"选择像册文件"_s, u"MDB文件|*.mdb"_s, programFolder());
    return !chosen.isEmpty() && take(chosen);
}

/// Goes on with another catalogue, unless another copy of the program works on it.
bool StartUp::take(const QString& catalogue) {
    const QString before = mekTp::cataloguePath();
    useCatalogue(catalogue);
    if (copy_->isOnly()) return true;
    say(nullptr, u"像册文件“%1”已由本软件打开，不能重复打开。请另选一个。"_s.arg(catalogue));
    useCatalogue(before);
    copy_->isOnly();
    return false;
}

void StartUp::useCatalogue(const QString& path) {
    mekTp::setCataloguePath(path);
    copy_ = std::make_unique<SingleCopy>(mekTp::cataloguePath(), mekTp::lockPath());
}
