#pragma once

#include "catalogue/runs/field_mapping.h"

/// Which field of a table of another program is likely to be meant by which field of an album.

/// A field of the source, and what its first records hold.
struct SourceField {
    FieldShape shape;
    bool holdsPictures = false;  ///< All long values that are there begin as BMP or JPEG files do.
    bool counts = false;         ///< Whole numbers, none of them twice.
};

/// Looks at the first records. What cannot be read of them says nothing.
std::vector<SourceField> sourceFields(const Database& source, const QString& table);

/// A pair for every target field, with an empty source where none suits. Fields are proposed for fields of the same
/// type alone, each once: by their names, then by what they hold, then where the type leaves no choice.
FieldMapping proposedMapping(const TableShape& target, const std::vector<SourceField>& source);

/// Whether the fields have the same names and types in the same order: they need no proposal.
bool areAlike(const TableShape& target, const TableShape& source);
