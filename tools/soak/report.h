#pragma once

#include <QStringList>

/// The way by which a worked program tells what it is about to do and what it has done: a line each, written at once,
/// so that nothing that was told is lost with the program.
class Report {
  public:
    /// With `verb` only lines that begin with it.
    explicit Report(int descriptor, QString verb = {}) : descriptor_(descriptor), verb_(std::move(verb)) {}
    void operator()(const QStringList& words) const;

  private:
    int descriptor_;
    QString verb_;
};
