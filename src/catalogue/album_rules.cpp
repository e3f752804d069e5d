#include "catalogue/album_rules.h"

#include "platform/base/conversion.h"

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int specLength = 12;  // of the column
}  // namespace

bool isDemo(const QString& table) {
    return table.compare(demoTable, Qt::CaseInsensitive) == 0;
}

QString albumTableName(int number) {
    return u"tc"_s + (number > 9 ? u""_s : u"0"_s) + QString::number(number);
}

QStringList albumColumns() {
    return {u"序号"_s, u"编号"_s, u"大小"_s, u"规格"_s, u"日期"_s, u"图片"_s, u"备注"_s};
}

QString createAlbumSql(const QString& table) {
    return u"CREATE TABLE "_s + table +
           u" ([序号] LONG,[编号] TEXT(10),[大小] SINGLE,[规格] TEXT(12),[日期] DATETIME,[图片] LONGBINARY,[备注] TEXT(50))"_s;
}

QString albumLine(const QString& table, const QString& title) {
    return table + u' ' + title;
}

QString tableOfLine(const QString& line) {
    return line.left(tableNameLength).trimmed();
}

QString titleOfLine(const QString& line) {
    return line.mid(tableNameLength + 1);
}

QStringList tablesOfButton(const QString& tables) {
    QStringList names;
    for (qsizetype at = 0; at + tableNameLength <= tables.size(); at += tableNameLength)
        names << tables.mid(at, tableNameLength);
    return names;
}

bool offersAlbum(const QString& tables, const QString& table) {
    return tablesOfButton(tables).contains(table, Qt::CaseInsensitive);
}

QString withoutAlbum(const QString& tables, const QString& table) {
    QStringList names = tablesOfButton(tables);
    names.removeIf([&](const QString& name) { return name.compare(table, Qt::CaseInsensitive) == 0; });
    return names.join(QString());
}

std::optional<QSize> sizeFromSpec(const QString& sizeText) {
    const qsizetype star = sizeText.indexOf(u'*');
    if (star < 0) return std::nullopt;
    const QStringView text = sizeText;
    const auto side = [](QStringView part) {
        return int(std::clamp(numericValue(part), 0.0, double(longestPictureSide)));
    };
    return QSize(side(text.left(star)), side(text.mid(star + 1)));
}

QString specOfPicture(const Picture& picture, const QString& star) {
    return specOfSize(picture.pixels(), star);
}

QString specOfSize(QSize pixels, const QString& star) {
    const QString width = QString::number(pixelsFromHiMetric(hiMetricFromPixels(pixels.width())));
    const QString height = QString::number(pixelsFromHiMetric(hiMetricFromPixels(pixels.height())));
    const QString text = width + star + height;
    // Sides of five digits leave no room for the blanks in the column.
    return text.size() <= specLength ? text : width + u'*' + height;
}

QString kilobytesText(qint64 bytes) {
    return thousandsText(double(bytes) / 1000.0, 3);
}

int wzcd(const QString& text) {
    int width = 0;
    for (const char32_t character : text.toUcs4()) width += character < 0x80 ? 1 : 2;
    return width;
}

bool zhjy(const QString& name) {
    return isNumeric(QStringView(name).left(name.contains(u'.') ? name.indexOf(u'.') : name.size()));
}
