#include "intake/databases/whole_catalogue.h"

#include "catalogue/album_directory.h"
#include "catalogue/album_rules.h"
#include "catalogue/conversion/joining.h"
#include "catalogue/conversion/old_albums.h"
#include "catalogue/mektp.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "settings/frame/columns.h"

#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

namespace {

const RunWords words{.deed = u"转换"_s, .field = u"记录"_s};
constexpr QRect buttonPlace{3915, 3720, 1215, 345};
constexpr QRect barPlace{5000, 50, 2000, 285};  // the empty part of the strip of captions

QString listOf(const std::vector<TakenCode>& codes) {
    QStringList lines;
    for (const TakenCode& code : codes)
        lines << u"“%1”：这里是“%2”，旧像册里是“%3”"_s.arg(code.code, code.ours, code.theirs);
    return lines.join(u'\n');
}

QString listOf(const std::vector<JoinedAlbum>& albums) {
    constexpr std::size_t mostLines = 12;
    QStringList lines;
    for (const JoinedAlbum& joined : albums) {
        const QString state = joined.isWhole ? u"，完整"_s : u"，原来有 %1 条"_s.arg(joined.recordsThere);
        lines << u"%1《%2》：%3 条"_s.arg(joined.album, joined.title).arg(joined.records) + state;
        if (lines.size() == mostLines && albums.size() > mostLines) {
            lines << u"……共 %1 册"_s.arg(albums.size());
            break;
        }
    }
    return lines.join(u'\n');
}

}  // namespace

WholeCatalogue::WholeCatalogue(const SettingsFrame& frame)
    : frame_(frame), cmdZx(make<QPushButton>(frame.sstFz->page(intakeTab), u"cmdZx"_s, u"转换整个像册"_s)) {
    cmdZx->setToolTip(u"把旧像册的全部图册和按钮加入现在的像册"_s);
    frame_.sstFz->putOn(intakeTab, cmdZx, buttonPlace.x(), buttonPlace.y(), buttonPlace.width(), buttonPlace.height());
    letGrow(cmdZx, movesRight * intakeShare + movesDown * 0.5);
    cmdZx->hide();
    connect(cmdZx, &QPushButton::clicked, this, guarded(frame_.form, [this] { join(); }));
}

void WholeCatalogue::offer(const Database& source) {
    const bool isOld = source.isOpen() && isOldCatalogue(source);
    source_ = isOld ? source : Database();
    cmdZx->setVisible(isOld);
    cmdZx->raise();
}

void WholeCatalogue::join() {
    JoinOrder order{source_.Name(), mekTp::cataloguePath()};
    if (!mayBegin() || !askAboutJoined(order) || !askAboutCodes(order)) return;
    before_.clear();
    for (const Album& album : allAlbums(mekTp::catalogue)) before_ << album.table;
    frame_.runBar.start(
        {.at = barPlace}, words, [order](RunWatch& watch) { return joinCatalogue(order, watch); },
        [this](const RunReport& report) { finish(report); });
}

bool WholeCatalogue::mayBegin() const {
    std::vector<OldAlbum> albums = oldAlbums(source_);
    std::erase_if(albums, [](const OldAlbum& album) { return album.table.isEmpty() || isDemo(album.table); });
    return ask(frame_.form,
               u"把“%1”的全部图册（%2 册）和按钮加入现在的像册吗？\n\n图册会得到空余的表名，"
               "原来的文件不改动。\n\n如果是，按“确定”；否则按“取消”。"_s.arg(source_.Name())
                   .arg(albums.size()));
}

/// False when nothing is to be done.
bool WholeCatalogue::askAboutJoined(JoinOrder& order) const {
    std::vector<JoinedAlbum> all;
    {
        const Hourglass hourglass;
        all = joinedAlbums(source_, mekTp::catalogue);
    }
    std::vector<JoinedAlbum> joined = all;
    std::erase_if(joined, [](const JoinedAlbum& album) { return album.recordsThere == 0; });  // nothing to tell of
    if (joined.empty()) return true;
    constexpr int goesOn = 0, again = 1, cancels = 2;
    const int answer =
        choose(frame_.form,
               u"这些图册已经在这里：\n\n%1\n\n只加入还没有的，请按《接着加入》：不全的图册放进回收站，重新加入。"
               "全部再加入一遍，请按《全部加入》：已有的不动，旁边另建图册。"_s.arg(listOf(joined)),
               {u"接着加入"_s, u"全部加入"_s, u"取消"_s}, goesOn, cancels);
    if (answer == goesOn) order.joined = all;
    return answer == goesOn || answer == again;
}

bool WholeCatalogue::askAboutCodes(JoinOrder& order) const {
    const std::vector<TakenCode> codes = takenCodes(source_, mekTp::catalogue);
    if (codes.empty()) return true;
    constexpr int others = 0, ours = 1, cancels = 2;
    const int answer =
        choose(frame_.form,
               u"下列编号的按钮这里已经有了，名称不同：\n\n%1\n\n旧像册的按钮另给编号（图片上的编号跟着改），请按"
               "《另给编号》；用这里的按钮，请按《用现有的》。"_s.arg(listOf(codes)),
               {u"另给编号"_s, u"用现有的"_s, u"取消"_s}, others, cancels);
    order.newCodes = answer == others;
    return answer == others || answer == ours;
}

void WholeCatalogue::finish(const RunReport& report) {
    for (const QString& table : before_)
        if (!findAlbum(mekTp::catalogue, table)) frame_.albums.removeLine(table);
    frame_.albums.addMissing();
    Q_EMIT over();
    // The album on the screen may have gone, or come anew.
    if (const QString shown = frame_.albums.table(); !shown.isEmpty()) frame_.albums.choose(shown);
    const bool isDone = report.cameToEnd && !report.stopped && report.failure.isEmpty();
    QString text = (isDone ? u"转换完成！  %1。"_s : u"转换没有做完。  %1。"_s).arg(outcomeText(report, words));
    if (!report.failure.isEmpty()) text += u"\n\n"_s + report.failure;
    say(frame_.form, text, isDone ? BoxIcon::information : BoxIcon::exclamation);
    frame_.runBar.tellReport(report, words, nullptr);
    frame_.bin.look();
}
