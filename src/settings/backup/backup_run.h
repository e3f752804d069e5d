#pragma once

#include <QTimer>

/// A backup under way. It goes on by itself, also when the program ends; as long as the program is there, a failure is
/// told in a message box when it comes, whatever window is shown then.
class BackupRun : public QObject {
    Q_OBJECT

  public:
    /// The one that is under way, if any.
    static BackupRun* current();

    /// Starts the script bf.sh. Throws `Error` when it cannot. The object goes when the script has ended.
    static void start();

  Q_SIGNALS:
    void ended();

  private:
    explicit BackupRun(qint64 process);
    void look();

    qint64 process_;
    QTimer timer_;
};
