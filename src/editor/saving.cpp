#include "editor/saving.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "editor/editor_texts.h"
#include "editor/picture_files.h"
#include "platform/base/files.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"

using namespace Qt::Literals::StringLiterals;

Saving::Saving(EditorState& state, Commands& commands, EditorView& view, OperationDialog& dialog, UndoHistory& history,
               AlbumChooser& chooser, QWidget* form)
    : QObject(form),
      state_(state),
      commands_(commands),
      view_(view),
      dialog_(dialog),
      history_(history),
      chooser_(chooser),
      form_(form) {}

void Saving::mnuBcClick() {
    if (!state_.isOpen) {
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
    if (!state_.isTakenBack || view_.picMb->picture().isNull()) {
        if (!ask(form_, question, BoxIcon::question, title)) return {};
        return view_.lastPaint();
    }
    const int answer = choose(form_,
                              question +
                                  u"\n\n屏幕上是撤消以后的图片。《确定》保存的是撤消以前的那一张；"
                                  u"要保存现在看到的这一张，按《保存屏幕上的图片》。"_s,
                              {u"确定"_s, u"保存屏幕上的图片"_s, u"取消"_s}, cancel, cancel, BoxIcon::question, title);
    if (answer == cancel) return {};
    return answer == screen ? view_.workingPicture() : view_.lastPaint();
}

QString Saving::store(const QImage& picture) {
    const Hourglass hourglass;
    if (isFromAlbum()) return storeInAlbum(picture);
    writePictureFile(picture, state_.sourceFile);
    return u"文件名："_s + state_.sourceFile;
}

QString Saving::storeInAlbum(const QImage& picture) {
    chooser_.returnToLoaded();
    Recordset& record = chooser_.datBj->Recordset();
    Transaction whole(mekTp::catalogue);
    bcsk(picture, record, state_);
    record.Edit();
    record.Fields(u"大小"_s).SetValue(kilobytes1024Text(state_.savedSize));
    record.Fields(u"规格"_s).SetValue(specOfPicture(Picture(picture)));
    record.Update();
    whole.commit();
    return u"序号＝"_s + record.Fields(u"序号"_s).Value().textOr();
}

/// The picture is what its source is now: there is nothing to take back, and the album can be stepped through again.
void Saving::finish() {
    if (isFromAlbum()) chooser_.listAnew();
    commands_.setEnabled(commands_.mnuBc, u"bc"_s, false);
    commands_.setEnabled(commands_.mnuCx, u"cx"_s, false);
    state_.forgetChanges();
    if (view_.picAn->isHidden()) {
        dialog_.close();
        view_.shpYu->hide();
        view_.txtCc->hide();
        if (isFromAlbum()) state_.editState = state_.stepTrail.baseCode();
        commands_.szan(true);
    }
    history_.clear();
}

bool Saving::mayGo() {
    if (!state_.hasChanges()) return true;
    switch (askAboutUnsaved(
        form_, u"图片已经改动，还没有保存。\n\n按《保存》写回原来的地方，覆盖原图片；不要这些改动，按《不保存》。"_s)) {
        case Unsaved::save:
            store(view_.workingPicture());
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
    if (!ask(form_, u"    另外保存已修改的图片吗？\n\n如果保存，按《确定》；否则按《取消》。"_s, BoxIcon::question,
             u"图片处理另外保存"_s))
        return;
    const QString chosen = askPictureFile(form_, u"另存图片文件"_s);
    if (chosen.isEmpty()) return;
    const QString name = savingName(chosen);
    // The dialog has asked about the name that was typed, not about the one that it becomes.
    if (name != chosen && fileExists(name) &&
        !ask(form_, u"文件“"_s + name + u"”已经存在。\n\n要替换它，按《确定》；否则按《取消》。"_s))
        return;
    {
        const Hourglass hourglass;
        writePictureFile(view_.picMb->isVisible() ? view_.picMb->Image() : view_.picYu->Image(), name);
    }
    say(form_, u"图片已保存完毕！(文件名："_s + name + u")"_s, BoxIcon::exclamation, u"另外保存图片"_s);
    state_.editState = u"b"_s;
    if (!view_.showsThumbnail()) state_.forgetChanges();
}
