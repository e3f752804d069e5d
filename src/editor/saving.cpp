#include "editor/saving.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "editor/editor_texts.h"
#include "editor/picture_files.h"
#include "platform/base/files.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"

using namespace Qt::Literals::StringLiterals;

Saving::Saving(EditorState& state, Commands& commands, EditorView& view, UndoHistory& history, AlbumChooser& chooser,
               QWidget* form)
    : QObject(form),
      state_(state),
      commands_(commands),
      view_(view),
      history_(history),
      chooser_(chooser),
      form_(form) {}

void Saving::mnuBcClick() {
    if (!state_.isOpen) {
        say(form_, u"请先打开图片！"_s, BoxIcon::information);
        return;
    }
    if (!ask(form_, u"        保存已修改的图片吗？\n\n如果保存，按《确定》，将覆盖原图片；否则按《取消》。"_s,
             BoxIcon::question, u"按原文件名保存"_s))
        return;
    if (state_.sourceLine.mid(2, 2) == u"图册")
        saveIntoAlbum();
    else
        saveOverFile();
    commands_.setEnabled(commands_.mnuBc, u"bc"_s, false);
    commands_.setEnabled(commands_.mnuCx, u"cx"_s, false);
    history_.clear();
}

QImage Saving::lastPaint() const {
    return view_.picMb->picture().isNull() ? view_.picYu->Image() : view_.picMb->picture();
}

void Saving::saveIntoAlbum() {
    QString number;
    {
        const Hourglass hourglass;
        const QImage picture = lastPaint();
        chooser_.returnToLoaded();
        Recordset& record = chooser_.datBj->Recordset();
        Transaction whole(mekTp::catalogue);
        bcsk(picture, record, state_);
        record.Edit();
        record.Fields(u"大小"_s).SetValue(kilobytes1024Text(state_.savedSize));
        record.Fields(u"规格"_s).SetValue(specOfPicture(Picture(picture)));
        record.Update();
        whole.commit();
        number = record.Fields(u"序号"_s).Value().textOr();
    }
    say(form_, u"图片已保存完毕！(序号＝"_s + number + u")"_s, BoxIcon::exclamation, u"保存图片"_s);
    chooser_.listAnew();
}

void Saving::saveOverFile() {
    {
        const Hourglass hourglass;
        writePictureFile(lastPaint(), state_.sourceFile);
    }
    say(form_, u"图片已保存完毕！(文件名："_s + state_.sourceFile + u")"_s, BoxIcon::exclamation, u"保存图片"_s);
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
}
