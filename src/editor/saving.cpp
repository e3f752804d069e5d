#include "editor/saving.h"

#include "catalogue/album_rules.h"
#include "catalogue/bin.h"
#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "catalogue/remembered.h"
#include "editor/document/picture_files.h"
#include "editor/operations/trail.h"
#include "platform/base/files.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/message_box.h"
#include "platform/picture/picture_tags.h"

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace {
/// The choice of the check box 无损保存.
const QString lossless = u"editor.lossless"_s;
const QString fromSteps = u"\n\n屏幕上的图片是从处理步骤恢复的副本（质量 80），比原图片粗一些。"_s;
}  // namespace

Saving::Saving(const Workplace& at, OperationDialog& dialog, AlbumChooser& chooser, const ButtonPicture& button)
    : Chapter(at), dialog_(dialog), chooser_(chooser), button_(button), room_(at.form) {
    commands_.onCommand(u"bc"_s, [this] { mnuBcClick(); });
    commands_.onCommand(u"lc"_s, [this] { mnuLcClick(); });
    connect(&document_, &Document::opened, this, [this] { isReplaced_ = false; });
}

void Saving::mnuBcClick() {
    if (!document_.isOpen()) {
        say(form_, u"请先打开图片！"_s, BoxIcon::information);
        return;
    }
    const auto order = askWhatToSave();
    if (!order) return;
    const QString where = store(*order);
    say(form_, u"图片已保存完毕！("_s + where + u')', BoxIcon::exclamation, u"保存图片"_s);
    finish();
    tellWay();
}

/// The picture of the last paint. After an undo that is the one that was taken back: then there is a choice.
std::optional<Saving::Order> Saving::askWhatToSave() {
    enum Answer { lastPaint, screen, cancel };
    const QString question = u"        保存已修改的图片吗？\n\n如果保存，按《确定》，将覆盖原图片；否则按《取消》。"_s;
    const QString title = u"按原文件名保存"_s;
    const QString copy = document_.isResumed() ? fromSteps : QString();
    if (document_.isResumed() && !document_.isTakenBack()) {
        if (choose(form_, question + copy, {u"确定"_s, u"取消"_s}, 1, 1, BoxIcon::question, title) != 0) return {};
        return Order{document_.lastPaint(), {}};
    }
    if (!document_.isTakenBack()) {
        auto turn = becomesJpeg() ? possibleTurn() : std::nullopt;
        if (!confirm(question, title, turn)) return {};
        return Order{document_.lastPaint(), turn};
    }
    const int answer = choose(form_,
                              question +
                                  u"\n\n屏幕上是撤消以后的图片。《确定》保存的是撤消以前的那一张；"
                                  u"要保存现在看到的这一张，按《保存屏幕上的图片》。"_s +
                                  copy,
                              {u"确定"_s, u"保存屏幕上的图片"_s, u"取消"_s}, cancel, cancel, BoxIcon::question, title);
    if (answer == cancel) return {};
    return Order{answer == screen ? document_.photograph() : document_.lastPaint(), {}};
}

/// Asks, and with a turn offers to use it. Takes it away when that is not wanted.
bool Saving::confirm(const QString& question, const QString& title, std::optional<Orientation>& turn) {
    if (!turn) return ask(form_, question, BoxIcon::question, title);
    bool isWanted = remembered::flag(lossless);
    auto option = std::make_unique<QCheckBox>(u"无损保存"_s);
    option->setObjectName(u"chkWs"_s);
    option->setToolTip(u"只做过翻转和直角旋转的 JPG 照片，可以不重新压缩"_s);
    option->setChecked(isWanted);
    connect(option.get(), &QCheckBox::toggled, option.get(), [&isWanted](bool on) { isWanted = on; });
    if (!ask(form_, question, std::move(option), title)) return false;
    remembered::setFlag(lossless, isWanted);
    if (!isWanted) turn.reset();
    return true;
}

std::optional<Orientation> Saving::possibleTurn() {
    if (isReplaced_ || document_.isTakenBack() || !document_.isWhole()) return {};
    if (!photograph().startsWith("\xff\xd8")) return {};
    return turnOfTrail(document_.trail());
}

/// Of a file the ending decides, exactly so.
bool Saving::becomesJpeg() const {
    const auto* file = std::get_if<PictureFile>(&document_.source());
    return file == nullptr || file->path.endsWith(u"jpg");
}

QByteArray Saving::photograph() {
    QByteArray bytes;
    attempt([&] {
        if (document_.isFromAlbum()) bytes = chooser_.recordOfPicture().Fields(u"图片"_s).Value().toBytes();
    });
    if (const auto* source = std::get_if<PictureFile>(&document_.source())) {
        QFile file(source->path);
        if (file.size() == source->bytesNow && file.open(QIODevice::ReadOnly)) bytes = file.readAll();
    }
    return bytes;
}

QString Saving::store(const Order& order) {
    if (document_.isFromAlbum()) room_.offer();
    const Hourglass hourglass;
    const auto* file = std::get_if<PictureFile>(&document_.source());
    QString where;
    if (file == nullptr) {
        where = storeInAlbum(order);
    } else {
        storeInFile(order, file->path);
        where = u"文件名："_s + file->path;
    }
    sourceReplaced();
    return where;
}

void Saving::sourceReplaced() {
    isReplaced_ = true;
    if (const auto* file = std::get_if<PictureFile>(&document_.source()))
        document_.setFileLength(QFileInfo(file->path).size());
}

void Saving::storeInFile(const Order& order, const QString& path) {
    way_.clear();
    if (path.endsWith(u"jpg")) {
        savePictureBytes(made(order).bytes, path);
        return;
    }
    const bool losesTags = !PictureTags(photograph()).isEmpty();
    SavePicture(order.picture, path, document_.profile());
    way_ = losesTags    ? u"已存成 BMP：照片的拍摄资料没有写入。"_s
           : order.turn ? u"已存成 BMP：无损保存只用于 JPG。"_s
                        : QString();
}

PhotographFile Saving::made(const Order& order) {
    const QByteArray before = photograph();
    PhotographFile file = photographFile(order.picture, document_.profile(), before, order.turn);
    way_ = before.isEmpty()   ? u"原来的图片已经不在，或者改过：照片的拍摄资料没有写入。"_s
           : file.hasLostTags ? u"照片的拍摄资料读不出来，或者太多：没有写入图片。"_s
           : !order.turn      ? QString()
           : file.isLossless  ? u"已无损保存：图片没有重新压缩。"_s
                             : u"不能无损保存：图片的边长不是整块。已重新压缩（质量 80）。"_s;
    return file;
}

void Saving::tellWay() {
    if (!way_.isEmpty()) view_.hint().notice(way_);
}

/// The picture is stored together with its size and length: they cannot disagree.
QString Saving::storeInAlbum(const Order& order) {
    Recordset& record = chooser_.recordOfPicture();
    const PhotographFile file = made(order);
    record.Edit();
    storePictureBytes(record.Fields(u"图片"_s), file.bytes);
    record.Fields(u"大小"_s).SetValue(kilobytes1024Text(file.bytes.size()));
    record.Fields(u"规格"_s).SetValue(specOfPicture(Picture({}, file.pixels)));
    updateIntoBin(mekTp::catalogue, std::get<AlbumRecord>(document_.source()).table, record);
    document_.setRecordPicture(record.storedAt(record.row(), u"图片"_s).id());
    return u"序号＝"_s + record.Fields(u"序号"_s).Value().textOr();
}

/// The picture is what its source is now: there is nothing to take back, and the album can be stepped through again.
void Saving::finish() {
    const bool isFromAlbum = document_.isFromAlbum();
    if (isFromAlbum) chooser_.listAnew();
    commands_.enable(u"bc"_s, false);
    commands_.enable(u"cx"_s, false);
    document_.keep();
    if (!button_.isOpen()) {
        dialog_.close();
        view_.band().hide();
        if (isFromAlbum) document_.settle();
        commands_.szan(true);
    }
    document_.clearSteps();
}

bool Saving::mayGo() {
    if (!document_.isUnsaved()) return true;
    switch (askAboutUnsaved(
        form_, u"图片已经改动，还没有保存。\n\n按《保存》写回原来的地方，覆盖原图片；不要这些改动，按《不保存》。"_s +
                   (document_.isResumed() ? fromSteps : QString()))) {
        case Unsaved::save:
            store(
                {document_.photograph(), remembered::flag(lossless) && becomesJpeg() ? possibleTurn() : std::nullopt});
            finish();
            if (!way_.isEmpty()) say(form_, way_, BoxIcon::information, u"保存图片"_s);
            return true;
        case Unsaved::discard:
            return true;
        case Unsaved::keepEditing:
            break;
    }
    return false;
}

void Saving::mnuLcClick() {
    std::optional<Orientation> turn;
    if (!document_.showsThumbnail()) turn = possibleTurn();
    const auto name = askWhereTo(turn);
    if (!name) return;
    {
        const Hourglass hourglass;
        if (document_.showsThumbnail())
            writePictureFile(document_.shown(), document_.profile(), *name);
        else
            storeInFile({document_.shown(), turn}, *name);
        const auto* file = std::get_if<PictureFile>(&document_.source());
        if (file != nullptr && QFileInfo(*name) == QFileInfo(file->path)) sourceReplaced();
    }
    say(form_, u"图片已保存完毕！(文件名："_s + *name + u")"_s, BoxIcon::exclamation, u"另外保存图片"_s);
    document_.setState(EditState::copied);
    if (document_.showsThumbnail()) return;
    document_.keep();
    tellWay();
}

std::optional<QString> Saving::askWhereTo(std::optional<Orientation>& turn) {
    if (!confirm(u"    另外保存已修改的图片吗？\n\n如果保存，按《确定》；否则按《取消》。"_s, u"图片处理另外保存"_s,
                 turn))
        return {};
    const QString chosen = askSaveFile(form_, u"另存图片文件"_s, savedKinds);
    if (chosen.isEmpty()) return {};
    const QString name = savingName(chosen);
    // The dialog has asked about the name that was typed, not about the one that it becomes.
    if (name != chosen && fileExists(name) &&
        !ask(form_, u"文件“"_s + name + u"”已经存在。\n\n要替换它，按《确定》；否则按《取消》。"_s))
        return {};
    return name;
}
