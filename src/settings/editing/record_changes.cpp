#include "settings/editing/record_changes.h"

#include "catalogue/selection_buttons.h"
#include "platform/base/error.h"
#include "platform/base/typed_date.h"
#include "settings/editing/editing_rules.h"

using namespace Qt::Literals::StringLiterals;

namespace {

QString textOf(const Recordset& records, const QString& column) {
    QString text;
    attempt([&] { text = records.Fields(column).Value().textOr(); });
    return text;
}

/// Pictures come in with a blank in the columns that nobody has filled in yet.
QString withoutBlank(const QString& text) {
    return text == u" " ? QString() : text;
}

}  // namespace

RecordTexts textsOfRecord(const Recordset& records) {
    return {textOf(records, u"序号"_s), withoutBlank(textOf(records, u"编号"_s)),
            textOf(records, u"大小"_s), withoutBlank(textOf(records, u"规格"_s)),
            textOf(records, u"日期"_s), withoutBlank(textOf(records, u"备注"_s))};
}

QString recordInWords(const RecordTexts& texts) {
    QStringList parts{u"序号 "_s + texts.number};
    if (!texts.codes.isEmpty()) parts << u"编号 "_s + texts.codes;
    if (!texts.remark.isEmpty()) parts << u"备注“"_s + texts.remark + u'”';
    if (!texts.date.isEmpty()) parts << texts.date;
    if (!texts.pixels.isEmpty()) parts << texts.pixels;
    if (!texts.size.isEmpty()) parts << texts.size + u" KB"_s;
    return parts.join(u"，"_s);
}

bool isNumberTaken(const Database& catalogue, const QString& album, const RecordTexts& texts,
                   const RecordTexts& shown) {
    const auto number = recordNumber(texts.number);
    if (texts.number == shown.number || !number || number == recordNumber(shown.number)) return false;
    return !catalogue.OpenRecordset(u"SELECT * FROM "_s + album + u" WHERE 序号 = "_s + QString::number(*number)).Eof();
}

QString numberFault(const Database& catalogue, const QString& album, const RecordTexts& texts,
                    const RecordTexts& shown) {
    if (texts.number == shown.number) return {};
    if (!recordNumber(texts.number)) return u"序号“%1”不是 1 至 2147483647 的整数。"_s.arg(texts.number);
    if (!isNumberTaken(catalogue, album, texts, shown)) return {};
    return u"序号“%1”已经有另一条记录在用。"_s.arg(texts.number);
}

QString dateFault(const RecordTexts& texts, const RecordTexts& shown) {
    if (texts.date == shown.date || dateFromTyping(texts.date)) return {};
    const QString fault = texts.date.isEmpty() ? u"日期没有填。"_s : u"日期“%1”不能识别。"_s.arg(texts.date);
    return fault + u"可以写成 %1，后面还可以空一格写上时间，例如 12:30。"_s.arg(typedDateForms);
}

void storeRecord(Recordset& records, const RecordTexts& texts, const RecordTexts& shown) {
    if (records.isNothing() || records.row() < 0) throw Error(u"没有当前记录。"_s);
    try {
        if (records.EditMode() == Recordset::Mode::none) records.Edit();
        if (texts.number != shown.number) records.Fields(u"序号"_s).SetValue(recordNumber(texts.number).value());
        records.Fields(u"编号"_s).SetValue(texts.codes);
        if (texts.date != shown.date) records.Fields(u"日期"_s).SetValue(dateFromTyping(texts.date).value());
        if (texts.remark != shown.remark) records.Fields(u"备注"_s).SetValue(texts.remark);
        records.Update();
    } catch (...) {
        attempt([&] { records.CancelUpdate(); });
        throw;
    }
}

CodesRegistered registerCodes(const Database& catalogue, const QString& codes, const QString& album) {
    CodesRegistered result;
    for (const QChar code : codes) {
        try {
            if (offerAlbum(catalogue, code, album)) ++result.added;
        } catch (const Error& error) {
            result.failures << error.text();
        }
    }
    return result;
}
