#pragma once

#include "catalogue/decoding_threads.h"
#include "platform/database/records/stored_value.h"

#include <QCache>
#include <QHash>
#include <QObject>

/// A stored picture for a place of that many device pixels.
struct PictureRequest {
    StoredValue value;
    QSize target;

    bool operator==(const PictureRequest& other) const = default;
};
size_t qHash(const PictureRequest& request, size_t seed = 0) noexcept;

/// Decodes stored pictures in the background and keeps what it has decoded, as far as its room goes: what was used
/// longest ago makes way. A changed record holds another value, so nothing that is kept ever grows old. The database is
/// read in the thread that the object belongs to, a picture at a time, when a decoding thread is free for it.
class PictureLoader : public QObject {
    Q_OBJECT

  public:
    explicit PictureLoader(QObject* parent = nullptr);

    void setRoom(qint64 bytes);
    /// nullptr when it is not at hand; a null picture when the bytes are no picture. Valid until the next call.
    const Picture* kept(const PictureRequest& request) const;

    /// What is to be decoded now, the most urgent first. What was wanted before and is not among it is dropped.
    void want(const std::vector<PictureRequest>& requests);
    /// Goes on with the work until `done` says so, or the time is over.
    void workUntil(const std::function<bool()>& done, QDeadlineTimer deadline);
    bool isIdle() const { return wanted_.empty() && inWork_.isEmpty(); }

  Q_SIGNALS:
    /// The picture is null when the value cannot be read or is no picture.
    void loaded(const PictureRequest& request, const Picture& picture);

  private:
    void feed();
    void collect(QDeadlineTimer deadline);

    struct Work {
        PictureRequest request;
        qint64 bytes;  ///< Of the coded picture.
    };
    bool hasRoomForWork() const;
    Work finish(quint64 ticket);

    std::deque<PictureRequest> wanted_;
    QHash<quint64, Work> inWork_;
    qint64 bytesInWork_ = 0;
    quint64 lastTicket_ = 0;
    QCache<PictureRequest, Picture> kept_;
    DecodingThreads threads_;  ///< Last: they end first.
};
