#include "intake/browsing/folder_walk.h"

#include <QElapsedTimer>

namespace {
constexpr qint64 newsMs = 150;
}  // namespace

void FolderWalk::begin(const QString& folder, ListedFiles which) {
    stop();
    isWanted_ = true;
    thread_ = std::thread([this, folder, which, walk = walk_] {
        QElapsedTimer sinceNews;
        sinceNews.start();
        const auto goesOn = [&](qsizetype count) {
            if (sinceNews.hasExpired(newsMs)) {
                sinceNews.restart();
                tell(walk, [this, count] { Q_EMIT counted(count); });
            }
            return isWanted_.load();
        };
        const QStringList files = picturesBelow(folder, which, goesOn);
        tell(walk, [this, files] {
            stop();
            Q_EMIT done(files);
        });
    });
}

void FolderWalk::stop() {
    isWanted_ = false;
    ++walk_;
    if (thread_.joinable()) thread_.join();
}

/// In the thread of the window.
void FolderWalk::tell(int walk, const std::function<void()>& news) {
    QMetaObject::invokeMethod(
        this,
        [this, walk, news] {
            if (walk == walk_) news();
        },
        Qt::QueuedConnection);
}
