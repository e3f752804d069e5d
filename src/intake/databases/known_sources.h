#pragma once

#include "catalogue/runs/field_mapping.h"

/// What was chosen for source databases that were used before: the program remembers it for the last forty files. A
/// file is told by its path.
namespace knownSources {

/// The code page of its texts, 0 when none was chosen.
int codePage(const QString& file);
void setCodePage(const QString& file, int codePage);

/// How the fields of a table were mapped at its last intake; empty when there was none.
FieldMapping mapping(const QString& file, const QString& table);
void setMapping(const QString& file, const QString& table, const FieldMapping& mapping);

}  // namespace knownSources
