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

/// Decodes stored pictures in the background and keeps as many as it has room for; the one that was not used for the
/// longest time goes first. A changed record holds another value, so a kept picture is never out of date. The database
/// is read in the object's own thread, a picture at a time, when a decoding thread is free. Small pictures are kept as
/// they were decoded, too: at another size, as when the window is resized, they are only scaled.
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
    const Picture* decodedFor(const PictureRequest& request) const;
    void keep(const PictureRequest& request, const DecodingThreads::Result& result);
    Work finish(quint64 ticket);

    std::deque<PictureRequest> wanted_;
    QHash<quint64, Work> inWork_;
    qint64 bytesInWork_ = 0;
    quint64 lastTicket_ = 0;
    QCache<PictureRequest, Picture> kept_;
    QCache<StoredValue, Picture> decoded_;
    DecodingThreads threads_;  ///< Last: they end first.
};
