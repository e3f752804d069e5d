#pragma once

#include "catalogue/runs/field_mapping.h"
#include "settings/frame/run_words.h"

#include <variant>

/// What one press of cmdFz, cmdYd or cmdWj takes out of an album: into a table of a catalogue, or into files with
/// default names. A value, so that any thread can run it, and a part of it can be run again.
struct TransferJob {
    struct Table {
        QString file;
        QString name;
        FieldMapping mapping;
        bool moves = false;
    };
    struct Folder {
        QString path;
    };

    QString source;  ///< The album's table.
    QStringList numbers;
    std::variant<Table, Folder> target;

    /// Opens the catalogue and the target in this thread. Throws `Error` when the target can take nothing.
    RunReport run(const QString& catalogue, RunWatch& watch) const;
    /// Whether a part of it can be run by itself. Of several records with one number, a part of a copy would take the
    /// first one again.
    bool isDivisible() const;
    /// The same for the numbers at some places alone.
    TransferJob some(const QList<qsizetype>& places) const;
    RunWords words() const;
};
