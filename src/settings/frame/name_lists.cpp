#include "settings/frame/name_lists.h"

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr qsizetype namesInBox = 60;
}  // namespace

QString someOf(const QStringList& names, qsizetype most, const QString& separator) {
    if (names.size() <= most) return names.join(separator);
    return names.first(most).join(separator) + u" 等共%1个"_s.arg(names.size());
}

QString nearlyAllOf(const QStringList& names) {
    return someOf(names, namesInBox, u","_s);
}
