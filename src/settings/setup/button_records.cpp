#include "settings/setup/button_records.h"

#include "catalogue/bin.h"
#include "catalogue/mektp.h"
#include "catalogue/selection_buttons.h"
#include "platform/base/error.h"

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

const std::array columns{u"序号"_s, u"编号"_s, u"名称"_s, u"图册"_s};

Recordset buttonsWhere(const Database& catalogue, const QString& condition) {
    return catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE "_s + condition);
}

Recordset buttonOf(const QString& number, const QString& code) {
    Recordset buttons = buttonsWhere(mekTp::catalogue, u"序号 = "_s + number);
    if (!buttons.Eof()) buttons.FindFirst(u"编号 = "_s + quoted(code));
    return buttons;
}

}  // namespace

void ButtonRecords::choose(const QString& number, const QString& code) {
    chooseNone();
    rows_ = buttonOf(number, code);
}

void ButtonRecords::chooseNone() {
    work_ = Work::none;
    rows_ = {};
}

ButtonTexts ButtonRecords::texts() const {
    return textsOf(rows_);
}

QString ButtonRecords::number() const {
    return stored(columns.at(0));
}

QString ButtonRecords::code() const {
    return stored(columns.at(1));
}

QString ButtonRecords::stored(const QString& column) const {
    if (work_ == Work::adding || !isOnButton()) return {};
    return rows_.Fields(column).Value().textOr();
}

bool ButtonRecords::hasPicture() const {
    return work_ != Work::adding && isOnButton() && !rows_.Fields(u"图片"_s).isNull();
}

void ButtonRecords::startAdding() {
    chooseNone();
    rows_ = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcan"_s);
    rows_.AddNew();
    work_ = Work::adding;
}

void ButtonRecords::startChanging() {
    number_ = number();
    code_ = code();
    rows_.Edit();
    work_ = Work::changing;
}

/// The record is open for changes. An earlier attempt to store it may have failed: what it left goes, or half a picture
/// would be the beginning of the next one.
void ButtonRecords::prepare() {
    if (work_ == Work::changing) {
        rows_ = buttonOf(number_, code_);
        if (rows_.Eof()) throw Error(u"序号为 %1 的按钮已被删除，没有保存。"_s.arg(number_));
        rows_.Edit();
    } else {
        rows_.AddNew();
    }
}

std::optional<ButtonTexts> ButtonRecords::partnerFor(int number) const {
    if (work_ != Work::changing) return {};
    const auto others = buttonsWithNumber(mekTp::catalogue, number);
    const bool areAlone = others.size() == 1 && buttonsWithNumber(mekTp::catalogue, this->number().toInt()).size() == 1;
    if (!areAlone || isPreset(others.front().at(1))) return {};
    return others.front();
}

void ButtonRecords::giveOldNumberTo(const ButtonTexts& partner) {
    Recordset other = buttonOf(partner.at(0), partner.at(1));
    other.Edit();
    other.Fields(columns.at(0)).SetValue(number_);
    other.Update();
}

void ButtonRecords::storePicture(const ButtonPictureFile& picture) {
    PictureInHand file(picture.path);
    if (bctp(file, rows_, picture.bmp) == 0) throw Error(u"图片文件“%1”没有内容，按钮没有保存。"_s.arg(picture.path));
}

void ButtonRecords::store(const ButtonTexts& texts, const ButtonPictureFile& picture,
                          const std::optional<ButtonTexts>& partner) {
    Transaction whole(mekTp::catalogue);
    if (partner) giveOldNumberTo(*partner);
    prepare();
    for (std::size_t place = 0; place < columns.size(); ++place)
        rows_.Fields(columns.at(place)).SetValue(texts.at(place));
    if (!picture.path.isEmpty()) storePicture(picture);
    if (!picture.path.isEmpty() && work_ == Work::changing)
        updateIntoBin(mekTp::catalogue, u"tcan"_s, rows_);
    else
        rows_.Update();
    whole.commit();
    choose(texts.at(0), texts.at(1));
}

void ButtonRecords::remove() {
    removeIntoBin(mekTp::catalogue, u"tcan"_s, rows_, BinKind::button);
    chooseNone();
}

ButtonTexts textsOf(const Recordset& button) {
    ButtonTexts texts;
    for (std::size_t place = 0; place < columns.size(); ++place)
        texts.at(place) = button.Fields(columns.at(place)).Value().textOr();
    return texts;
}

std::optional<ButtonTexts> buttonWithCode(const Database& catalogue, const QString& code) {
    const Recordset buttons = buttonsWithCode(catalogue, code);
    if (buttons.Eof()) return {};
    return textsOf(buttons);
}

std::vector<ButtonTexts> buttonsWithNumber(const Database& catalogue, int number) {
    std::vector<ButtonTexts> found;
    for (Recordset buttons = buttonsWhere(catalogue, u"序号 = %1"_s.arg(number)); !buttons.Eof(); buttons.MoveNext())
        found.push_back(textsOf(buttons));
    return found;
}
