#include "intake/files/intake_job.h"

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

template <typename Thing>
void keep(QList<Thing>& things, const QList<qsizetype>& places) {
    const QList<Thing> all = std::exchange(things, {});
    for (const qsizetype place : places) things << all[place];
}

}  // namespace

RunReport IntakeJob::run(const QString& catalogue, RunWatch& watch) const {
    const Database album = OpenDatabase(catalogue);
    if (const auto* files = std::get_if<IntakeOrder>(&order_)) return wjlr(album, table_, *files, watch);
    return sklr(album, table_, std::get<CopyOrder>(order_), watch);
}

IntakeJob IntakeJob::some(const QList<qsizetype>& places) const {
    IntakeJob part = *this;
    if (auto* files = std::get_if<IntakeOrder>(&part.order_))
        keep(files->selected, places);
    else
        keep(std::get<CopyOrder>(part.order_).records, places);
    return part;
}

void IntakeJob::takeDoubtful() {
    if (auto* files = std::get_if<IntakeOrder>(&order_)) {
        files->takesTruncated = true;
        return;
    }
    auto& records = std::get<CopyOrder>(order_);
    records.takesDoubtful = records.takesSpoilt = true;
}

bool IntakeJob::replaces() const {
    return std::visit([](const auto& order) { return order.replace; }, order_);
}

RunWords IntakeJob::words() const {
    const auto* records = std::get_if<CopyOrder>(&order_);
    return {u"录入"_s, records != nullptr ? records->indexField : QString(), replaces()};
}
