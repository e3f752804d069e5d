#include "cli/writer_watch.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <chrono>
#include <utility>

namespace {

constexpr std::chrono::milliseconds lookEvery{20};
/// The byte that the engine locks for a writer that waits for readers. See the description of its file locking.
constexpr off_t pendingByte = 0x40000000;

bool isWriterWaiting(int file) {
    struct flock lock = {};
    lock.l_type = F_RDLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = pendingByte;
    lock.l_len = 1;
    return fcntl(file, F_GETLK, &lock) == 0 && lock.l_type == F_WRLCK;
}

}  // namespace

WriterWatch::WriterWatch(const QString& file, std::function<void()> waits)
    : descriptor_(open(QFile::encodeName(file).constData(), O_RDONLY | O_CLOEXEC)) {
    if (descriptor_ < 0) return;
    thread_ = std::jthread([file = descriptor_, waits = std::move(waits)](const std::stop_token& stop) {
        for (; !stop.stop_requested(); std::this_thread::sleep_for(lookEvery))
            if (isWriterWaiting(file)) waits();
    });
}

WriterWatch::~WriterWatch() {
    if (thread_.joinable()) {
        thread_.request_stop();
        thread_.join();
    }
    if (descriptor_ >= 0) close(descriptor_);
}
