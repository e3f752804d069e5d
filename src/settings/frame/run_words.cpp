#include "settings/frame/run_words.h"

#include "platform/desktop/failure_list.h"

#include <QLocale>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 surelyMs = 500;  ///< Before that, speed and time left would be guesses.
constexpr qint64 mostSeconds = 90;

QString number(qint64 value) {
    return QLocale(QLocale::English).toString(value);
}

QString timeText(qint64 seconds) {
    if (seconds <= mostSeconds) return u"%1 秒"_s.arg(seconds);
    return u"%1 分 %2 秒"_s.arg(seconds / 60).arg(seconds % 60);
}

QString fateText(const RunItem& item, const RunWords& words) {
    const QString& deed = words.deed;
    switch (item.fate) {
        case Fate::taken:
            return u"已"_s + deed;
        case Fate::withoutPicture:
            return words.replaces ? u"没有图片可存，原有的图片没有改动"_s : u"已%1，但没有图片可存"_s.arg(deed);
        case Fate::alreadyThere:
            return u"图册中已有，跳过"_s;
        case Fate::notFound:
            return u"没有对应的记录，没有"_s + deed;
        case Fate::truncated:
            return u"图片不完整，没有"_s + deed;
        case Fate::notAPicture:
            return u"不是 BMP 或 JPEG，没有"_s + deed;
        case Fate::doubtful:
            return u"已存入，但没有完成"_s;
        case Fate::left:
            return u"没有做到"_s;
        case Fate::noted:
            return u"说明"_s;
        case Fate::failed:
            break;
    }
    return u"失败，没有"_s + deed;
}

QString nameOf(const RunItem& item) {
    return item.file.isEmpty() ? item.name : item.name + u" → "_s + item.file;
}

qsizetype countOf(const RunReport& report, std::initializer_list<Fate> fates) {
    return report.placesOf(fates).size();
}

}  // namespace

QString progressText(const RunProgress& progress, qint64 elapsedMs) {
    QStringList parts{number(progress.done) + u" / "_s + number(progress.all) + u" 张"_s};
    if (elapsedMs >= surelyMs && progress.done > 0) {
        constexpr double bytesAMillisecond = 1000;  // are a megabyte a second
        const double speed = double(progress.bytes) / double(elapsedMs) / bytesAMillisecond;
        if (progress.bytes > 0) parts << QString::number(speed, 'f', 1) + u" MB/s"_s;
        const qint64 leftMs = (progress.all - progress.done) * elapsedMs / progress.done;
        parts << u"还剩 "_s + timeText((leftMs + 999) / 1000);
    }
    return parts.join(u" · "_s);
}

QString outcomeText(const RunReport& report, const RunWords& words) {
    QStringList parts;
    const auto add = [&](qsizetype count, const QString& text) {
        if (count > 0) parts << text.arg(number(count));
    };
    if (report.stopped) parts << u"已停止"_s;
    if (!report.failure.isEmpty()) parts << u"因失败而停止"_s;
    // A run that names nothing only counts.
    const qsizetype taken = report.items.empty() ? report.count : countOf(report, {Fate::taken, Fate::withoutPicture});
    parts << u"已%1 %2 张"_s.arg(words.deed, number(taken));
    add(report.verified, u"%1 张已核对"_s);
    add(countOf(report, {Fate::alreadyThere}), u"%1 张已有，跳过"_s);
    add(countOf(report, {Fate::notFound, Fate::truncated, Fate::notAPicture}), u"%1 张没有"_s + words.deed);
    add(countOf(report, {Fate::failed}), u"%1 张失败"_s);
    add(countOf(report, {Fate::doubtful}), u"%1 张没有完成"_s);
    add(countOf(report, {Fate::left}), u"%1 张没有做到"_s);
    add(report.missing.size(), u"源表有 %1 处损坏"_s);
    return parts.join(u'，');
}

QString failureQuestion(const RunItem& failed, const RunWords& words) {
    const QString name =
        words.field.isEmpty() ? u"文件“%1”"_s.arg(failed.name) : u"“%1＝%2”的记录"_s.arg(words.field, failed.name);
    return u"%1没有%2：%3。\n\n要在这里停止，请按《停止》，已经%2的保留；要跳过它，请按《跳过并继续》，"
           "以后再有失败不再询问，完成后一起列出。"_s.arg(name, words.deed, withoutStop(failed.reason));
}

bool isAsExpected(const RunReport& report) {
    const bool allTaken = std::ranges::all_of(
        report.items, [](const RunItem& item) { return item.fate == Fate::taken && item.reason.isEmpty(); });
    return allTaken && report.missing.isEmpty() && !report.stopped && report.failure.isEmpty() && report.cameToEnd;
}

std::vector<ReportLine> reportLines(const RunReport& report, const RunWords& words) {
    std::vector<ReportLine> lines;
    for (const QString& part : report.missing) lines.push_back({u"（源表）"_s, u"已损坏，没有"_s + words.deed, part});
    const auto add = [&](bool expected) {
        for (const RunItem& item : report.items)
            if ((item.fate == Fate::taken && item.reason.isEmpty()) == expected)
                lines.push_back({nameOf(item), fateText(item, words), item.reason});
    };
    add(false);
    add(true);
    return lines;
}

QString reportAsText(const RunReport& report, const RunWords& words) {
    QString text = outcomeText(report, words) + u'\n';
    if (!report.failure.isEmpty()) text += report.failure + u'\n';
    text += u'\n';
    for (const ReportLine& line : reportLines(report, words)) {
        QStringList parts{line.name, line.outcome, line.reason};
        for (QString& part : parts) part = part.simplified();
        text += parts.join(u'\t') + u'\n';
    }
    return text;
}

QList<qsizetype> placesToRetry(const RunReport& report) {
    QList<qsizetype> places = report.placesOf({Fate::failed, Fate::left});
    std::ranges::sort(places);
    return places;
}

void noteFailures(const RunReport& report) {
    for (const RunItem& item : report.items)
        if (item.fate == Fate::failed || item.fate == Fate::doubtful) noteFailure(item.name + u'：' + item.reason);
    if (!report.failure.isEmpty()) noteFailure(report.failure);
}
