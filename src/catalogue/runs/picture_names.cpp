#include "catalogue/runs/picture_names.h"

#include "catalogue/album_rules.h"
#include "platform/base/conversion.h"
#include "platform/base/error.h"

#include <QDir>
#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString jpgEnding = u".jpg"_s;

QStringView beforeFirstDot(const QString& name) {
    return QStringView(name).left(name.contains(u'.') ? name.indexOf(u'.') : name.size());
}

}  // namespace

bool standsForNumber(const QString& name) {
    return zhjy(name) && numberFromText(beforeFirstDot(name)) == numericValue(beforeFirstDot(name));
}

int numberOfFile(const QString& name) {
    const double number = std::nearbyint(numericValue(beforeFirstDot(name)));
    if (!(std::abs(number) <= std::numeric_limits<int>::max())) throw Error(u"文件名“%1”超出序号的范围。"_s.arg(name));
    return int(number);
}

QString defaultPictureName(const FieldValue& code, int number) {
    const QString codes = code.textOr().trimmed();
    QString name = (codes.isEmpty() ? u"0"_s : codes) + QString::number(number) + jpgEnding;
    return name.replace(u'/', u'_').replace(QDir::separator(), u'_').replace(QChar(u'\0'), u'_');
}

QString completedPictureName(const QString& name) {
    if (name.isEmpty() || name.right(jpgEnding.size()) == jpgEnding) return name;
    return (name.contains(u'.') ? name.left(name.indexOf(u'.')) : name) + jpgEnding;
}

QString objectionToFileName(const QString& name) {
    if (name.chopped(std::min(name.size(), jpgEnding.size())).trimmed().isEmpty()) return u"请填写文件名！"_s;
    if (name.contains(QChar(u'\0'))) return u"文件名中有不能使用的字符，请重新填写。"_s;
    for (const QChar sign : {QChar(u'/'), QDir::separator()})
        if (name.contains(sign)) return u"文件名中不能有“%1”，请重新填写。"_s.arg(sign);
    return {};
}

QString withJpgEnding(const QString& name) {
    return name.endsWith(jpgEnding) ? name : name + jpgEnding;
}
