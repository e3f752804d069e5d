#include "catalogue/picture_proof.h"

#include "catalogue/album_directory.h"
#include "catalogue/album_tables.h"
#include "catalogue/picture_hashes.h"
#include "platform/base/error.h"
#include "platform/database/records/own_values.h"
#include "platform/database/records/rows_by_number.h"
#include "platform/database/records/value_hashes.h"
#include "platform/picture/picture.h"
#include "platform/picture/picture_bytes.h"

#include <QLocale>
#include <QSet>
#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <limits>
#include <mutex>
#include <thread>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString pictureColumn = u"图片"_s;
const QString damagedName = u"proof.damaged"_s;  ///< Id and fault of each: "7:1,12:3".
const QString decodedName = u"proof.decoded"_s;  ///< All values up to this id have been decoded.

/// Damage shows at any size; the smallest is the quickest.
constexpr QSize smallest(16, 16);

qint64 decodedUpTo(const OwnValues& values) {
    return values.value(decodedName).value_or(QString()).toLongLong();
}

QMap<qint64, Fault> damagedIn(const OwnValues& values) {
    QMap<qint64, Fault> all;
    for (const QString& entry : values.value(damagedName).value_or(QString()).split(u',', Qt::SkipEmptyParts))
        all.insert(entry.section(u':', 0, 0).toLongLong(), Fault(entry.section(u':', 1).toInt()));
    return all;
}

void storeDamaged(OwnValues& values, const QMap<qint64, Fault>& damaged) {
    QStringList entries;
    for (auto at = damaged.begin(); at != damaged.end(); ++at) entries << u"%1:%2"_s.arg(at.key()).arg(int(at.value()));
    if (entries.isEmpty())
        values.remove(damagedName);
    else
        values.setValue(damagedName, entries.join(u','));
}

bool isWholePicture(const QByteArray& bytes) {
    return pictureBytes(bytes) == PictureBytes::whole && attempt([&] { LoadPicture(bytes, QString(), smallest); });
}

/// Tables with pictures: the albums, and what was deleted where that is kept.
QStringList holders(const Database& catalogue) {
    return albumTables(catalogue) << u"lunq_bin"_s;
}

Fingerprint keptOf(const Database& catalogue, qint64 picture) {
    const auto kept = ValueHashes(catalogue).of(picture);
    return kept ? Fingerprint{kept->length, kept->sha256} : Fingerprint();
}

/// In pieces: nobody can store anything while one is read, and this thread may be the last in line for the processor.
QByteArray wholeOf(const StoredValue& value, const GoesOn& goesOn) {
    constexpr qint64 pieceSize = 1 << 20;
    const qint64 size = value.size();
    QByteArray bytes;
    bytes.reserve(size);
    while (bytes.size() < size && goesOn()) bytes += value.read(bytes.size(), pieceSize);
    return bytes.size() < size ? QByteArray() : bytes;
}

/// Whether an album or the bin has it.
bool isHeld(const Database& catalogue, qint64 picture) {
    const ValueHashes hashes(catalogue);
    return std::ranges::any_of(holders(catalogue), [&](const QString& holder) {
        bool has = false;
        attempt([&] { has = !hashes.rowsWith(holder, pictureColumn, picture).empty(); });
        return has;
    });
}

bool isThere(const Database& catalogue, qint64 picture) {
    return ValueHashes(catalogue).of(picture).has_value() || isHeld(catalogue, picture);
}

/// A value of no length is no picture: there is nothing to decode.
Proven look(const Database& catalogue, const ToProve& wanted, const GoesOn& goesOn) {
    const StoredValue value = ValueHashes(catalogue).valueOf(wanted.picture);
    Proven found{.picture = wanted.picture, .isNew = wanted.print.sha256.isEmpty()};
    bool isWhole = true;
    if (wanted.decodes && goesOn()) {
        const QByteArray bytes = wholeOf(value, goesOn);
        if (bytes.isEmpty() && value.size() > 0) return found;
        found.print = fingerprintOf(bytes);
        found.isDecoded = true;
        isWhole = found.print.length == 0 || isWholePicture(bytes);
    } else {
        found.print = fingerprintOf(value, goesOn);
    }
    if (found.print.sha256.isEmpty()) return found;
    if (!found.isNew && found.print != wanted.print)
        found.fault = Fault::changed;
    else if (!isWhole)
        found.fault = Fault::notWhole;
    return found;
}

std::vector<ToProve> known(const Database& catalogue, const QDate& before, qint64 decoded) {
    std::vector<ToProve> all;
    for (const auto& [id, kept] : ValueHashes(catalogue).lastChecked(before, decoded))
        all.push_back({id, {kept.length, kept.sha256}, id > decoded});
    return all;
}

/// What several threads do together.
struct Shared {
    std::atomic<std::size_t> next = 0;
    std::atomic<qint64> bytes = 0;
    std::atomic<bool> goesOn = true;
    std::mutex mutex;
    std::condition_variable changed;
    std::vector<Proven> found;
    std::exception_ptr failure;
    std::size_t busy = 0;
};

void proveSome(const QString& file, const std::vector<ToProve>& pictures, Shared& shared) {
    try {
        const Database catalogue = OpenDatabase(file);
        const auto goesOn = [&] { return shared.goesOn.load(); };
        for (std::size_t at = shared.next++; at < pictures.size() && goesOn(); at = shared.next++) {
            const auto one = prove(catalogue, pictures[at], [] { return true; });
            if (!one) continue;
            shared.bytes += one->print.length;
            const std::lock_guard lock(shared.mutex);
            shared.found.push_back(*one);
        }
    } catch (...) {
        const std::lock_guard lock(shared.mutex);
        shared.failure = std::current_exception();
    }
    const std::lock_guard lock(shared.mutex);
    --shared.busy;
    shared.changed.notify_all();
}

/// Up to which id all are decoded, when those of `decoded` are too. What is damaged is not decoded any more.
qint64 decodedNow(const Database& catalogue, qint64 upTo, const QSet<qint64>& decoded,
                  const QMap<qint64, Fault>& damaged) {
    if (decoded.isEmpty()) return upTo;
    qint64 gap = std::numeric_limits<qint64>::max();
    const auto see = [&](qint64 id) {
        if (id > upTo && !decoded.contains(id) && !damaged.contains(id)) gap = std::min(gap, id);
    };
    for (const ToProve& one : known(catalogue, QDate(), upTo)) see(one.picture);
    for (const StoredValue& bare : unprintedPictures(catalogue)) see(bare.id());
    for (const qint64 id : decoded)
        if (id < gap) upTo = std::max(upTo, id);
    return upTo;
}

void healFrom(const Remedy& remedy, const Database& catalogue, qint64 picture, const Fingerprint& kept) {
    const StoredValue good = ValueHashes(OpenDatabase(remedy.backup)).valueOf(remedy.value);
    const QByteArray bytes = good.read(0, good.size());
    if (kept.sha256.isEmpty() || fingerprintOf(bytes) != kept)
        throw Error(u"备份“%1”中的这张图片也变了，没有修复。"_s.arg(remedy.backup));
    Transaction together(catalogue);
    ValueHashes hashes(catalogue);
    hashes.mend(picture, bytes);
    if (fingerprintOf(hashes.valueOf(picture)) != kept) throw Error(u"修复的图片读回来不同，没有修复。"_s);
    storeProof(catalogue, {{.picture = picture, .print = kept}});
    together.commit();
}

}  // namespace

std::vector<StoredValue> unprintedPictures(const Database& catalogue) {
    const ValueHashes hashes(catalogue);
    std::vector<StoredValue> all;
    if (!hashes.areKept()) return all;
    for (const QString& holder : holders(catalogue))
        attempt([&] { std::ranges::move(hashes.without(holder, pictureColumn), std::back_inserter(all)); });
    return all;
}

std::vector<ToProve> allPictures(const Database& catalogue) {
    constexpr qint64 none = -1;
    const qint64 decoded = decodedUpTo(OwnValues(catalogue));
    std::vector<ToProve> all = known(catalogue, QDate(), none);
    for (ToProve& one : all) one.decodes = one.picture > decoded;
    for (const StoredValue& bare : unprintedPictures(catalogue)) all.push_back({bare.id(), {}, bare.id() > decoded});
    std::ranges::sort(all, {}, &ToProve::picture);
    return all;
}

std::vector<ToProve> picturesWithPrints(const Database& catalogue) {
    std::vector<ToProve> all = allPictures(catalogue);
    std::erase_if(all, [](const ToProve& one) { return one.print.sha256.isEmpty(); });
    for (ToProve& one : all) one.decodes = false;
    return all;
}

std::vector<ToProve> picturesDue(const Database& catalogue, const QDate& before) {
    const OwnValues values(catalogue);
    std::vector<ToProve> due = known(catalogue, before, decodedUpTo(values));
    const QMap<qint64, Fault> damaged = damagedIn(values);
    std::erase_if(due, [&](const ToProve& one) { return damaged.contains(one.picture); });
    return due;
}

/// What fails is tried again. Where the file answers otherwise, the picture is what is damaged.
std::optional<Proven> prove(const Database& catalogue, const ToProve& picture, const GoesOn& goesOn) {
    constexpr int tries = 3;
    for (int i = 1; i <= tries; ++i) {
        bool isGone = false;
        if (i == tries && (!attempt([&] { isGone = !isThere(catalogue, picture.picture); }) || isGone)) return {};
        std::optional<Proven> found;
        if (!attempt([&] { found = look(catalogue, picture, goesOn); })) continue;
        if (found->print.sha256.isEmpty()) return {};
        if (found->fault != Fault::changed || i > 1) return found;
    }
    return Proven{.picture = picture.picture, .fault = Fault::unreadable};
}

std::vector<Proven> proveAll(const QString& file, const std::vector<ToProve>& pictures, const ProofGoesOn& goesOn) {
    constexpr auto pause = 50ms;
    Shared shared;
    shared.busy = std::max(1U, std::thread::hardware_concurrency());
    std::vector<std::jthread> threads;
    for (std::size_t i = shared.busy; i > 0; --i) threads.emplace_back([&] { proveSome(file, pictures, shared); });
    {
        std::unique_lock lock(shared.mutex);
        while (!shared.changed.wait_for(lock, pause, [&] { return shared.busy == 0; })) {
            const qsizetype done = qsizetype(shared.found.size());
            lock.unlock();
            if (!goesOn(done, shared.bytes)) shared.goesOn = false;
            lock.lock();
        }
    }
    threads.clear();
    if (shared.failure) std::rethrow_exception(shared.failure);
    std::ranges::sort(shared.found, {}, &Proven::picture);
    return std::move(shared.found);
}

ProofState proofState(const Database& catalogue) {
    const ValueHashes::Extent kept = ValueHashes(catalogue).extent();
    ProofState state{kept.count, kept.since, damagedIn(OwnValues(catalogue))};
    for (auto at = state.damaged.begin(); at != state.damaged.end() && state.unchanged > 0; ++at)
        if (ValueHashes(catalogue).of(at.key())) --state.unchanged;
    return state;
}

QString proofText(const ProofState& state) {
    const QLocale english(QLocale::English);
    QStringList parts;
    if (state.unchanged > 0) parts << u"%1 张图片未变"_s.arg(english.toString(state.unchanged));
    if (!state.damaged.isEmpty()) parts << u"%1 张有损坏"_s.arg(english.toString(state.damaged.size()));
    if (!parts.isEmpty() && state.since.isValid()) parts << state.since.toString(Qt::ISODate);
    return parts.join(u'，');
}

QMap<qint64, Fault> storeProof(const Database& catalogue, const std::vector<Proven>& found) {
    Transaction together(catalogue);
    ValueHashes hashes(catalogue);
    OwnValues values(catalogue);
    const QMap<qint64, Fault> before = damagedIn(values);
    QMap<qint64, Fault> damaged, fresh;
    for (auto at = before.begin(); at != before.end(); ++at)
        if (isThere(catalogue, at.key())) damaged.insert(at.key(), at.value());
    std::vector<qint64> checked;
    QSet<qint64> decoded;
    for (const Proven& one : found) {
        if (one.isNew) hashes.note(one.picture, one.print.length, one.print.sha256);
        const auto kept = hashes.of(one.picture);
        if (one.fault == Fault::unreadable ? !isThere(catalogue, one.picture) : !kept) continue;
        if (one.fault == Fault::none && kept->sha256 != one.print.sha256) continue;
        checked.push_back(one.picture);
        if (one.isDecoded) decoded.insert(one.picture);
        if (one.fault == Fault::none && damaged.value(one.picture) != Fault::notWhole) damaged.remove(one.picture);
        if (one.fault == Fault::none) continue;
        damaged.insert(one.picture, one.fault);
        if (!before.contains(one.picture)) fresh.insert(one.picture, one.fault);
    }
    hashes.setChecked(checked);
    if (damaged != before) storeDamaged(values, damaged);
    const qint64 upTo = decodedUpTo(values), now = decodedNow(catalogue, upTo, decoded, damaged);
    if (now > upTo) values.setValue(decodedName, QString::number(now));
    together.commit();
    return fresh;
}

PicturePlace placeOf(const Database& catalogue, qint64 picture) {
    const ValueHashes hashes(catalogue);
    for (const QString& table : albumTables(catalogue)) {
        std::vector<qint64> rows;
        attempt([&] { rows = hashes.rowsWith(table, pictureColumn, picture); });
        if (rows.empty()) continue;
        PicturePlace place{table, table, {}};
        attempt([&] { place.number = recordsOfRows(catalogue, table, rows).valueAt(0, u"序号"_s).textOr(); });
        attempt([&] { place.album = findAlbum(catalogue, table).value_or(Album{{}, table, table, {}}).title; });
        return place;
    }
    return {};
}

QString textOf(const PicturePlace& place) {
    return place.table.isEmpty() ? u"已删除的图片"_s : u"《%1》%2"_s.arg(place.album, place.number);
}

QString textOf(Fault fault) {
    switch (fault) {
        case Fault::changed:
            return u"图片变了，与录入时不同"_s;
        case Fault::unreadable:
            return u"图片不能读出"_s;
        case Fault::notWhole:
            return u"不是完整的图片"_s;
        case Fault::none:
            break;
    }
    return u"图片未变"_s;
}

QMap<qint64, Remedies> remediesFor(const Database& catalogue, const QMap<qint64, Fault>& damaged,
                                   const QStringList& backups) {
    QMap<qint64, Remedies> found;
    const ValueHashes hashes(catalogue);
    for (const QString& backup : backups) {
        attempt([&] {
            const ValueHashes there(OpenDatabase(backup));
            for (auto at = damaged.begin(); at != damaged.end(); ++at) {
                const auto kept = hashes.of(at.key());
                if (!kept || at.value() == Fault::notWhole) continue;
                const std::vector<StoredValue> same = there.like(*kept);
                for (const StoredValue& one : same) found[at.key()].push_back({backup, one.id()});
            }
        });
    }
    return found;
}

void heal(const Database& catalogue, qint64 picture, const Remedies& remedies) {
    const Fingerprint kept = keptOf(catalogue, picture);
    QString failure = u"备份中没有这张图片，没有修复。"_s;
    for (const Remedy& remedy : remedies) {
        try {
            healFrom(remedy, catalogue, picture, kept);
            return;
        } catch (const Error& failed) {
            failure = failed.text();
        }
    }
    throw Error(failure);
}

void takeAsIs(const Database& catalogue, qint64 picture) {
    Transaction together(catalogue);
    ValueHashes hashes(catalogue);
    const Fingerprint now = fingerprintOf(hashes.valueOf(picture));
    OwnValues values(catalogue);
    QMap<qint64, Fault> damaged = damagedIn(values);
    damaged.remove(picture);
    hashes.note(picture, now.length, now.sha256);
    storeDamaged(values, damaged);
    together.commit();
}
