#include "catalogue/settings_row.h"

#include "catalogue/mektp.h"

using namespace Qt::Literals::StringLiterals;

Recordset settingsRow() {
    Recordset settings = mekTp::catalogue.OpenRecordset(u"tcsz"_s);
    settings.MoveFirst();
    return settings;
}

FieldValue setting(const QString& column) {
    return settingsRow().Fields(column).Value();
}

void storeSetting(const QString& column, const FieldValue& value) {
    Recordset settings = settingsRow();
    if (settings.Fields(column).Value() == value) return;  // spares a wait for the disk
    settings.Edit();
    settings.Fields(column).SetValue(value);
    settings.Update();
}
