#include "intake/browsing/folder_walk.h"

#include <QElapsedTimer>

namespace {
constexpr qint64 newsMs = 150;
}  // namespace

// The object may go while the thread is at work: it is touched only where the thread tells something.
void FolderWalk::begin(const QString& folder, ListedFiles which) {
    stop();
    thread_.emplace([this, folder, which, walk = walk_](FreeThread::Owner& owner) {
        QElapsedTimer sinceNews;
        sinceNews.start();
        const auto goesOn = [&](qsizetype count) {
            if (sinceNews.hasExpired(newsMs)) {
                sinceNews.restart();
                owner.tell([&] { tell(walk, [this, count] { Q_EMIT counted(count); }); });
            }
            return owner.isThere();
        };
        const QStringList files = picturesBelow(folder, which, goesOn);
        owner.tell([&] { tell(walk, [this, files] { finish(files); }); });
    });
}

void FolderWalk::finish(const QStringList& files) {
    stop();
    Q_EMIT done(files);
}

void FolderWalk::stop() {
    ++walk_;
    thread_.reset();
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
