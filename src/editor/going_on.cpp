#include "editor/going_on.h"

#include "editor/document/kept_work.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"

using namespace Qt::Literals::StringLiterals;

GoingOn::GoingOn(const Workplace& at, AlbumChooser& chooser) : Chapter(at), chooser_(chooser) {}

void GoingOn::offer() {
    const auto source = keptSource();
    if (!source || document_.isOpen()) return;
    constexpr int goesOn = 0;
    const QString question =
        u"上次处理图片时软件没有正常结束，处理的步骤还在：\n\n%1\n\n要接着处理，请按《继续处理》；不要了，按《放弃》。"_s
        u"\n\n这些步骤是质量 80 的副本，比原图片粗一些。放弃的话，原图片保持现在的样子。"_s;
    if (choose(form_, question.arg(sourceLine(*source)), {u"继续处理"_s, u"放弃"_s}, goesOn, goesOn) == goesOn)
        goOn(*source);
    else
        document_.clearSteps();
}

void GoingOn::goOn(const PictureSource& source) {
    const Hourglass hourglass;
    PictureSource found = source;
    if (auto* record = std::get_if<AlbumRecord>(&found)) chooser_.findRecord(*record);
    const auto hint = document_.resume(found);
    if (!hint) {
        document_.clearSteps();
        say(form_, u"处理的步骤读不出来，不能继续。原图片保持现在的样子。"_s);
        return;
    }
    view_.hint().setText(*hint);
    commands_.enable(u"bc"_s, true);
}
