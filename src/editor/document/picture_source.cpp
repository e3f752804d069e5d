#include "editor/document/picture_source.h"

#include "catalogue/album_rules.h"
#include "platform/base/conversion.h"

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

struct LineOf {
    QString operator()(const NoSource&) const { return {}; }

    QString operator()(const PictureFile& file) const {
        return u"[从文件读出] "_s + file.path + u"  大小："_s + kilobytes1024Text(file.bytes) + u"KB  规格："_s +
               QString::number(pixelsFromHiMetric(file.hiMetric.width())) + u" * "_s +
               QString::number(pixelsFromHiMetric(file.hiMetric.height()));
    }

    QString operator()(const AlbumRecord& record) const {
        QString line = u"[从图册读出] 图册名："_s + record.table;
        for (const auto& [column, value] : {std::pair(u"序号"_s, &record.number),
                                            {u"编号"_s, &record.codes},
                                            {u"大小"_s, &record.kilobytes},
                                            {u"规格"_s, &record.dimensions}})
            if (!value->isNull()) line += u' ' + column + u"："_s + value->toText();
        return line;
    }
};

}  // namespace

AlbumRecord albumRecord(const QString& table, const Recordset& record) {
    const auto value = [&record](const QString& column) { return record.Fields(column).Value(); };
    return {table,
            value(u"序号"_s),
            value(u"编号"_s),
            value(u"大小"_s),
            value(u"规格"_s),
            record.storedAt(record.row(), u"图片"_s).id()};
}

QString sourceLine(const PictureSource& source) {
    return std::visit(LineOf(), source);
}

QString kilobytes1024Text(qint64 bytes) {
    return thousandsText(double(bytes) / 1024, 3);
}
