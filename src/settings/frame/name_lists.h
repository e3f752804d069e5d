#pragma once

#include <QStringList>

/// Names in one line for a message: the first ones, and how many there are when they are many.
QString someOf(const QStringList& names, qsizetype most = 12, const QString& separator = QStringLiteral("、"));

/// The same for what is to be told one by one, as far as a box has room.
QString nearlyAllOf(const QStringList& names);
