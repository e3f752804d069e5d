// What is taken away and comes back, and what keeps the pictures whole.

#include "catalogue/mektp.h"
#include "catalogue/picture_proof.h"
#include "catalogue/settings_row.h"
#include "platform/database/records/own_rows.h"
#include "platform/desktop/data_control.h"
#include "soak/fingerprints.h"
#include "soak/full_disk.h"
#include "soak/ledger.h"
#include "soak/scenes.h"
#include "soak/stored.h"
#include "start/hash_keeping.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

void Scenes::turnAll(const QStringList& pictures, const QString& from, const QString& to, bool isDone) const {
    for (const QString& picture : pictures) report_({isDone ? u"turned"_s : u"turn"_s, from, picture, to, picture});
}

/// A record of the album that the page shows. Returns its picture, which is in the bin.
QString Scenes::deleteRecord(const QString& album) {
    auto& records = settings_.get<DataControl>(u"datBj"_s);
    settings_.clickRow(int(random_.bounded(records.total())));
    QString picture = pictureOf(records.Recordset());
    turnAll({picture}, album, Ledger::bin, false);
    work([&] { settings_.click(u"cmdSc"_s); });
    turnAll({picture}, album, Ledger::bin, true);
    return picture;
}

/// Deleted, and put back at once.
void Scenes::putBack() {
    settings(editingPage);
    settings_.chooseInCombo(u"cboBm"_s, workAlbum);
    for (int i = 0; i < 3 && settings_.get<DataControl>(u"datBj"_s).total() > 0; ++i) {
        const QString picture = deleteRecord(workAlbum);
        turnAll({picture}, Ledger::bin, workAlbum, false);
        work([&] { settings_.click(u"cmdHf"_s); });
        turnAll({picture}, Ledger::bin, workAlbum, true);
    }
}

/// One comes back by the line below the page, one by the window of the bin, and the rest goes away.
void Scenes::emptyBin() {
    settings(editingPage);
    settings_.chooseInCombo(u"cboBm"_s, otherAlbum);
    if (settings_.get<DataControl>(u"datBj"_s).total() < 12) return;
    const QString first = deleteRecord(otherAlbum), second = deleteRecord(otherAlbum);
    const QString third = deleteRecord(otherAlbum);
    turnAll({third}, Ledger::bin, otherAlbum, false);
    work([&] { settings_.click(u"cmdHf"_s); });
    turnAll({third}, Ledger::bin, otherAlbum, true);
    settings_.click(u"cmdHf"_s);
    const Hand bin(u"frmHs"_s);
    bin.get<QTableView>(u"lstHs"_s).selectRow(0);
    turnAll({second}, Ledger::bin, otherAlbum, false);
    work([&] { bin.click(u"cmdHy"_s); });
    turnAll({second}, Ledger::bin, otherAlbum, true);
    const QStringList pictures = picturesInBin();
    for (const QString& picture : pictures) report_({u"drop"_s, Ledger::bin, picture});
    work([&] { bin.click(u"cmdQk"_s); });
    if (!picturesInBin().isEmpty()) throw Error(u"the bin is not empty"_s);
    for (const QString& picture : pictures) report_({u"dropped"_s, Ledger::bin, picture});
    bin.window().close();
}

void Scenes::removeAlbum(const QString& table, const QStringList& pictures) {
    settings_.chooseInCombo(u"cboFc"_s, table);
    report_({u"remove"_s, table});
    turnAll(pictures, table, Ledger::bin, false);
    work([&] { settings_.click(u"cmdFs"_s); });
    turnAll(pictures, table, Ledger::bin, true);
    report_({u"removed"_s, table});
}

void Scenes::makeAndDeleteAlbum() {
    const QString table = fillNewAlbum();
    removeAlbum(table, picturesOf(table));
}

/// The album comes back whole or not at all, and is deleted in the end.
void Scenes::putAlbumBack() {
    const QString table = fillNewAlbum();
    const QStringList pictures = picturesOf(table);
    removeAlbum(table, pictures);
    report_({u"create"_s, table});
    turnAll(pictures, Ledger::bin, table, false);
    work([&] { settings_.click(u"cmdHf"_s); });
    report_({u"created"_s, table});
    turnAll(pictures, Ledger::bin, table, true);
    removeAlbum(table, pictures);
}

void Scenes::provePictures() {
    settings(setupPage);
    run(u"cmdJy"_s, u"校验"_s);
    const QString outcome = said_.filter(u"校验"_s).last();
    if (!outcome.startsWith(u"校验完成") || outcome.contains(u"损坏")) report_({u"fault"_s, outcome});
}

/// Some hashes are missing, and others are old.
void Scenes::keepHashes() {
    const OwnRows rows(mekTp::catalogue);
    rows.run(u"DELETE FROM lunq_hashes WHERE id % 3 = 0"_s);
    rows.run(u"UPDATE lunq_hashes SET checked = '2001-01-01' WHERE id % 3 = 1"_s);
    constexpr int patience = 60000;
    work([] {
        const HashKeeping::Pace pace{.quiet = 5ms,
                                     .hashing = {.start = 0ms, .look = 5ms, .rest = 50ms, .batch = 20ms, .share = 1}};
        const HashKeeping hashes(mekTp::cataloguePath(), pace);
        const auto isThrough = [] {
            return unprintedPictures(mekTp::catalogue).empty() &&
                   picturesDue(mekTp::catalogue, QDate::currentDate()).empty();
        };
        if (!QTest::qWaitFor([&] { return isDiskFull() || isThrough(); }, patience))
            throw Error(u"hashes are still missing"_s);
    });
    if (const ProofState state = proofState(mekTp::catalogue); !state.damaged.isEmpty())
        report_({u"fault"_s, u"pictures count as damaged"_s});
}

/// The pictures of an album of a backup join those that the album has now.
void Scenes::takeFromBackup() {
    const QString backup = QDir(newFolder()).filePath(u"lunq.mdb"_s);
    const QStringList pictures = makeSource(backup);
    storeSetting(u"备份路径"_s, backup);
    settings(setupPage);
    settings_.click(u"cmdHy"_s);
    Hand(u"frmHy"_s).click(u"cmdQh"_s);
    const Hand chooser(u"frmQh"_s);
    auto& albums = chooser.get<QListWidget>(u"lstTc"_s);
    albums.setCurrentItem(albums.findItems(u"册"_s + workAlbum, Qt::MatchStartsWith).value(0));
    for (const QString& picture : pictures) report_({u"add"_s, workAlbum, picture});
    work([&] { waitForBox([&] { chooser.click(u"cmdQh"_s); }, u"已取回"_s); });
    for (const QString& picture : pictures) report_({u"added"_s, workAlbum, picture});
}

/// Steps that a kill has left are gone on with. There are always those that were told of, with their source.
void Scenes::keepSteps() {
    const QString left = stepsWithSource();
    preferred_ = {u"继续处理"_s, u"不保存"_s};
    const auto before = said_.size();
    const bool isLeft = left.endsWith(u'+') && !left.startsWith(u'0');
    if (isLeft) report_({u"renumber"_s, Ledger::steps, left});
    editor();
    const auto isAsked = [&] { return said_.mid(before).join(u' ').contains(u"上次处理"); };
    QCoreApplication::processEvents();
    const bool isOffered = isLeft ? QTest::qWaitFor(isAsked) : isAsked();
    if (isOffered != isLeft || (isLeft && stepsWithSource() != left))
        throw Error(u"%1 steps were left, and are %2"_s.arg(left, stepsWithSource()));
    report_({u"forget"_s, Ledger::steps});
    if (!isLeft) openAlbumPicture(otherAlbum);
    for (const QString& button : {u"tlb1:fs"_s, u"tlb1:fc"_s, u"tlb1:fs"_s}) {
        const int now = stepsWithSource().chopped(1).toInt();
        QStringList possible{u"renumber"_s, Ledger::steps, stepsWithSource()};
        for (int steps = now; steps <= now + 2; ++steps) possible << QString::number(steps) + u'+';
        report_(possible);
        work([&] { editor_.click(button); });
        report_({u"renumber"_s, Ledger::steps, stepsWithSource()});
    }
    report_({u"forget"_s, Ledger::steps});
    home();
    if (const QString rest = stepsWithSource(); rest != u"0-") throw Error(u"steps are left: "_s + rest);
    preferred_.clear();
}
