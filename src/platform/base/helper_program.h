#pragma once

#include <QString>
#include <QStringList>
#include <vector>

/// A program beside this one that decodes what may be malformed: a crash or an endless loop of its decoder is its own.
struct HelperCall {
    QString program;  ///< Path.
    QStringList arguments;
    std::vector<int> files;  ///< Descriptors that are open there, too.
    /// It is ended when it gives no sign of progress, a byte to its standard output, for so long.
    int patienceMs;
};

struct HelperEnd {
    int code = 0;              ///< With which it has ended, where nothing kept it from that.
    bool isOutOfTime = false;  ///< It was ended.
    QString obstacle = {};     ///< What else kept it from ending, fit for a message; empty when nothing did.
};

/// Waits for the end of the program.
HelperEnd runHelper(const HelperCall& call);
