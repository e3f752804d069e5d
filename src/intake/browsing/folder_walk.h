#pragma once

#include "intake/browsing/picture_files.h"
#include "platform/base/free_thread.h"

#include <QObject>
#include <optional>

/// Looks for the pictures below a folder in a thread of its own. One walk at a time: the next one ends the one before.
class FolderWalk : public QObject {
    Q_OBJECT

  public:
    void begin(const QString& folder, ListedFiles which);
    /// Nothing more comes of the walk.
    void stop();
    bool isAtWork() const { return thread_.has_value(); }

  Q_SIGNALS:
    void counted(qsizetype count);  ///< So many were found; a few times a second.
    void done(const QStringList& files);

  private:
    void finish(const QStringList& files);
    void tell(int walk, const std::function<void()>& news);

    int walk_ = 0;  ///< News of an earlier walk may be on their way.
    std::optional<FreeThread> thread_;
};
