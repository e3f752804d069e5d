#pragma once

#include "catalogue/background_hashing.h"

#include <QObject>
#include <QTimer>
#include <atomic>
#include <chrono>

/// Gives the pictures of the open catalogue the fingerprints that they lack, and proves them from time to time, while
/// nobody works with the program: that is done in a thread, and its results are stored in this one, a batch in a
/// change. Nothing is read or stored during a run, nor until some time has passed since the last key or movement of the
/// mouse.
class HashKeeping : public QObject {
    Q_OBJECT

  Q_SIGNALS:
    void damageFound();  ///< Pictures that were not known to be damaged are.

  public:
    struct Pace {
        std::chrono::milliseconds quiet{2000};  ///< After the last input.
        BackgroundHashing::Pace hashing = {};
        std::chrono::milliseconds again{30000};  ///< What could not be stored is tried again after it.
    };
    HashKeeping(const QString& catalogue, const Pace& pace);
    explicit HashKeeping(const QString& catalogue) : HashKeeping(catalogue, Pace()) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    using Clock = std::chrono::steady_clock;

    bool isQuiet() const;  ///< In any thread.
    void storeWhenQuiet();

    const Pace pace_;
    std::atomic<Clock::time_point> lastInput_ = Clock::now();
    QTimer wait_;                ///< Until what was made can be stored.
    BackgroundHashing hashing_;  ///< Last: its thread uses the others.
};
