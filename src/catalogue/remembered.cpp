#include "catalogue/remembered.h"

#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/database/records/own_values.h"

using namespace Qt::Literals::StringLiterals;

namespace remembered {

QString text(const QString& name, const QString& otherwise) {
    QString found = otherwise;
    attempt([&] { found = OwnValues(mekTp::catalogue).value(name).value_or(otherwise); });
    return found;
}

bool flag(const QString& name) {
    return text(name) == u"1";
}

void setText(const QString& name, const QString& value) {
    attempt([&] {
        OwnValues values(mekTp::catalogue);
        if (values.value(name).value_or(QString()) == value) return;
        if (value.isEmpty())
            values.remove(name);
        else
            values.setValue(name, value);
    });
}

void setFlag(const QString& name, bool value) {
    setText(name, value ? u"1"_s : QString());
}

}  // namespace remembered
