#include "catalogue/picture_loader.h"

#include "platform/base/error.h"

#include <QMetaObject>
#include <algorithm>

namespace {

// The bytes of this many pictures are read ahead, so that no thread waits while the window is being painted.
constexpr int inReserve = 2;
constexpr qint64 mostBytesInWork = 32 << 20;
// What an entry costs besides its pixels.
constexpr qint64 entryBytes = 512;
constexpr qint64 usualRoom = 32 << 20;

}  // namespace

size_t qHash(const PictureRequest& request, size_t seed) noexcept {
    return qHashMulti(seed, request.value, request.target.width(), request.target.height());
}

PictureLoader::PictureLoader(QObject* parent)
    : QObject(parent), kept_(usualRoom), threads_([this] {
          QMetaObject::invokeMethod(
              this, [this] { collect(QDeadlineTimer(0)); }, Qt::QueuedConnection);
      }) {}

void PictureLoader::setRoom(qint64 bytes) {
    kept_.setMaxCost(bytes);
}

const Picture* PictureLoader::kept(const PictureRequest& request) const {
    return kept_.object(request);
}

void PictureLoader::want(const std::vector<PictureRequest>& requests) {
    for (const quint64 ticket : threads_.dropWaiting()) finish(ticket);
    wanted_.clear();
    for (const PictureRequest& request : requests) {
        const bool isInWork = std::ranges::find(inWork_, request, &Work::request) != inWork_.end();
        if (!isInWork && !kept_.contains(request)) wanted_.push_back(request);
    }
    feed();
}

bool PictureLoader::hasRoomForWork() const {
    return inWork_.isEmpty() ||
           (inWork_.size() < DecodingThreads::count() + inReserve && bytesInWork_ < mostBytesInWork);
}

PictureLoader::Work PictureLoader::finish(quint64 ticket) {
    const Work work = inWork_.take(ticket);
    bytesInWork_ -= work.bytes;
    return work;
}

void PictureLoader::feed() {
    while (!wanted_.empty() && hasRoomForWork()) {
        const PictureRequest request = std::move(wanted_.front());
        wanted_.pop_front();
        QByteArray bytes;
        if (!attempt([&] { bytes = request.value.read(0, request.value.size()); })) {
            Q_EMIT loaded(request, {});
            continue;
        }
        inWork_.insert(++lastTicket_, {request, bytes.size()});
        bytesInWork_ += bytes.size();
        threads_.give({lastTicket_, bytes, request.target});
    }
}

void PictureLoader::collect(QDeadlineTimer deadline) {
    for (const DecodingThreads::Result& result : threads_.take(deadline)) {
        const PictureRequest request = finish(result.ticket).request;
        kept_.insert(request, new Picture(result.picture), result.picture.image().sizeInBytes() + entryBytes);
        Q_EMIT loaded(request, result.picture);
    }
    feed();
}

void PictureLoader::workUntil(const std::function<bool()>& done, QDeadlineTimer deadline) {
    while (!done() && !deadline.hasExpired() && !isIdle()) collect(deadline);
}
