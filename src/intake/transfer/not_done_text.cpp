#include "intake/transfer/not_done_text.h"

#include "settings/frame/name_lists.h"

#include <algorithm>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::size_t reasonsInMessage = 6;

/// What a transfer did not do for one reason.
struct NotDone {
    QString reason;
    QStringList names;
};

std::vector<NotDone> notDone(const RunReport& report) {
    std::vector<NotDone> groups;
    for (const RunItem& item : report.items) {
        if (item.fate != Fate::failed) continue;
        const bool isFile = !item.file.isEmpty();
        const QString reason = isFile ? item.reason : item.reason + u"，序号"_s;
        auto found = std::ranges::find(groups, reason, &NotDone::reason);
        if (found == groups.end()) found = groups.insert(found, {reason, {}});
        found->names << (isFile ? item.file : item.name);
    }
    return groups;
}

}  // namespace

QString notDoneText(const RunReport& report, const QString& heading) {
    if (!report.has(Fate::failed)) return {};
    QStringList lines, others;
    for (const NotDone& group : notDone(report)) {
        if (std::size_t(lines.size()) < reasonsInMessage)
            lines << withoutStop(group.reason) + u"："_s + someOf(group.names);
        else
            others << group.names;
    }
    if (!others.isEmpty()) lines << u"其他原因："_s + someOf(others);
    return heading.arg(report.namesOf({Fate::failed}).size()) + u"\n\n"_s + lines.join(u'\n');
}
