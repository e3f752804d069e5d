#include "settings/record_changes.h"

#include "catalogue/album_rules.h"
#include "platform/base/error.h"

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Runs one statement and notes why it failed.
template <typename Step>
bool attemptNoting(QStringList& failures, Step&& step) {
    try {
        std::forward<Step>(step)();
        return true;
    } catch (const Error& error) {
        failures << error.text();
        return false;
    }
}

QString textOf(const Recordset& records, const QString& column) {
    QString text;
    attempt([&] { text = records.Fields(column).Value().textOr(); });
    return text;
}

/// Pictures come in with a blank in the columns that nobody has filled in yet.
QString withoutBlank(const QString& text) {
    return text == u" " ? QString() : text;
}

void setText(Field field, const QString& text) {
    // An empty text is how the form shows that there is no number or date; it is not one itself.
    const bool isText = field.Type() == FieldType::text || field.Type() == FieldType::memo;
    if (!isText && text.isEmpty() && field.isNull()) return;
    field.SetValue(text);
}

/// Whether the button did not offer the album before.
bool offerFrom(const Database& catalogue, const QString& code, const QString& album) {
    Recordset button = catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE 编号 = "_s + quoted(code));
    if (button.Eof()) return false;
    const QString albums = button.Fields(u"图册"_s).Value().textOr();
    if (offersAlbum(albums, album)) return false;
    button.Edit();
    button.Fields(u"图册"_s).SetValue(albums + album);
    button.Update();
    return true;
}

}  // namespace

RecordTexts textsOfRecord(const Recordset& records) {
    return {textOf(records, u"序号"_s), withoutBlank(textOf(records, u"编号"_s)),
            textOf(records, u"大小"_s), withoutBlank(textOf(records, u"规格"_s)),
            textOf(records, u"日期"_s), withoutBlank(textOf(records, u"备注"_s))};
}

RecordStored storeRecord(Recordset& records, const RecordTexts& texts, const RecordTexts& shown) {
    RecordStored result;
    if (records.isNothing() || records.row() < 0) {
        result.failures << u"没有当前记录，什么也没有保存。"_s;
        return result;
    }
    const auto store = [&](const QString& column, const QString& text) {
        attemptNoting(result.failures, [&] { setText(records.Fields(column), text); });
    };
    const auto storeChanged = [&](const QString& column, QString RecordTexts::*text) {
        if (texts.*text != shown.*text) store(column, texts.*text);
    };
    result.whole = attemptNoting(result.failures, [&] {
        if (records.EditMode() == Recordset::Mode::none) records.Edit();
        storeChanged(u"序号"_s, &RecordTexts::number);
        store(u"编号"_s, texts.codes);
        storeChanged(u"规格"_s, &RecordTexts::pixels);
        storeChanged(u"大小"_s, &RecordTexts::size);
        storeChanged(u"日期"_s, &RecordTexts::date);
        storeChanged(u"备注"_s, &RecordTexts::remark);
        records.Update();
    });
    if (!result.whole) {
        attempt([&] { records.CancelUpdate(); });
        result.failures << u"记录没有改变。"_s;
    }
    return result;
}

CodesRegistered registerCodes(const Database& catalogue, const QString& codes, const QString& album) {
    CodesRegistered result;
    for (const QChar code : codes) {
        attemptNoting(result.failures, [&] {
            if (offerFrom(catalogue, code, album)) ++result.added;
        });
    }
    return result;
}
