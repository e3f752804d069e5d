#include "settings/setup/button_group.h"

#include "catalogue/album_directory.h"
#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/next_number.h"
#include "catalogue/selection_buttons.h"
#include "platform/base/error.h"
#include "platform/base/typed_date.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/option_buttons.h"
#include "platform/desktop/text_box.h"
#include "settings/frame/bmp_question.h"
#include "settings/frame/form_parts.h"
#include "settings/setup/all_pictures_button.h"
#include "settings/setup/key_walk.h"

#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
const QString adds = u"添 加"_s, saves = u"保 存"_s;
const QString changes = u"修 改"_s, confirms = u"确 定"_s;
const QString deletes = u"删 除"_s, cancels = u"取 消"_s;
}  // namespace

ButtonGroup::ButtonGroup(const SettingsFrame& frame, Preview& preview) : frame_(frame), preview_(preview) {
    makeControls();
    albums_ = std::make_unique<AlbumPicker>(frame.choices, frame.sstFz, fraAs, txtC1);
    new KeyWalk({txtX1, txtB1, txtM1}, this);
    connectControls();
}

void ButtonGroup::makeControls() {
    fraAs = makeGroup(frame_.sstFz, setupTab, u"fraAs"_s, u"图片选择按钮设置"_s, {180, 780, 4770, 5880},
                      leftColumn + heightens);
    letGrow(makeCaption(fraAs, u"可在上表中用鼠标单击选择要修改的按钮"_s, 200, 3820, 4330), movesDown);

    const std::array captions{u"按序号排序"_s, u"按编号排序"_s};
    for (int i = 0; i < 2; ++i) {
        auto& option = optAp.at(i);
        option = make<QRadioButton>(fraAs, element(u"optAp"_s, i), captions.at(i));
        place(option, 200 + 1900 * i, 4140, 1800, rowHeight);
        letGrow(option, movesDown);
        connect(option, &QRadioButton::clicked, this, guarded(frame_.form, [this, i] { optApClick(i); }));
    }
    groupOptions(optAp);

    txtX1 = makeLabelled<TextBox>(fraAs, u"txtX1"_s, u"序号："_s, {200, 4560}, 600, 600, movesDown);
    txtB1 = makeLabelled<TextBox>(fraAs, u"txtB1"_s, u"编号："_s, {1550, 4560}, 600, 450, movesDown);
    txtM1 = makeLabelled<TextBox>(fraAs, u"txtM1"_s, u"名称："_s, {2750, 4560}, 600, 1180, movesDown + widens);
    txtC1 = makeLabelled<TextBox>(fraAs, u"txtC1"_s, u"相关图册："_s, {200, 4560 + rowPitch}, 900, 3430,
                                  movesDown + widens);
    txtX1->setToolTip(u"修改时填别的按钮的序号，可以与它交换"_s);
    boxes_ = {txtX1, txtB1, txtM1, txtC1};

    cmdQu = make<QPushButton>(fraAs, u"cmdQu"_s, adds);
    cmdBj = make<QPushButton>(fraAs, u"cmdBj"_s, changes);
    cmdSn = make<QPushButton>(fraAs, u"cmdSn"_s, deletes);
    row_ = std::make_unique<ButtonRow>(fraAs, QList{cmdQu, cmdBj, cmdSn, makeOpener()}, preview_);
}

QPushButton* ButtonGroup::makeOpener() {
    return preview_.makeOpener(buttonOpener, fraAs,
                               {.isEditing = [this] { return buttonSet.isPending(); },
                                .caption = [] { return u"按钮图片设置"_s; },
                                .isNew = [this] { return buttonSet.work() == ButtonRecords::Work::adding; },
                                .store =
                                    [this](const QString& path) {
                                        agreedPicture_ = path;
                                        anbc();
                                    }});
}

void ButtonGroup::connectControls() {
    const auto run = [this](auto slot) { return guarded(frame_.form, [this, slot] { (this->*slot)(); }); };
    connect(cmdQu, &QPushButton::clicked, this, run(&ButtonGroup::cmdQuClick));
    connect(cmdBj, &QPushButton::clicked, this, run(&ButtonGroup::cmdBjClick));
    connect(cmdSn, &QPushButton::clicked, this, run(&ButtonGroup::cmdSnClick));
    connect(txtB1, &QLineEdit::textChanged, this, [this] { attempt([this] { codeChanged(); }); });
    // A click opens the list again where the box has the focus already.
    connect(txtC1, &TextBox::gotFocus, this, run(&ButtonGroup::offerAlbums));
    connect(txtC1, &TextBox::clicked, this, run(&ButtonGroup::offerAlbums));
    connect(albums_.get(), &AlbumPicker::picked, this,
            [this](const QString& table) { txtC1->setText(txtC1->text() + table); });
    // Whoever reads the buttons anew: grid and boxes go on speaking of the same one.
    connect(&frame_.grid, &RecordGrid::listed, this, [this] {
        if (frame_.isInFront(setupTab)) findChosen();
    });
}

// Rest ----------------------------------------------------------------------------------------------------------------

void ButtonGroup::reset() {
    showNone();
    optAp.at(1)->setChecked(true);
    frame_.grid.list(u"SELECT * FROM tcan ORDER BY [编号]"_s);
    limitTyping(txtB1, frame_.grid.records(), u"编号"_s);
    limitTyping(txtM1, frame_.grid.records(), u"名称"_s);
}

void ButtonGroup::rest() {
    if (buttonSet.isPending()) frame_.work.end();
    buttonSet.chooseNone();
    clearPicture();
    albums_->close();
    for (TextBox* box : boxes_) box->setLocked(true);
    cmdQu->setText(adds);
    cmdBj->setText(changes);
    cmdSn->setText(deletes);
    cmdQu->setEnabled(true);
    cmdBj->setEnabled(false);
    cmdSn->setEnabled(false);
}

void ButtonGroup::showNone() {
    rest();
    chosen_.clear();
    chosenCode_.clear();
    for (TextBox* box : boxes_) box->clear();
    preview_.allowOpening(buttonOpener, false);
}

void ButtonGroup::clearPicture() {
    agreedPicture_.clear();
    preview_.forgetFile();
}

void ButtonGroup::findChosen() {
    if (chosen_.isEmpty()) return;
    attempt([this] {
        const QString number = u"序号 = "_s + chosen_;
        RecordGrid& grid = frame_.grid;
        if (!grid.findFirst(number + u" AND 编号 = "_s + quoted(chosenCode_))) grid.findFirst(number);
    });
}

/// Takes the grid's current record in hand, with its texts and its picture.
void ButtonGroup::showCurrent() {
    rest();
    ButtonTexts texts;
    attempt([&] { texts = textsOf(frame_.grid.records()); });
    chosen_ = texts.at(0);
    chosenCode_ = texts.at(1);
    // The boxes show the button that would be changed or deleted, whatever the grid makes of two with one number.
    attempt([&] {
        buttonSet.choose(chosen_, chosenCode_);
        if (buttonSet.isOnButton()) texts = buttonSet.texts();
    });
    for (std::size_t i = 0; i < boxes_.size(); ++i) boxes_.at(i)->setText(texts.at(i));
    if (preview_.isOpen()) preview_.allowStoring(false);
    attempt([this] { preview_.showRecord(); });
}

bool ButtonGroup::isChanged() const {
    return buttonSet.isPending() && (texts() != begun_ || !pictureToStore().isEmpty());
}

bool ButtonGroup::mayLeave() {
    if (!isChanged()) return true;
    return mayBeLeft(frame_.form, u"按钮“%1”的改动还没有保存。"_s.arg(txtM1->text()), [this] { return anbc(); });
}

bool ButtonGroup::mayGoTo(int row) {
    if (!isChanged()) return true;
    RecordGrid& grid = frame_.grid;
    if (buttonSet.work() == ButtonRecords::Work::changing && row == grid.records().row()) return false;
    const QString code = grid.records().valueAt(row, u"编号"_s).textOr();
    if (!mayLeave()) return false;
    if (buttonSet.isPending()) return true;
    // What was stored may have got another place in the order, and the row as well.
    if (grid.findFirst(u"编号 = "_s + quoted(code))) anjl();
    return false;
}

// Shows the row that was chosen in the grid.
void ButtonGroup::anjl() {
    showCurrent();
    const bool changeable = buttonSet.isOnButton() && !isPreset(buttonSet.code());
    cmdBj->setEnabled(changeable);
    cmdSn->setEnabled(changeable);
    preview_.allowOpening(buttonOpener, true);
}

void ButtonGroup::optApClick(int index) {
    frame_.grid.list(u"SELECT * FROM tcan ORDER BY "_s + (index == 1 ? u"[编号]"_s : u"[序号]"_s));
}

// Adding and changing -------------------------------------------------------------------------------------------------

void ButtonGroup::cmdQuClick() {
    if (mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcbm"_s).Eof()) {
        say(frame_.form, albumsFirst, BoxIcon::question);
        return;
    }
    if (buttonSet.work() == ButtonRecords::Work::adding)
        anbc();
    else
        startAdding();
}

void ButtonGroup::startAdding() {
    const int number = NextNumber(mekTp::catalogue, u"tcan"_s).value();
    buttonSet.startAdding();
    clearPicture();
    txtX1->setText(QString::number(number));
    for (TextBox* box : {txtB1, txtM1, txtC1}) box->clear();
    cmdQu->setText(saves);
    cmdBj->setEnabled(false);
    if (preview_.isOpen()) preview_.close();
    openForWork();
    txtB1->setFocus();
}

void ButtonGroup::cmdBjClick() {
    if (buttonSet.work() == ButtonRecords::Work::changing)
        anbc();
    else if (isPreset(buttonSet.code()))
        say(frame_.form, presetButton, BoxIcon::question);
    else
        startChanging();
}

void ButtonGroup::startChanging() {
    buttonSet.startChanging();
    cmdBj->setText(confirms);
    cmdQu->setEnabled(false);
    openForWork();
    if (preview_.isOpen() && !preview_.loadedFile().isEmpty()) preview_.allowStoring(true);
}

void ButtonGroup::openForWork() {
    begun_ = texts();
    for (TextBox* box : boxes_) box->setLocked(false);
    cmdSn->setText(cancels);
    cmdSn->setEnabled(true);
    preview_.allowOpening(buttonOpener, true);
    frame_.hints.show(pictureHint);
    frame_.work.begin();
}

// Stores the boxes and, when one was given, the picture. False when it is still to be done.
bool ButtonGroup::anbc() {
    if (const auto empty = firstEmpty(texts())) {
        say(frame_.form, notFilled(*empty));
        boxes_.at(static_cast<std::size_t>(*empty))->setFocus();
        return false;
    }
    if (refuseLong(u"编号"_s, txtB1) || refuseLong(u"名称"_s, txtM1) || !codeIsMeant()) return false;
    const std::optional<Number> number = numberToStore();
    if (!number) return false;
    const QString picture = pictureToStore();
    if (picture.isEmpty() && !buttonSet.hasPicture() && !ask(frame_.form, pictureLater)) return false;
    const std::optional<BmpFiles> bmp = askAboutBmp(frame_.form, {picture});
    if (!bmp) {
        agreedPicture_.clear();
        return false;
    }

    ButtonTexts stored = texts();
    stored.front() = QString::number(number->number);
    frame_.runBar.makeRoom();
    buttonSet.store(stored, {picture, *bmp}, number->partner);
    frame_.work.end();
    chosen_ = stored.at(0);
    chosenCode_ = stored.at(1);
    frame_.grid.listAgain();
    showCurrent();
    cmdBj->setEnabled(true);
    frame_.bin.look();
    return true;
}

/// Tells of a text that its column cannot hold; false when it can.
bool ButtonGroup::refuseLong(const QString& caption, TextBox* box) {
    const QString fault = lengthFault(caption, *box);
    if (fault.isEmpty()) return false;
    say(frame_.form, fault);
    box->setFocus();
    return true;
}

/// A code that takes the button for all pictures away, or that nobody can take back later, is asked about.
bool ButtonGroup::codeIsMeant() {
    const QString old = buttonSet.code();
    const QString code = txtB1->text();
    const bool leaves = isAllPictures(old) && !isAllPictures(code);
    const bool becomesPreset = isPreset(code) && code != old;
    if (!leaves && !becomesPreset) return true;
    const QString question = leaves ? allPicturesLeaveQuestion(code) : presetCodeQuestion(code);
    if (askBeforeDeleting(frame_.form, question)) return true;
    txtB1->setFocus();
    return false;
}

ButtonTexts ButtonGroup::texts() const {
    ButtonTexts texts;
    for (std::size_t i = 0; i < boxes_.size(); ++i) texts.at(i) = boxes_.at(i)->text();
    return texts;
}

/// The number in the box, by which everything finds the button: nothing, and said why, when it is none or taken.
std::optional<ButtonGroup::Number> ButtonGroup::numberToStore() {
    bool isNumber = false;
    const int number = inPlainWidth(txtX1->text()).trimmed().toInt(&isNumber);
    const bool own = buttonSet.number() == QString::number(number);
    std::vector<ButtonTexts> others;
    if (isNumber && !own) others = buttonsWithNumber(mekTp::catalogue, number);
    if (isNumber && others.empty()) return Number{number, {}};
    if (const auto partner = isNumber ? buttonSet.partnerFor(number) : std::nullopt) {
        if (ask(frame_.form, exchangeQuestion(partner->at(2), number, buttonSet.number())))
            return Number{number, partner};
    } else {
        say(frame_.form, isNumber ? numberInUse(others.front().at(2), number) : u"序号应为整数，重来！"_s);
    }
    txtX1->setFocus();
    return {};
}

QString ButtonGroup::pictureToStore() const {
    return preview_.isOpen() && !preview_.loadedFile().isEmpty() ? preview_.loadedFile() : agreedPicture_;
}

void ButtonGroup::codeChanged() {
    if (!buttonSet.isPending() || txtB1->text().isEmpty()) return;
    const QString old = buttonSet.code();
    const auto owner = buttonWithCode(mekTp::catalogue, txtB1->text());
    if (!owner || txtB1->text().compare(old, Qt::CaseInsensitive) == 0) return;
    say(frame_.form, codeInUse(owner->at(2), owner->at(1), txtB1->text()));
    txtB1->setText(old);
    txtB1->setFocus();
}

void ButtonGroup::offerAlbums() {
    if (!buttonSet.isPending()) return;
    albums_->open(allAlbums(mekTp::catalogue));
}

// Cancelling and deleting ---------------------------------------------------------------------------------------------

void ButtonGroup::cmdSnClick() {
    if (buttonSet.isPending())
        cancel();
    else
        deleteChosen();
}

void ButtonGroup::cancel() {
    findChosen();
    showCurrent();
    cmdBj->setEnabled(buttonSet.isOnButton());
    cmdSn->setEnabled(buttonSet.isOnButton() && !isPreset(buttonSet.code()));
}

void ButtonGroup::deleteChosen() {
    if (!buttonSet.isOnButton()) return;
    const ButtonTexts button = buttonSet.texts();
    const auto offers = [&](const Album& album) { return offersAlbum(button.at(3), album.table); };
    const std::vector<Album> albums = allAlbums(mekTp::catalogue);
    const auto count = std::count_if(albums.begin(), albums.end(), offers);
    if (!askBeforeDeleting(frame_.form, buttonDeletionQuestion(button, static_cast<int>(count)))) return;
    if (preview_.isOpen()) preview_.close();
    buttonSet.remove();
    showNone();
    listCodes();
    frame_.grid.listAgain();
    frame_.bin.look();
}

void ButtonGroup::listCodes() {
    QStringList lines;
    for (Recordset buttons = mekTp::catalogue.OpenRecordset(u"tcan"_s); !buttons.Eof(); buttons.MoveNext()) {
        const ButtonTexts texts = textsOf(buttons);
        lines << codeLine(texts.at(1), texts.at(2), false);
    }
    frame_.choices.fill(lines);
}
