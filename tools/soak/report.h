#pragma once

#include <QStringList>

/// Reports of a worked program on what it is going to do and what it has done. Each is a line that is written at once,
/// so that a kill loses none of them.
class Report {
  public:
    /// With `verb` only lines that begin with it.
    explicit Report(int descriptor, QString verb = {}) : descriptor_(descriptor), verb_(std::move(verb)) {}
    void operator()(const QStringList& words) const;

  private:
    int descriptor_;
    QString verb_;
};
