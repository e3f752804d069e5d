#include "catalogue/runs/field_mapping.h"

#include "platform/base/error.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

QString sourceOf(const FieldMapping& mapping, const QString& target) {
    const auto found = std::ranges::find(mapping, target, &FieldPair::target);
    return found != mapping.end() ? found->source : QString();
}

QString keyCriteria(const FieldShape& indexField, const QString& key) {
    if (indexField.type == FieldType::text || indexField.type == FieldType::integer)
        throw Error(
            u"字段“%1”是文本或短整数，不能按它查找记录。请用长整数的字段（如序号）对应“序号”。"_s.arg(indexField.name));
    return u'[' + indexField.name + u"] = "_s + key;
}
