#pragma once

#include <QString>
#include <QStringList>

/// Starting other programs.

/// Path of the first of these programs that is installed, empty when none is.
QString findProgram(const QStringList& names);

/// Starts a program without waiting for it; the result is the number of its process. Throws `Error` that names it when
/// it does not start.
qint64 Shell(const QString& program, const QStringList& arguments = {});

/// Whether this computer has a process of that number that has not ended, whoever it belongs to.
bool isRunning(qint64 process);

/// From now on the calling thread runs only when processor and disk have nothing else to do.
void workInTheBackground();
