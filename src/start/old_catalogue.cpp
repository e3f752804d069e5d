#include "start/old_catalogue.h"

#include "catalogue/conversion/conversion.h"
#include "catalogue/conversion/conversion_files.h"
#include "catalogue/conversion/old_albums.h"
#include "catalogue/mektp.h"
#include "intake/databases/source_boxes.h"
#include "platform/base/error.h"
#include "platform/base/file_lock.h"
#include "platform/base/files.h"
#include "platform/database/foreign/foreign_copy.h"
#include "platform/desktop/message_box.h"
#include "start/first_catalogue.h"
#include "start/run_window.h"

#include <QFileInfo>
#include <QScopeGuard>

using namespace Qt::Literals::StringLiterals;

namespace {

const RunWords words{.deed = u"转换"_s, .field = u"记录"_s};

/// Texts that could be either Chinese or western are read as the person says.
void settleTexts() {
    const std::optional<int> codePage = askCodePage(nullptr, ReadingNotes(mekTp::catalogue));
    if (!codePage) return;
    chooseCodePage(mekTp::cataloguePath(), *codePage);
    mekTp::openCatalogue();
}

bool wantsConversion(const ConversionFiles& files) {
    constexpr int converts = 0, leaves = 1;
    const QString question =
        u"“%1”是旧版的像册，要先转换，才能使用。\n\n转换会建立新的像册文件，图册、按钮、标题和设置都会转过去；"
        "原来的文件不改动，以后叫“%2”。\n\n现在转换，请按《转换》；否则按《退出》。"_s;
    return choose(nullptr, question.arg(files.old(), QFileInfo(files.nameOfOld()).fileName()), {u"转换"_s, u"退出"_s},
                  converts, leaves) == converts;
}

/// Every picture and note is in the list, with what is odd first.
void tellReport(const RunReport& report, const QString& old) {
    say(nullptr,
        u"转换完成！  %1。\n\n原来的像册还在，现在叫“%2”。确认新的像册没有问题以后，可以把它移到别处保存。"_s.arg(
            outcomeText(report, words), old),
        BoxIcon::information);
    showReport(report, words);
}

/// True when the new catalogue is in its place.
bool convert(const ConversionFiles& files) {
    const auto giveUp = qScopeGuard([&] { files.giveUp(); });
    files.begin();
    RunWindow window({u" 转换旧像册"_s, u"正在转换旧像册“%1”。原来的文件不会改动。"_s.arg(files.old()),
                      u"停止转换（Esc）：旧像册还是原来的样子"_s});
    const RunReport report = window.run([&](RunWatch& watch) {
        return convertCatalogue({files.old(), shippedCatalogue(), files.half()}, watch);
    });
    if (!report.failure.isEmpty())
        throw Error(u"没有转换：%1。\n\n原来的像册没有改动。"_s.arg(withoutStop(report.failure)));
    if (!report.cameToEnd || report.stopped) return false;
    files.close();
    mekTp::catalogue = {};
    FileLock taken;
    taken.take(files.whole());
    tellReport(report, files.exchange());
    return true;
}

}  // namespace

OldCatalogue askAboutOldCatalogue() {
    if (!mekTp::catalogue.isOpen() || !isOldCatalogue(mekTp::catalogue)) return OldCatalogue::none;
    runHandler(nullptr, settleTexts);
    const ConversionFiles files(mekTp::cataloguePath());
    while (wantsConversion(files)) {
        bool isDone = false;
        runHandler(nullptr, [&] { isDone = convert(files); });
        if (isDone) return OldCatalogue::converted;
    }
    mekTp::catalogue = {};
    return OldCatalogue::left;
}

void resumeConversion() {
    for (const ConversionNames& names : {namesOfConversion(), namesOfRescue()})
        ConversionFiles(mekTp::cataloguePath(), names).resume();
}
