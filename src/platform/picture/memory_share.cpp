#include "platform/picture/memory_share.h"

#include "platform/picture/refusal.h"

#include <condition_variable>
#include <mutex>

namespace {

struct Taken {
    std::mutex mutex;
    std::condition_variable given;
    qint64 bytes = 0;
};

Taken& taken() {
    static Taken all;
    return all;
}

}  // namespace

MemoryShare::MemoryShare(qint64 bytes) : bytes_(bytes) {
    std::unique_lock lock(taken().mutex);
    taken().given.wait(lock, [this] { return taken().bytes == 0 || taken().bytes + bytes_ <= pictureMemoryLimit(); });
    taken().bytes += bytes_;
}

MemoryShare::~MemoryShare() {
    {
        const std::lock_guard lock(taken().mutex);
        taken().bytes -= bytes_;
    }
    taken().given.notify_all();
}
