#pragma once

/// Whether work of several steps is under way on the page in front: leaving the page would lose it.
class UnfinishedWork {
  public:
    void begin() { isUnderWay_ = true; }
    void end() { isUnderWay_ = false; }
    void setUnderWay(bool on) { isUnderWay_ = on; }
    bool isUnderWay() const { return isUnderWay_; }

  private:
    bool isUnderWay_ = false;
};
