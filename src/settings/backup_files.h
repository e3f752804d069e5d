#pragma once

#include "settings/backup_rules.h"

/// Where the catalogue in hand is copied to and from, for a copy at `backup`.
BackupPlaces placesOfBackup(const QString& backup);

QString backupScriptPath();                        ///< bf.sh beside the program.
QString restoreScriptPath(const QString& backup);  ///< hf.sh beside the copy.

/// Makes the folders that lead to the copy, then hf.sh there and bf.sh beside the program; scripts that stand there are
/// replaced. Throws `Error` that names the folder or file that could not be made.
void writeBackupScripts(const BackupPlaces& places);
