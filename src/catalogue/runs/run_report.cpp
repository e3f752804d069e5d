#include "catalogue/runs/run_report.h"

#include "platform/base/error.h"

#include <algorithm>

namespace {

bool isOneOf(Fate fate, std::initializer_list<Fate> fates) {
    return std::ranges::find(fates, fate) != fates.end();
}

int takenOf(const RunReport& report) {
    return int(report.placesOf({Fate::taken, Fate::withoutPicture}).size());
}

}  // namespace

bool RunReport::has(Fate fate) const {
    return std::ranges::find(items, fate, &RunItem::fate) != items.end();
}

QStringList RunReport::namesOf(std::initializer_list<Fate> fates) const {
    QStringList names;
    for (const RunItem& item : items)
        if (isOneOf(item.fate, fates)) names << item.name;
    return names;
}

QList<qsizetype> RunReport::placesOf(std::initializer_list<Fate> fates) const {
    QList<qsizetype> places;
    for (const RunItem& item : items)
        if (isOneOf(item.fate, fates)) places << item.place;
    return places;
}

QStringList RunReport::filesOf(Fate fate) const {
    QStringList files;
    for (const RunItem& item : items)
        if (item.fate == fate) files << item.file;
    return files;
}

void RunReport::close(const QStringList& names, qsizetype next) {
    cameToEnd = failure.isEmpty() && next == names.size();
    count = failure.isEmpty() ? takenOf(*this) : 0;
    for (; next < names.size(); ++next) items.push_back({next, names[next], Fate::left});
}

void RunReport::add(const RunReport& second) {
    const QList<qsizetype> places = leftOut();
    std::erase_if(items, [](const RunItem& item) { return isOneOf(item.fate, {Fate::truncated, Fate::notAPicture}); });
    for (RunItem item : second.items) {
        item.place = places[item.place];
        items.push_back(std::move(item));
    }
    count += takenOf(second);
    failure = second.failure;
    stopped = second.stopped;
    verified += second.verified;
    // A list of one file comes to no end that counts, but nothing of it is left either.
    cameToEnd = failure.isEmpty() && !has(Fate::left);
}

QString reasonOf(const std::exception& failure) {
    const auto* error = dynamic_cast<const Error*>(&failure);
    return error != nullptr ? error->text() : QString::fromLocal8Bit(failure.what());
}

QString causeOf(const std::exception& failure) {
    return withoutStop(reasonOf(failure));
}

QString withoutStop(const QString& sentence) {
    return sentence.endsWith(u'。') ? sentence.chopped(1) : sentence;
}
