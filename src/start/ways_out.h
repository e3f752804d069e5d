#pragma once

#include <QString>
#include <QStringList>

/// What a person can do about a damaged catalogue: take out what is whole, bring back a backup, or go on reading.

inline const QString takesOutWhole = QStringLiteral("取出完好的部分");
inline const QString restoresBackup = QStringLiteral("恢复…");

/// Tells of the damage and of these ways.
QString textOfWaysOut();

/// Both work on the catalogue's path while nothing of the program has it open. True when another file has its name now,
/// which is not locked then. The damaged file stays beside it. They throw `Error`.
bool takeOutWhole();
bool restoreBackup();

/// Tells of the damage while the windows are open, and lets choose. Where the person goes on reading, nothing changes
/// the catalogue any more. The others close the windows first; the way is planned then, unless a window stays.
void offerWaysOut();
bool isWayOutPlanned();
/// Goes the planned way, and tells of its failure.
void goPlannedWay();
