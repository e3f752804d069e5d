#pragma once

#include <QDate>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <functional>

/// Removes from the bin of the open catalogue what has been there long enough, a few items at a time, while no run and
/// no backup is under way. Remembers on which days the program was used (see `BinDays`).
class BinKeeping : public QObject {
    Q_OBJECT

  public:
    struct Pace {
        std::chrono::milliseconds start{20000};    ///< The first pages and pictures come before it.
        std::chrono::milliseconds between{500};    ///< Two changes of the catalogue.
        std::chrono::milliseconds again{3600000};  ///< When nothing is left to be removed, or it has failed.
        std::function<QDate()> today = [] { return QDate::currentDate(); };
    };
    explicit BinKeeping(const Pace& pace);
    BinKeeping() : BinKeeping(Pace()) {}

  private:
    void work();
    qint64 lastOver() const;

    Pace pace_;
    QTimer next_;
};
