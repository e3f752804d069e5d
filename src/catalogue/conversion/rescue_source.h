#pragma once

#include "catalogue/runs/run_watch.h"
#include "platform/database/records/database.h"

#include <QString>
#include <QStringList>
#include <vector>

/// A damaged catalogue of ours, as far as it can be read: each table with the statement that lists its readable
/// records. The file is only read. Where it cannot be opened, or a whole table of it cannot, and the `sqlite3` shell is
/// installed, what the shell recovers of it is read instead, if that is more.
class RescueSource {
  public:
    struct Table {
        QString name;
        QString records;      ///< The statement that lists them.
        QStringList missing;  ///< A sentence for each part that is lost.
        bool isAlbum = false;
    };

    /// The recovered file, if it comes to that, is made at `scratch`, and removed with the object. The watch may end
    /// the waiting for it. Throws `Error` when there is not one album or fixed table that can be read.
    RescueSource(const QString& damaged, const QString& scratch, RunWatch& watch);
    ~RescueSource();
    RescueSource(const RescueSource&) = delete;
    RescueSource& operator=(const RescueSource&) = delete;

    const Database& database() const { return found_.database; }
    /// The same for another thread, for reading each picture once.
    Database openAgain() const;
    const std::vector<Table>& tables() const { return found_.tables; }
    /// Tables that are lost as a whole.
    const QStringList& unreadable() const { return found_.unreadable; }
    /// Whether the shell could help, as a sentence; empty where that was not needed.
    const QString& recovery() const { return recovery_; }

  private:
    struct Found {
        Database database = {};
        std::vector<Table> tables = {};
        QStringList unreadable = {};
        QString failure = {};  ///< Why nothing can be read.
    };
    static Found look(const QString& path);
    QString recover(const QString& damaged, RunWatch& watch);

    QString scratch_;
    Found found_;
    QString recovery_;
};
