#include "settings/editing/editing_rules.h"

#include "catalogue/selection_buttons.h"
#include "platform/base/conversion.h"
#include "platform/base/typed_date.h"
#include "platform/database/records/database.h"

#include <cmath>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString inNumberOrder = u" ORDER BY [序号]"_s;

QString countText(int count) {
    return u" 共有记录 "_s + QString::number(count) + u"条"_s;
}

}  // namespace

RecordFilter recordFilter(int option) {
    if (option == 1) return {u" WHERE isnull(编号) or 编号 = '' "_s, u"未设编号"_s};
    if (option == 2) return {u" WHERE 编号 <> '' "_s, u"已设编号"_s};
    return {{}, u"全部记录"_s};
}

QString filteredRecords(const QString& album, const RecordFilter& filter) {
    return u"SELECT * FROM "_s + album + filter.where + inNumberOrder;
}

QString recordsWithCode(const QString& album, const QString& code) {
    return u"SELECT * FROM "_s + album + whereCode(code) + inNumberOrder;
}

QString sortColumn(int option) {
    return u"序号日期编号"_s.mid(option * 2, 2);
}

QString filterText(const QString& albumLine, const RecordFilter& filter, int count) {
    return u'(' + albumLine.mid(4).trimmed() + u") "_s + filter.name + countText(count);
}

QString codeFilterText(const QString& albumLine, const QString& code, int count) {
    return u"分图册名："_s + albumLine.left(4) + u'(' + albumLine.mid(4) + u") 编号 = ["_s + code + u']' +
           countText(count);
}

std::optional<qint32> recordNumber(const QString& typed) {
    const auto number = numberFromText(inPlainWidth(typed));
    const bool fits = number && *number >= 1 && *number <= std::numeric_limits<qint32>::max();
    return fits && std::floor(*number) == *number ? std::optional(static_cast<qint32>(*number)) : std::nullopt;
}

QString renumberingQuestion(const QString& albumLine, const QString& sortCaption, const QString& actingOrder) {
    const qsizetype blank = albumLine.indexOf(u' ');
    const QString title = blank < 0 ? QString() : albumLine.mid(blank + 1).trimmed();
    return u"  重新设置像册["_s + title + u"]的序号吗？（"_s + sortCaption +
           u"排序）\n\n如果“是”,按《确定》，然后设置排序顺序；否则按《取消》。"_s +
           (actingOrder.isEmpty() ? QString() : u"\n\n实际排序："_s + actingOrder);
}

QString recordDeletionQuestion(const QString& number, const QString& record) {
    return u"确定删除这张图片吗？ [序号]="_s + number +
           u"\n\n确定删除，按《确定》；否则按《取消》。\n\n要删除的是："_s + record;
}
