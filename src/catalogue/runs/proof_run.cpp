#include "catalogue/runs/proof_run.h"

#include "catalogue/picture_proof.h"
#include "platform/base/error.h"

namespace {

RunProgress progressOf(qsizetype done, qsizetype all, qint64 bytes) {
    return {.percent = int(all == 0 ? 100 : done * 100 / all), .done = done, .all = all, .bytes = bytes};
}

/// Somebody who reads in the background can keep the change waiting for longer than the engine does.
void store(const Database& catalogue, const std::vector<Proven>& found) {
    constexpr int tries = 5;
    for (int i = 1; i < tries; ++i)
        if (attempt([&] { storeProof(catalogue, found); })) return;
    storeProof(catalogue, found);
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
    store(catalogue, found);
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
