#include "intake/databases/whole_catalogue.h"

#include "catalogue/album_directory.h"
#include "catalogue/album_rules.h"
#include "catalogue/conversion/joining.h"
#include "catalogue/conversion/old_albums.h"
#include "catalogue/mektp.h"
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
    bool newCodes = true;
    if (!mayBegin(newCodes)) return;
    before_.clear();
    for (const Album& album : allAlbums(mekTp::catalogue)) before_ << album.table;
    const JoinOrder order{source_.Name(), mekTp::cataloguePath(), newCodes};
    frame_.runBar.start(
        {.at = barPlace}, words, [order](RunWatch& watch) { return joinCatalogue(order, watch); },
        [this](const RunReport& report) { finish(report); });
}

bool WholeCatalogue::mayBegin(bool& newCodes) const {
    std::vector<OldAlbum> albums = oldAlbums(source_);
    std::erase_if(albums, [](const OldAlbum& album) { return album.table.isEmpty() || isDemo(album.table); });
    const bool begins = ask(frame_.form,
                            u"把“%1”的全部图册（%2 册）和按钮加入现在的像册吗？\n\n图册会得到空余的表名，"
                            "原来的文件不改动。\n\n如果是，按“确定”；否则按“取消”。"_s.arg(source_.Name())
                                .arg(albums.size()));
    const std::vector<TakenCode> codes = begins ? takenCodes(source_, mekTp::catalogue) : std::vector<TakenCode>();
    if (codes.empty()) return begins;
    constexpr int others = 0, ours = 1, cancels = 2;
    const int answer =
        choose(frame_.form,
               u"下列编号的按钮这里已经有了，名称不同：\n\n%1\n\n旧像册的按钮另给编号（图片上的编号跟着改），请按"
               "《另给编号》；用这里的按钮，请按《用现有的》。"_s.arg(listOf(codes)),
               {u"另给编号"_s, u"用现有的"_s, u"取消"_s}, others, cancels);
    newCodes = answer == others;
    return answer == others || answer == ours;
}

void WholeCatalogue::finish(const RunReport& report) {
    for (const Album& album : allAlbums(mekTp::catalogue))
        if (!before_.contains(album.table)) frame_.albums.addLine(albumLine(album.table, album.title));
    Q_EMIT over();
    const bool isDone = report.cameToEnd && !report.stopped && report.failure.isEmpty();
    QString text = (isDone ? u"转换完成！  %1。"_s : u"转换没有做完。  %1。"_s).arg(outcomeText(report, words));
    if (!report.failure.isEmpty()) text += u"\n\n"_s + report.failure;
    say(frame_.form, text, isDone ? BoxIcon::information : BoxIcon::exclamation);
    frame_.runBar.tellReport(report, words, nullptr);
}
