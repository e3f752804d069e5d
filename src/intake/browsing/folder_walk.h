#pragma once

#include "intake/browsing/picture_files.h"

#include <QObject>
#include <atomic>
#include <thread>

/// Looks for the pictures below a folder in a thread of its own. One walk at a time: the next one ends the one before.
class FolderWalk : public QObject {
    Q_OBJECT

  public:
    ~FolderWalk() override { stop(); }

    void begin(const QString& folder, ListedFiles which);
    /// Nothing more comes of the walk. Waits for the file in hand.
    void stop();
    bool isAtWork() const { return thread_.joinable(); }

  Q_SIGNALS:
    void counted(qsizetype count);  ///< So many were found; a few times a second.
    void done(const QStringList& files);

  private:
    void tell(int walk, const std::function<void()>& news);

    std::thread thread_;
    std::atomic<bool> isWanted_ = false;
    int walk_ = 0;  ///< News of an earlier walk may be on their way.
};
