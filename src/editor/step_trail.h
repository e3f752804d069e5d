#pragma once

#include <QString>
#include <vector>

/// The steps of an editing session that can be taken back: the code of the load and the numbers of the live steps,
/// newest last.
class StepTrail {
  public:
    StepTrail() = default;
    explicit StepTrail(QString baseCode) : base_(std::move(baseCode)) {}

    /// "w1" for a picture from a file, "k1" for one from an album.
    const QString& baseCode() const { return base_; }
    bool isFromAlbum() const { return base_.startsWith(u'k'); }

    void push(int step) { steps_.push_back(step); }
    /// Takes the newest step away and tells its number in the form of the column 编号; empty when there is none.
    QString pop();
    bool isEmpty() const { return steps_.empty(); }
    /// Number of the newest step in the form of 编号; empty when there is none.
    QString newest() const;

    /// A step number as the column 编号 has it: two digits, more from step 100 on.
    static QString stepText(int step);

  private:
    QString base_;
    std::vector<int> steps_;
};
