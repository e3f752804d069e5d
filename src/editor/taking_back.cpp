#include "editor/taking_back.h"

using namespace Qt::Literals::StringLiterals;

TakingBack::TakingBack(const Workplace& at, OperationDialog& dialog, OperationRunner& runner,
                       const AlbumChooser& chooser, ButtonPicture& button)
    : Chapter(at), dialog_(dialog), runner_(runner), chooser_(chooser), button_(button) {
    commands_.onCommand(u"cx"_s, [this] { mnuCxClick(); });
    connect(&dialog_, &OperationDialog::cancelled, this, &TakingBack::mnuCxClick);
    connect(&button_, &ButtonPicture::left, this, &TakingBack::mnuCxClick);
}

void TakingBack::mnuCxClick() {
    if (chooser_.isOpen()) return;  // the picture is out of sight, and its steps are gone
    document_.startTakingBack();
    view_.showPicture();  // a paint that failed has left it hidden
    view_.band().hide();
    if (dialog_.isOpen()) {
        dialog_.hide();
        view_.hint().tscz(u"w1"_s);
        commands_.szan(true);
    } else if (button_.isOpen()) {
        button_.hide();
        commands_.szan(true);
    } else if (document_.isOpen()) {
        goBack();
    }
}

void TakingBack::goBack() {
    const auto hint = document_.takeBack();
    if (!document_.isOpen()) commands_.enable(u"cx"_s, false);
    if (!hint) return;
    view_.hint().setText(*hint);
    const Operation* last = document_.operation();
    if (last == nullptr || !last->asksNothing()) runner_.reopen();
    view_.hint().tscz(document_.code() + u'1');
}
