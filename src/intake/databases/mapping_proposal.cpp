#include "intake/databases/mapping_proposal.h"

#include "platform/base/error.h"

#include <QSet>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int looksAt = 20;  ///< Records.

struct Names {
    QString target;
    QStringList others;  ///< Whole names; the more usual ones first.
};

/// In lower case, without blanks, strokes and points.
const std::vector<Names>& knownNames() {
    static const std::vector<Names> all{
        {u"序号"_s,
         {u"编号"_s, u"号"_s, u"号码"_s, u"图号"_s, u"照片号"_s, u"id"_s, u"no"_s, u"nr"_s, u"number"_s, u"num"_s,
          u"index"_s, u"photoid"_s, u"pictureid"_s, u"imageid"_s, u"picid"_s, u"autoid"_s}},
        {u"编号"_s,
         {u"编码"_s, u"代码"_s, u"分类"_s, u"类别"_s, u"code"_s, u"codes"_s, u"category"_s, u"tag"_s, u"tags"_s}},
        {u"大小"_s, {u"文件大小"_s, u"kb"_s, u"size"_s, u"filesize"_s}},
        {u"规格"_s, {u"尺寸"_s, u"像素"_s, u"分辨率"_s, u"dimensions"_s, u"resolution"_s, u"pixels"_s}},
        {u"日期"_s,
         {u"拍摄日期"_s, u"拍摄时间"_s, u"摄影日期"_s, u"照相日期"_s, u"时间"_s, u"日付"_s, u"date"_s, u"datetaken"_s,
          u"takenon"_s, u"taken"_s, u"photodate"_s, u"shotdate"_s, u"datum"_s, u"time"_s, u"created"_s}},
        {u"图片"_s,
         {u"照片"_s, u"相片"_s, u"图像"_s, u"图"_s, u"影像"_s, u"photo"_s, u"picture"_s, u"image"_s, u"pic"_s, u"img"_s,
          u"bild"_s, u"foto"_s, u"jpeg"_s, u"jpg"_s, u"bitmap"_s, u"data"_s}},
        {u"备注"_s,
         {u"说明"_s, u"描述"_s, u"标题"_s, u"名称"_s, u"注释"_s, u"附注"_s, u"内容"_s, u"caption"_s, u"title"_s,
          u"description"_s, u"comment"_s, u"comments"_s, u"remark"_s, u"remarks"_s, u"note"_s, u"notes"_s, u"memo"_s,
          u"text"_s, u"name"_s}}};
    return all;
}

QString plainName(const QString& name) {
    QString plain;
    for (const QChar letter : name.toLower())
        if (letter.isLetter()) plain += letter;
    return plain;
}

/// Pairs fields step by step; who has found one takes part no more.
class Proposal {
  public:
    Proposal(const TableShape& target, const std::vector<SourceField>& source) : target_(target), source_(source) {
        for (const FieldShape& field : target) pairs_.push_back({field.name, {}});
    }

    FieldMapping made() {
        pairByName([](const QString& target) { return QStringList{plainName(target)}; });
        pairByContent(u"图片"_s, &SourceField::holdsPictures);
        pairByName(otherNames);
        pairByContent(u"序号"_s, &SourceField::counts);
        for (const QString& name : {u"日期"_s, u"图片"_s, u"备注"_s}) pairTheOnlyOne(name);
        return pairs_;
    }

  private:
    static QStringList otherNames(const QString& target) {
        const auto found = std::ranges::find(knownNames(), target, &Names::target);
        return found == knownNames().end() ? QStringList() : found->others;
    }

    bool isFree(std::size_t at, const FieldShape& target) const {
        return source_[at].shape.type == target.type && !taken_.contains(source_[at].shape.name);
    }

    void pair(std::size_t target, std::size_t source) {
        pairs_[target].source = source_[source].shape.name;
        taken_ << source_[source].shape.name;
    }

    template <typename NamesOf>
    void pairByName(const NamesOf& namesOf) {
        for (std::size_t i = 0; i < target_.size(); ++i)
            for (const QString& name : namesOf(target_[i].name)) pairNamed(i, name);
    }

    void pairNamed(std::size_t i, const QString& name) {
        // Bytes that are no pictures are not proposed as such, whatever they are called.
        const bool isPicture = target_[i].name == u"图片";
        for (std::size_t at = 0; at < source_.size() && pairs_[i].source.isEmpty(); ++at)
            if (isFree(at, target_[i]) && plainName(source_[at].shape.name) == name &&
                (!isPicture || source_[at].holdsPictures || !hasPictures()))
                pair(i, at);
    }

    bool hasPictures() const { return std::ranges::any_of(source_, &SourceField::holdsPictures); }

    void pairByContent(const QString& name, bool SourceField::*holds) {
        const auto i = placeOf(name);
        for (std::size_t at = 0; i < target_.size() && at < source_.size() && pairs_[i].source.isEmpty(); ++at)
            if (source_[at].*holds && isFree(at, target_[i])) pair(i, at);
    }

    void pairTheOnlyOne(const QString& name) {
        const auto i = placeOf(name);
        if (i == target_.size() || !pairs_[i].source.isEmpty()) return;
        std::vector<std::size_t> found;
        for (std::size_t at = 0; at < source_.size(); ++at)
            if (isFree(at, target_[i])) found.push_back(at);
        if (found.size() == 1) pair(i, found.front());
    }

    std::size_t placeOf(const QString& name) const {
        return std::size_t(std::ranges::find(target_, name, &FieldShape::name) - target_.begin());
    }

    const TableShape& target_;
    const std::vector<SourceField>& source_;
    FieldMapping pairs_;
    QSet<QString> taken_;
};

bool beginsAsPicture(const QByteArray& bytes) {
    return bytes.startsWith("BM") || bytes.startsWith("\xFF\xD8\xFF");
}

/// What the records of a field have in common, as far as they were looked at.
class FieldLook {
  public:
    explicit FieldLook(FieldShape shape) : field_{std::move(shape)} {}

    void lookAt(const Field& value) {
        if (field_.shape.type == FieldType::longBinary && value.FieldSize() > 0) {
            constexpr int head = 3;
            ++(beginsAsPicture(value.GetChunk(0, head)) ? pictures_ : others_);
        }
        if (field_.shape.type != FieldType::longInteger) return;
        if (value.isNull() || numbers_.contains(value.Value().toInteger()))
            isCounter_ = false;
        else
            numbers_ << value.Value().toInteger();
    }

    SourceField field() const {
        SourceField field = field_;
        field.holdsPictures = pictures_ > others_;
        field.counts = isCounter_ && !numbers_.isEmpty();
        return field;
    }

  private:
    SourceField field_;
    int pictures_ = 0, others_ = 0;
    bool isCounter_ = true;
    QSet<qint32> numbers_;
};

}  // namespace

std::vector<SourceField> sourceFields(const Database& source, const QString& table) {
    std::vector<FieldLook> looks;
    for (const FieldShape& shape : shapeOf(source, table)) looks.emplace_back(shape);
    attempt([&] {
        Recordset rows = source.OpenRecordset(allRecordsSql(table));
        for (int row = 0; row < std::min(rows.rowCount(), looksAt); ++row)
            attempt([&] {
                rows.moveToRow(row);
                for (std::size_t i = 0; i < looks.size(); ++i) attempt([&] { looks[i].lookAt(rows.Fields(int(i))); });
            });
    });
    std::vector<SourceField> fields;
    fields.reserve(looks.size());
    for (const FieldLook& look : looks) fields.push_back(look.field());
    return fields;
}

FieldMapping proposedMapping(const TableShape& target, const std::vector<SourceField>& source) {
    return Proposal(target, source).made();
}

bool areAlike(const TableShape& target, const TableShape& source) {
    return std::ranges::equal(target, source, [](const FieldShape& one, const FieldShape& other) {
        return one.type == other.type && one.name.compare(other.name, Qt::CaseInsensitive) == 0;
    });
}
