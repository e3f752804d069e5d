#include "soak/stored.h"

#include "catalogue/mektp.h"
#include "catalogue/remembered.h"
#include "platform/database/records/own_rows.h"
#include "soak/fingerprints.h"

#include <algorithm>
#include <numeric>
#include <vector>

using namespace Qt::Literals::StringLiterals;

QString pictureOf(const Recordset& record) {
    const FieldValue bytes = record.Fields(u"图片"_s).Value();
    return bytes.isNull() ? QString() : fingerprintOf(bytes.toBytes());
}

QStringList picturesOf(const QString& album) {
    QStringList pictures;
    Recordset rows = mekTp::catalogue.OpenRecordset(u"SELECT * FROM %1 ORDER BY [序号]"_s.arg(album));
    for (; !rows.Eof(); rows.MoveNext()) pictures << pictureOf(rows);
    return pictures;
}

Numbering numberingBy(const QString& album, const QString& column) {
    QStringList before, keys;
    for (Recordset rows = mekTp::catalogue.OpenRecordset(album); !rows.Eof(); rows.MoveNext()) {
        before << rows.Fields(u"序号"_s).Value().textOr();
        const QString key = rows.Fields(column).Value().textOr();
        keys << (column == u"序号" ? key.rightJustified(10, u'0') : key);
    }
    std::vector<qsizetype> order(size_t(keys.size()));
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, {}, [&](qsizetype row) { return keys[row]; });
    QStringList after = before;
    int number = 0;
    for (const qsizetype row : order) after[row] = QString::number(++number);
    return {fingerprintOf(before.join(u' ').toUtf8()), fingerprintOf(after.join(u' ').toUtf8())};
}

QStringList picturesInBin() {
    QStringList pictures;
    const OwnRows rows(mekTp::catalogue);
    rows.each(u"SELECT 图片 FROM lunq_bin WHERE 图片 NOTNULL"_s, {}, [&](const OwnRows::Values& row) {
        const StoredValue picture = rows.value(row[0].toLongLong());
        pictures << fingerprintOf(picture.read(0, picture.size()));
    });
    return pictures;
}

QString stepsWithSource() {
    const int steps = mekTp::catalogue.OpenRecordset(u"tccx"_s).rowCount();
    return QString::number(steps) + (remembered::text(u"editor.source"_s).isEmpty() ? u'-' : u'+');
}
