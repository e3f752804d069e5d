#include "settings/button_records.h"

#include "catalogue/mektp.h"
#include "intake/intake_run.h"
#include "platform/base/error.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const std::array columns{u"序号"_s, u"编号"_s, u"名称"_s, u"图册"_s};

Recordset buttonsWhere(const Database& catalogue, const QString& condition) {
    return catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE "_s + condition);
}

std::optional<ButtonTexts> first(const Recordset& buttons) {
    if (buttons.Eof()) return {};
    return textsOf(buttons);
}

}  // namespace

void ButtonRecords::choose(const QString& number) {
    chooseNone();
    rows_ = buttonsWhere(mekTp::catalogue, u"序号 = "_s + number);
}

void ButtonRecords::chooseNone() {
    work_ = Work::none;
    rows_ = {};
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
    rows_.Edit();
    work_ = Work::changing;
}

/// The record is open for changes, also when an earlier attempt to store it has failed.
void ButtonRecords::prepare() {
    if (work_ == Work::changing) {
        rows_ = buttonsWhere(mekTp::catalogue, u"序号 = "_s + number_);
        if (rows_.Eof()) throw Error(u"序号为 %1 的按钮已被删除，没有保存。"_s.arg(number_));
        rows_.Edit();
    } else if (rows_.EditMode() != Recordset::Mode::add) {
        rows_.AddNew();
    }
}

void ButtonRecords::store(const ButtonTexts& texts, const QString& pictureFile) {
    prepare();
    for (std::size_t place = 0; place < columns.size(); ++place)
        rows_.Fields(columns.at(place)).SetValue(texts.at(place));
    if (!pictureFile.isEmpty() && bctp(pictureFile, rows_, u"j"_s, false) == 0)
        throw Error(u"图片文件“%1”没有内容，按钮没有保存。"_s.arg(pictureFile));
    rows_.Update();
    choose(texts.front());
}

void ButtonRecords::remove() {
    rows_.Delete();
    chooseNone();
}

ButtonTexts textsOf(const Recordset& button) {
    ButtonTexts texts;
    for (std::size_t place = 0; place < columns.size(); ++place)
        texts.at(place) = button.Fields(columns.at(place)).Value().textOr();
    return texts;
}

int nextButtonNumber(const Database& catalogue) {
    Recordset buttons = catalogue.OpenRecordset(u"SELECT * FROM tcan ORDER BY [序号]"_s);
    if (buttons.Eof()) return 1;
    buttons.MoveLast();
    return buttons.Fields(columns.at(0)).Value().toInteger() + 1;
}

std::optional<ButtonTexts> buttonWithCode(const Database& catalogue, const QString& code) {
    return first(buttonsWhere(catalogue, u"编号 = "_s + quoted(code)));
}

std::optional<ButtonTexts> buttonWithNumber(const Database& catalogue, int number) {
    return first(buttonsWhere(catalogue, u"序号 = %1"_s.arg(number)));
}
