#pragma once

#include <QtGlobal>
#include <functional>

class QWidget;

/// Room on the disk at the cost of the bin: where less than 2 GB are free, it asks whether the oldest items may go.
/// "取消" keeps all, and it is not asked again unless the disk is as good as full.
class BinRoom {
  public:
    explicit BinRoom(QWidget* form);

    /// Before something is written that may be large. Asks only where the bin has something to give.
    void offer();

    /// Bytes that are free on the disk of the catalogue.
    static std::function<qint64()> free;

  private:
    QWidget* form_;
    bool isRefused_ = false;
};
