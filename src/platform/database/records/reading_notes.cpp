#include "platform/database/records/reading_notes.h"

#include "platform/database/foreign/reading_notes_table.h"

using namespace Qt::Literals::StringLiterals;

ReadingNotes::ReadingNotes(const Database& database) {
    if (!database.isForeign()) return;
    const Recordset notes = database.OpenRecordset(u"SELECT kind, name, field, CAST(number AS TEXT) AS number FROM "_s +
                                                   QLatin1StringView(readingNotesView));
    for (int i = 0; i < notes.rowCount(); ++i) {
        const std::vector<FieldValue> note = notes.valuesAt(i);
        const QString kind = note[0].toText(), name = note[1].textOr(), field = note[2].textOr();
        const qint32 number = note[3].toText().toInt();
        if (kind == u"codePage") codePage_ = number;
        if (kind == u"sample") samples_.push_back({name, field});
        if (kind == u"catalogue") isCatalogueDamaged_ = true;
        if (kind == u"unreadable") unreadable_ << name;
        if (kind == u"table") missing_[name.toLower()] = number;
        if (kind == u"value") lost_[name.toLower()].push_back({number, field});
    }
}
