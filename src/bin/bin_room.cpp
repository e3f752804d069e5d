#include "bin/bin_room.h"

#include "bin/bin_words.h"
#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"

#include <QFileInfo>
#include <QStorageInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 enough = 2'000'000'000;
constexpr qint64 asGoodAsFull = 100'000'000;

qint64 freeOnDisk() {
    const QStorageInfo disk(QFileInfo(mekTp::cataloguePath()).canonicalPath());
    return disk.isValid() ? disk.bytesAvailable() : enough;
}

}  // namespace

std::function<qint64()> BinRoom::free = freeOnDisk;

BinRoom::BinRoom(QWidget* form) : form_(form) {}

void BinRoom::offer() {
    const qint64 left = free();
    if (left >= enough || (isRefused_ && left >= asGoodAsFull)) return;
    std::vector<qint64> oldest;
    BinTotals totals;
    attempt([&] {
        oldest = oldestBinItems(mekTp::catalogue, enough - left);
        totals = totalsOf(binItems(mekTp::catalogue, oldest));
    });
    if (totals.bytes == 0) return;
    const QString question =
        u"图册所在的硬盘只剩 %1。\n\n把回收站里最早的 %2（%3）彻底删除，腾出地方，请按《确定》；全部保留，请按《取消》。"_s;
    isRefused_ = !askBeforeDeleting(
        form_, question.arg(left > 0 ? bytesText(left) : u"0 MB"_s, partsText(totals), bytesText(totals.bytes)));
    if (isRefused_) return;
    const Hourglass hourglass;
    removeFromBin(mekTp::catalogue, oldest);
}
