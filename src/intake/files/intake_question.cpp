#include "intake/files/intake_question.h"

#include "catalogue/mektp.h"
#include "catalogue/remembered.h"
#include "platform/desktop/message_box.h"

#include <QCheckBox>
#include <QPointer>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString skipKnown = u"intake.skipKnown"_s;

int countOf(const RepetitionCount::Things& things) {
    const auto* files = std::get_if<ChosenFiles>(&things);
    return int(files != nullptr ? files->paths.size() : std::get<CopyOrder>(things).records.size());
}

QString caption() {
    return u"跳过已有的图片"_s;
}

QString caption(const Repetitions& count) {
    if (count.open == 0) return caption() + u"（%1 张）"_s.arg(count.known);
    return caption() + u"（%1 张，另有 %2 张要转成 JPG，录入时才比较）"_s.arg(count.known).arg(count.open);
}

/// As wide as any that may come.
QString widestCaption(const RepetitionCount::Things& things) {
    const auto* files = std::get_if<ChosenFiles>(&things);
    const int count = countOf(things);
    return caption({count, files != nullptr && files->otherFormats ? count : 0});
}

std::unique_ptr<QCheckBox> makeOption(bool on, const QString& widest) {
    auto option = std::make_unique<QCheckBox>(widest);
    option->setObjectName(u"chkTg"_s);
    option->setMinimumWidth(option->sizeHint().width());  // the box does not grow with the caption
    option->setText(caption());
    option->setChecked(on);
    return option;
}

}  // namespace

std::optional<bool> askIntake(QWidget* parent, const QString& question, const std::optional<SkipOffer>& offer) {
    if (!offer) return ask(parent, question) ? std::optional(false) : std::nullopt;
    bool skips = remembered::flag(skipKnown);
    std::unique_ptr<QCheckBox> option = makeOption(skips, widestCaption(offer->things));
    QObject::connect(option.get(), &QCheckBox::toggled, option.get(), [&skips](bool on) { skips = on; });
    QObject receiver;  // calls that the thread has left behind go with it
    const QPointer<QCheckBox> chkTg = option.get();
    const auto tell = [&receiver, chkTg](const Repetitions& count) {
        QMetaObject::invokeMethod(
            &receiver,
            [chkTg, count] {
                if (chkTg) chkTg->setText(caption(count));
            },
            Qt::QueuedConnection);
    };
    std::optional<RepetitionCount> counting;
    if (countOf(offer->things) > 0) counting.emplace(mekTp::cataloguePath(), offer->album, offer->things, tell);
    const bool isWanted = ask(parent, question, std::move(option));
    counting.reset();
    remembered::setFlag(skipKnown, skips);
    return isWanted ? std::optional(skips) : std::nullopt;
}
