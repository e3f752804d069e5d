#pragma once

#include <QByteArray>

/// A Jet 4 database of seven pages: one table with columns of several types, with a row of values and one of nothing.
/// Its picture lies in the wrapper of forms, on a page of its own.
QByteArray tinyJetDatabase(const QByteArray& picture);
