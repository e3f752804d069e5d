#include "catalogue/open_check.h"

#include "platform/base/processes.h"
#include "platform/database/file_check.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QSettings>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr qint64 readAtOnce = qint64(256) << 20;
constexpr qint64 daysUnchanged = 30;
constexpr auto knock = 2ms;

QString keyOf(const QFileInfo& file) {
    const QByteArray path = file.canonicalFilePath().toUtf8();
    return QString::fromLatin1(QCryptographicHash::hash(path, QCryptographicHash::Sha1).toHex());
}

std::optional<CheckedState> recalled(const QSettings& memory, const QString& key) {
    const QStringList values = memory.value(key).toStringList();
    if (values.size() != 3) return {};
    const auto time = [](const QString& text) { return QDateTime::fromMSecsSinceEpoch(text.toLongLong()); };
    return CheckedState{values[0].toLongLong(), time(values[1]), time(values[2])};
}

void remember(QSettings& memory, const QString& key, const CheckedState& state) {
    const auto text = [](const QDateTime& time) { return QString::number(time.toMSecsSinceEpoch()); };
    memory.setValue(key, QStringList{QString::number(state.size), text(state.changed), text(state.checked)});
}

}  // namespace

bool isCheckDue(const std::optional<CheckedState>& last, qint64 size, const QDateTime& changed, const QDateTime& now) {
    if (size < readAtOnce || !last || now < last->checked) return true;
    const bool isSame = size == last->size && changed == last->changed;
    return last->checked.daysTo(now) >= (isSame ? daysUnchanged : 1);
}

OpenCheck::OpenCheck(const QString& file, const QString& memory, std::function<void()> damaged, Pace pace)
    : file_(file), memory_(memory), damaged_(std::move(damaged)), pace_(pace) {
    thread_ = std::jthread([this](const std::stop_token& stop) { work(stop); });
}

/// A check that has not quite begun misses a single call to end.
OpenCheck::~OpenCheck() {
    thread_.request_stop();
    std::unique_lock lock(mutex_);
    while (!woken_.wait_for(lock, knock, [this] { return ended_; })) FileCheck::interruptAll();
}

void OpenCheck::work(const std::stop_token& stop) {
    workInTheBackground();
    waitFor(pace_.start, stop);
    attempt([&] {
        for (auto rest = pace_.rest; !stop.stop_requested() && !check(stop); rest *= 2) waitFor(rest, stop);
    });
    const std::lock_guard lock(mutex_);
    ended_ = true;
    woken_.notify_all();
}

/// Tells whether there is nothing left to do.
bool OpenCheck::check(const std::stop_token& stop) {
    const QFileInfo before(file_);
    QSettings memory(memory_, QSettings::IniFormat);
    const QString key = keyOf(before);
    if (!isCheckDue(recalled(memory, key), before.size(), before.lastModified(), QDateTime::currentDateTime()))
        return true;
    FileCheck check(file_);
    const FileCheck::Outcome outcome = check.run();
    if (outcome == FileCheck::Outcome::interrupted || stop.stop_requested()) return false;
    if (outcome == FileCheck::Outcome::damaged)
        damaged_();
    else
        remember(memory, key, {before.size(), before.lastModified(), QDateTime::currentDateTime()});
    return true;
}

void OpenCheck::waitFor(std::chrono::milliseconds time, const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    woken_.wait_for(lock, stop, time, [] { return false; });
}
