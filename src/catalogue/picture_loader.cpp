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
// A page of 36 photographs, of which each was decoded at an eighth of its size.
constexpr qint64 decodedRoom = 32 << 20;
constexpr qint64 smallBytes = 1 << 20;

qint64 cost(const Picture& picture) {
    return picture.image().sizeInBytes() + entryBytes;
}

}  // namespace

size_t qHash(const PictureRequest& request, size_t seed) noexcept {
    return qHashMulti(seed, request.value, request.target.width(), request.target.height());
}

PictureLoader::PictureLoader(QObject* parent)
    : QObject(parent), kept_(usualRoom), decoded_(decodedRoom), threads_([this] {
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

/// A picture that was decoded for a smaller place would be blurred in a larger one.
const Picture* PictureLoader::decodedFor(const PictureRequest& request) const {
    const Picture* decoded = decoded_.object(request.value);
    if (decoded == nullptr || decoded->image().size() == decoded->pixels()) return decoded;
    const bool covers = request.target.boundedTo(decoded->image().size()) == request.target;
    return covers && !request.target.isEmpty() ? decoded : nullptr;
}

void PictureLoader::feed() {
    while (!wanted_.empty() && hasRoomForWork()) {
        const PictureRequest request = std::move(wanted_.front());
        wanted_.pop_front();
        QByteArray bytes;
        const Picture* decoded = decodedFor(request);
        if (decoded == nullptr && !attempt([&] { bytes = request.value.read(0, request.value.size()); })) {
            Q_EMIT loaded(request, {});
            continue;
        }
        inWork_.insert(++lastTicket_, {request, bytes.size()});
        bytesInWork_ += bytes.size();
        threads_.give({lastTicket_, bytes, request.target, decoded != nullptr ? *decoded : Picture()});
    }
}

void PictureLoader::keep(const PictureRequest& request, const DecodingThreads::Result& result) {
    kept_.insert(request, new Picture(result.picture), cost(result.picture));
    if (!result.decoded.isNull() && cost(result.decoded) <= smallBytes)
        decoded_.insert(request.value, new Picture(result.decoded), cost(result.decoded));
}

void PictureLoader::collect(QDeadlineTimer deadline) {
    for (const DecodingThreads::Result& result : threads_.take(deadline)) {
        const PictureRequest request = finish(result.ticket).request;
        keep(request, result);
        Q_EMIT loaded(request, result.picture);
    }
    feed();
}

void PictureLoader::workUntil(const std::function<bool()>& done, QDeadlineTimer deadline) {
    while (!done() && !deadline.hasExpired() && !isIdle()) collect(deadline);
}
