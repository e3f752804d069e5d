#pragma once

/// How the reading of a Jet database has ended: the exit code of the program `lunq-jet`, which reads it into an SQLite
/// file. While it is at work it writes a byte now and then.
enum class JetOutcome {
    done = 0,
    wrongCall = 64,
    unreadable,
    unknownVersion,
    password,
    incomplete,
    damaged,
    limitExceeded,
    diskFull,
};
