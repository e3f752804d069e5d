#include "catalogue/runs/proof_run.h"

#include "catalogue/picture_proof.h"

namespace {

RunProgress progressOf(qsizetype done, qsizetype all, qint64 bytes) {
    return {.percent = int(all == 0 ? 100 : done * 100 / all), .done = done, .all = all, .bytes = bytes};
}

}  // namespace

RunReport proveCatalogue(const QString& file, RunWatch& watch) {
    const Database catalogue = OpenDatabase(file);
    const std::vector<ToProve> all = allPictures(catalogue);
    const auto count = qsizetype(all.size());
    RunReport report;
    const std::vector<Proven> found = proveAll(file, all, [&](qsizetype done, qint64 bytes) {
        report.stopped = report.stopped || !watch.progress(progressOf(done, count, bytes));
        return !report.stopped;
    });
    storeProof(catalogue, found);
    const ProofState state = proofState(catalogue);
    for (const Proven& one : found) {
        const Fault fault = state.damaged.value(one.picture);
        if (fault == Fault::none)
            ++report.count;
        else
            report.items.push_back({one.picture, textOf(placeOf(catalogue, one.picture)), Fate::failed, textOf(fault)});
    }
    report.cameToEnd = qsizetype(found.size()) == count;
    return report;
}
