#include "bin/bin_words.h"

#include <QLocale>

using namespace Qt::Literals::StringLiterals;

namespace {

QString count(int number, const QString& unit) {
    return QLocale(QLocale::Chinese).toString(number) + u' ' + unit;
}

/// What there is of it: "12 张图片、1 个图册".
QString parts(int pictures, int albums, int buttons, const QString& picture) {
    QStringList texts;
    if (pictures > 0) texts << count(pictures, picture);
    if (albums > 0) texts << count(albums, u"个图册"_s);
    if (buttons > 0) texts << count(buttons, u"个按钮"_s);
    return texts.join(u'、');
}

}  // namespace

QString partsText(const BinTotals& totals) {
    return parts(totals.pictures(), totals.albums, totals.buttons, u"张图片"_s);
}

QString removedText(const BinTotals& totals, std::optional<BinKind> only) {
    const QString deed = only == BinKind::moved      ? u"已移走 "_s
                         : only == BinKind::replaced ? u"已替换 "_s
                                                     : u"已删除 "_s;
    if (only == BinKind::replaced) return deed + count(totals.items, u"张"_s);
    if (totals.pictures() > 0) return deed + count(totals.pictures(), u"张"_s);
    return deed + partsText(totals);
}

QString restoredText(const Restored& restored) {
    if (!restored.isAny()) return {};
    return u"已恢复 "_s + parts(restored.pictures, restored.albums, restored.buttons, u"张"_s);
}

QString contentsText(const BinTotals& totals) {
    if (totals.items == 0) return u"回收站是空的。"_s;
    const QString size = totals.bytes > 0 ? u"，"_s + bytesText(totals.bytes) : QString();
    return partsText(totals) + size + u"。每项保留 %1 天，过后自动清除。"_s.arg(binDays);
}

QString kindText(const BinItem& item) {
    switch (item.kind) {
        case BinKind::deleted:
            return u"删除"_s;
        case BinKind::moved:
            return u"移动"_s;
        case BinKind::replaced:
            return u"替换"_s;
        case BinKind::album:
            return u"删除图册"_s;
        case BinKind::button:
            break;
    }
    return item.successor != 0 ? u"替换按钮图片"_s : u"按钮"_s;
}

QString originText(const BinItem& item) {
    if (item.kind == BinKind::button) return u"按钮 %1（编号 %2）"_s.arg(item.name, item.codes);
    const QString album = item.title.isEmpty() ? item.album : u"%1（%2）"_s.arg(item.title, item.album);
    return item.kind == BinKind::album ? u"图册 "_s + album : album + u"，序号 %1"_s.arg(item.number);
}

QString detailText(const BinItem& item) {
    if (!item.isRecord()) return item.remark;
    QStringList texts;
    if (!item.codes.isEmpty()) texts << u"编号 "_s + item.codes;
    if (!item.remark.isEmpty()) texts << item.remark;
    return texts.join(u"，"_s);
}

QString bytesText(qint64 bytes) {
    if (bytes == 0) return {};
    const double megabytes = double(bytes) / 1e6;
    if (megabytes >= 1000) return QString::number(megabytes / 1000, 'f', 1) + u" GB"_s;
    return megabytes < 0.1 ? u"不到 0.1 MB"_s : QString::number(megabytes, 'f', megabytes < 10 ? 1 : 0) + u" MB"_s;
}

QString removalQuestion(const BinTotals& totals) {
    const QString size = totals.bytes > 0 ? u"（%1）"_s.arg(bytesText(totals.bytes)) : QString();
    return u"彻底删除 %1%2吗？\n\n彻底删除以后不能再恢复。如果是，按《确定》；否则按《取消》。"_s.arg(partsText(totals),
                                                                                                      size);
}
