#include "editor/saving.h"

#include "catalogue/album_rules.h"
#include "catalogue/picture_field.h"
#include "editor/document/picture_files.h"
#include "platform/base/files.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/message_box.h"

using namespace Qt::Literals::StringLiterals;

Saving::Saving(const Workplace& at, OperationDialog& dialog, AlbumChooser& chooser, const ButtonPicture& button)
    : Chapter(at), dialog_(dialog), chooser_(chooser), button_(button) {
    commands_.onCommand(u"bc"_s, [this] { mnuBcClick(); });
    commands_.onCommand(u"lc"_s, [this] { mnuLcClick(); });
}

void Saving::mnuBcClick() {
    if (!document_.isOpen()) {
        say(form_, u"请先打开图片！"_s, BoxIcon::information);
        return;
    }
    const auto picture = askWhatToSave();
    if (!picture) return;
    const QString where = store(*picture);
    say(form_, u"图片已保存完毕！("_s + where + u')', BoxIcon::exclamation, u"保存图片"_s);
    finish();
}

/// The picture of the last paint. After an undo that is the one that was taken back: then there is a choice.
std::optional<QImage> Saving::askWhatToSave() {
    enum Answer { lastPaint, screen, cancel };
    const QString question = u"        保存已修改的图片吗？\n\n如果保存，按《确定》，将覆盖原图片；否则按《取消》。"_s;
    const QString title = u"按原文件名保存"_s;
    if (!document_.isTakenBack()) {
        if (!ask(form_, question, BoxIcon::question, title)) return {};
        return document_.lastPaint();
    }
    const int answer = choose(form_,
                              question +
                                  u"\n\n屏幕上是撤消以后的图片。《确定》保存的是撤消以前的那一张；"
                                  u"要保存现在看到的这一张，按《保存屏幕上的图片》。"_s,
                              {u"确定"_s, u"保存屏幕上的图片"_s, u"取消"_s}, cancel, cancel, BoxIcon::question, title);
    if (answer == cancel) return {};
    return answer == screen ? document_.photograph() : document_.lastPaint();
}

QString Saving::store(const QImage& picture) {
    const Hourglass hourglass;
    const auto* file = std::get_if<PictureFile>(&document_.source());
    if (file == nullptr) return storeInAlbum(picture);
    writePictureFile(picture, document_.profile(), file->path);
    return u"文件名："_s + file->path;
}

/// The picture is stored together with its size and length: they cannot disagree.
QString Saving::storeInAlbum(const QImage& picture) {
    Recordset& record = chooser_.recordOfPicture();
    const QByteArray jpeg = encodeJpeg(picture, jpegQuality, document_.profile());
    record.Edit();
    storePictureBytes(record.Fields(u"图片"_s), jpeg);
    record.Fields(u"大小"_s).SetValue(kilobytes1024Text(jpeg.size()));
    record.Fields(u"规格"_s).SetValue(specOfPicture(Picture(picture)));
    record.Update();
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
        form_, u"图片已经改动，还没有保存。\n\n按《保存》写回原来的地方，覆盖原图片；不要这些改动，按《不保存》。"_s)) {
        case Unsaved::save:
            store(document_.photograph());
            finish();
            return true;
        case Unsaved::discard:
            return true;
        case Unsaved::keepEditing:
            break;
    }
    return false;
}

void Saving::mnuLcClick() {
    const auto name = askWhereTo();
    if (!name) return;
    {
        const Hourglass hourglass;
        writePictureFile(document_.shown(), document_.profile(), *name);
    }
    say(form_, u"图片已保存完毕！(文件名："_s + *name + u")"_s, BoxIcon::exclamation, u"另外保存图片"_s);
    document_.setState(EditState::copied);
    if (!document_.showsThumbnail()) document_.keep();
}

std::optional<QString> Saving::askWhereTo() {
    if (!ask(form_, u"    另外保存已修改的图片吗？\n\n如果保存，按《确定》；否则按《取消》。"_s, BoxIcon::question,
             u"图片处理另外保存"_s))
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
