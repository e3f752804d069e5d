#include "intake/transfer/transfer_job.h"

#include "catalogue/runs/file_transfer.h"
#include "catalogue/runs/table_transfer.h"
#include "intake/transfer/transfer_rules.h"

#include <QSet>

using namespace Qt::Literals::StringLiterals;

RunReport TransferJob::run(const QString& catalogue, RunWatch& watch) const {
    const Database album = OpenDatabase(catalogue);
    if (const auto* folder = std::get_if<Folder>(&target))
        return transferToFiles(album, source, numbers, folder->path, watch);
    const auto& table = std::get<Table>(target);
    return transferToTable(album, source, numbers, {openTarget(table.file), table.name, table.mapping}, table.moves,
                           watch);
}

bool TransferJob::isDivisible() const {
    const auto* table = std::get_if<Table>(&target);
    const bool moves = table != nullptr && table->moves;
    return moves || QSet<QString>(numbers.begin(), numbers.end()).size() == numbers.size();
}

TransferJob TransferJob::some(const QList<qsizetype>& places) const {
    TransferJob part{source, {}, target};
    for (const qsizetype place : places) part.numbers << numbers[place];
    return part;
}

RunWords TransferJob::words() const {
    const auto* table = std::get_if<Table>(&target);
    return table != nullptr ? transferWords(table->moves) : RunWords{u"转成文件"_s, u"序号"_s};
}
