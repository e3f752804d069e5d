#include "editor/document/kept_work.h"

#include "catalogue/mektp.h"
#include "catalogue/remembered.h"
#include "platform/base/error.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString sourceName = u"editor.source"_s;

struct Kept {
    QJsonObject operator()(const NoSource&) const { return {}; }

    QJsonObject operator()(const PictureFile& file) const {
        return {{u"file"_s, file.path},
                {u"bytes"_s, file.bytes},
                {u"bytesNow"_s, file.bytesNow},
                {u"width"_s, file.hiMetric.width()},
                {u"height"_s, file.hiMetric.height()}};
    }

    QJsonObject operator()(const AlbumRecord& record) const {
        QJsonObject kept{{u"album"_s, record.table}, {u"picture"_s, record.picture}};
        for (const auto& [name, value] : {std::pair(u"number"_s, &record.number),
                                          {u"codes"_s, &record.codes},
                                          {u"kilobytes"_s, &record.kilobytes},
                                          {u"dimensions"_s, &record.dimensions}})
            if (!value->isNull()) kept[name] = value->toText();
        return kept;
    }
};

FieldValue textAt(const QJsonObject& kept, const QString& name) {
    return kept.contains(name) ? FieldValue(kept[name].toString()) : FieldValue();
}

std::optional<PictureSource> sourceOf(const QJsonObject& kept) {
    if (kept.contains(u"file"_s))
        return PictureFile{kept[u"file"_s].toString(), kept[u"bytes"_s].toInteger(),
                           QSize(kept[u"width"_s].toInt(), kept[u"height"_s].toInt()),
                           kept[u"bytesNow"_s].toInteger(kept[u"bytes"_s].toInteger())};
    if (kept.contains(u"album"_s))
        return AlbumRecord{kept[u"album"_s].toString(),  textAt(kept, u"number"_s),     textAt(kept, u"codes"_s),
                           textAt(kept, u"kilobytes"_s), textAt(kept, u"dimensions"_s), kept[u"picture"_s].toInteger()};
    return {};
}

}  // namespace

void keepSource(const PictureSource& source) {
    const QJsonObject kept = std::visit(Kept(), source);
    remembered::setText(sourceName, QString::fromUtf8(QJsonDocument(kept).toJson(QJsonDocument::Compact)));
}

void forgetSource() {
    remembered::setText(sourceName, {});
}

std::optional<PictureSource> keptSource() {
    std::optional<PictureSource> source;
    attempt([&] {
        if (mekTp::catalogue.OpenRecordset(u"tccx"_s).rowCount() == 0) return;
        source = sourceOf(QJsonDocument::fromJson(remembered::text(sourceName).toUtf8()).object());
    });
    return source;
}
