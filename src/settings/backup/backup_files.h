#pragma once

#include "settings/backup/backup_rules.h"

/// Where the catalogue in hand is copied to and from, for a copy at `backup`.
BackupPlaces placesOfBackup(const QString& backup);

QString backupScriptPath();                        ///< bf.sh beside the program.
QString restoreScriptPath(const QString& backup);  ///< hf.sh beside the copy.

QString textOfScript(const QString& path);  ///< Empty when it cannot be read.

/// Makes the folders that lead to the copy. Throws `Error` that names the one that could not be made.
void makeBackupFolders(const QString& backup);

/// Brings hf.sh beside the copy and bf.sh beside the program up to date with the places; what is known of the last copy
/// to the same place stays. Without the folder of the copy, which bf.sh will complain of, there is no hf.sh. Throws
/// `Error` that names the file that could not be written.
void writeBackupScripts(const BackupPlaces& places);
