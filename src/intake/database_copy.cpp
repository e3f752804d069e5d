#include "intake/database_copy.h"

#include "catalogue/album_rules.h"
#include "catalogue/picture_field.h"
#include "intake/intake_texts.h"
#include "intake/picture_size.h"
#include "platform/base/error.h"
#include "platform/desktop/data_control.h"

#include <QDate>
#include <QHash>
#include <algorithm>
#include <limits>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString pictureColumn = u"图片"_s;
const QStringList aboutPicture{pictureColumn, u"规格"_s, u"大小"_s, u"日期"_s};

class Copy {
  public:
    Copy(DataControl& datLr, const CopyOrder& order, FormState& state, CopyResult& result)
        : datLr_(datLr), order_(order), state_(state), result_(result) {}

    void open() {
        datLr_.setDatabaseName(state_.targetDatabasePath);
        datLr_.setRecordSource(state_.targetTable);
        datLr_.Refresh();
        source_ = OpenDatabase(state_.sourceDatabasePath);
        const auto index = fieldNamed(shapeOf(source_, state_.sourceTable), order_.indexField);
        if (!index) throw Error(u"源表“%1”中没有字段“%2”。"_s.arg(state_.sourceTable, order_.indexField));
        index_ = *index;
        if (!order_.replace) state_.replaceNumber = nextNumber(table());
    }

    /// `earlier`: how many records with this key were copied before it.
    void copy(const QString& key, int earlier) {
        const QString criteria = keyCriteria(index_, key);
        Recordset record = source_.OpenRecordset(allRecordsSql(state_.sourceTable) + u" WHERE "_s + criteria);
        if (order_.replace && !findInTarget(criteria)) {
            result_.notFound << key;
            return;
        }
        for (int i = 0; i < earlier && !record.Eof(); ++i) record.MoveNext();
        if (record.Eof()) throw Error(u"源表“%1”中没有这条记录。"_s.arg(state_.sourceTable));
        try {
            write(record, key);
        } catch (...) {
            attempt([&] { table().CancelUpdate(); });
            throw;
        }
        result_.copied << key;
    }

  private:
    Recordset& table() { return datLr_.Recordset(); }

    bool findInTarget(const QString& criteria) {
        if (datLr_.total() == 0) return false;
        table().FindFirst(criteria);
        return !table().NoMatch();
    }

    void write(Recordset& record, const QString& key) {
        if (order_.replace)
            table().Edit();
        else
            table().AddNew();
        specOfSource_.reset();
        keepsPicture_ = order_.replace && !bringsPicture(record);
        const bool hadPicture = keepsPicture_ && pictureLength(table()) > 0;
        for (const FieldPair& pair : order_.mapping)
            if (!give(record, pair) && order_.fillFields) complete(record, pair.target);
        if (!order_.replace) table().Fields(u"序号"_s).SetValue(state_.replaceNumber);
        table().Update();
        if (!order_.replace) ++state_.replaceNumber;
        if (hadPicture && order_.fillFields) result_.kept << key;
    }

    bool bringsPicture(const Recordset& record) const {
        return std::ranges::any_of(order_.mapping, [&](const FieldPair& pair) {
            return pair.target == pictureColumn && !pair.source.isEmpty() && record.Fields(pair.source).FieldSize() > 0;
        });
    }

    /// Whether the source has a value for the column. A picture without a byte is none.
    bool give(Recordset& record, const FieldPair& pair) {
        if (pair.source.isEmpty()) return false;
        const Field source = record.Fields(pair.source);
        if (source.isNull() || (source.Type() == FieldType::longBinary && source.FieldSize() == 0)) return false;
        table().Fields(pair.target).SetValue(source.Value());
        return true;
    }

    /// A column without a value is filled from what is known of the picture. The picture of a replaced record, and what
    /// tells about it, stay when no other comes.
    void complete(Recordset& record, const QString& column) {
        if (keepsPicture_ && aboutPicture.contains(column)) return;
        const auto set = [&](const Variant& value) { table().Fields(column).SetValue(value); };
        if (column == u"编号"_s || column == u"备注"_s)
            set(u" "_s);
        else if (column == pictureColumn)
            set(QByteArray(""));
        else if (column == u"日期"_s)
            set(QDate::currentDate().startOfDay());
        else if (column == u"规格"_s && !specOfSource(record).isEmpty())
            set(specOfSource(record));
        else if (column == u"大小"_s && pictureLength(record) > 0)
            set(kilobytesText(pictureLength(record)));
    }

    static bool hasPicture(const Recordset& record) {
        for (int i = 0; i < record.FieldCount(); ++i)
            if (record.Fields(i).Name() == pictureColumn) return record.Fields(i).Type() == FieldType::longBinary;
        return false;
    }

    static qint64 pictureLength(const Recordset& record) {
        return hasPicture(record) ? record.Fields(pictureColumn).FieldSize() : 0;
    }

    /// Empty when the record has no picture that can be read: what it has is copied all the same.
    const QString& specOfSource(Recordset& record) {
        if (!specOfSource_) {
            const auto picture = hasPicture(record) ? pictureFromField(record, pictureColumn, sizeOnly) : std::nullopt;
            specOfSource_ = picture ? specOfPicture(*picture, u"*"_s) : QString();
        }
        return *specOfSource_;
    }

    DataControl& datLr_;
    const CopyOrder& order_;
    FormState& state_;
    CopyResult& result_;
    Database source_;
    FieldShape index_;
    std::optional<QString> specOfSource_;
    bool keepsPicture_ = false;  ///< The source has none for the record in hand, which is replaced.
};

QString keysText(const QStringList& keys, const QString& indexField) {
    return indexField + u"＝"_s + someOf(keys);
}

}  // namespace

// Copies the chosen records.
CopyResult sklr(DataControl& datLr, const CopyOrder& order, FormState& state,
                const std::function<void(int)>& progress) {
    CopyResult result;
    result.left = order.keys;
    try {
        Copy run(datLr, order, state, result);
        run.open();
        QHash<QString, int> seen;
        for (qsizetype i = 0; i < order.keys.size(); ++i) {
            result.failedKey = result.left.takeFirst();
            run.copy(result.failedKey, seen[result.failedKey]++);
            result.failedKey.clear();
            progress(static_cast<int>((i + 1) * 100 / order.keys.size()));
        }
        result.count = static_cast<int>(result.copied.size());
        attempt([&] { datLr.Refresh(); });
    } catch (const Error& error) {
        result.failure = error.text();
    } catch (const std::exception& error) {
        result.failure = QString::fromLocal8Bit(error.what());
    }
    return result;
}

QString notReplacedText(const CopyResult& result, const QString& indexField) {
    if (result.notFound.isEmpty() || !result.failure.isEmpty()) return {};
    return u"目标表中下列序号的对应的记录不存在，没有替换。\n\n["_s + indexField + u" = "_s +
           nearlyAllOf(result.notFound) + u']';
}

QString copyReport(const CopyResult& result, const QString& indexField) {
    QStringList lines;
    if (!result.kept.isEmpty()) lines << u"源记录没有图片，原有的图片没有改动："_s + keysText(result.kept, indexField);
    if (result.failure.isEmpty()) return lines.join(u"\n\n"_s);
    lines << (result.failedKey.isEmpty()
                  ? u"录入没有进行："_s
                  : u"录入到记录“%1”时停止，该记录没有录入："_s.arg(keysText({result.failedKey}, indexField))) +
                 result.failure;
    if (!result.left.isEmpty()) lines << u"以下记录也没有录入："_s + keysText(result.left, indexField);
    if (!result.copied.isEmpty()) lines << u"记录已录入图册："_s + keysText(result.copied, indexField);
    if (!result.notFound.isEmpty())
        lines << u"目标表中没有对应的记录，没有替换："_s + keysText(result.notFound, indexField);
    return lines.join(u"\n\n"_s);
}

int nextNumber(Recordset& rows) {
    if (rows.rowCount() == 0) return 1;
    rows.MoveLast();
    const Variant last = rows.Fields(u"序号"_s).Value();
    if (last.isNull()) return 1;
    const qint32 number = last.toInteger();
    if (number == std::numeric_limits<qint32>::max()) throw Error(u"图册的序号已用完，请先重排序号。"_s);
    return number + 1;
}
