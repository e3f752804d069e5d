#include "editor/transforms.h"

#include "editor/pixels/rotation.h"
#include "platform/base/error.h"
#include "platform/base/twips.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"
#include "platform/picture/refusal.h"

#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int mostTwips = longestPictureSide * twipsPerPixel;

QSize inPixels(QSize twips) {
    return {pixelsFromTwips(twips.width()), pixelsFromTwips(twips.height())};
}

QRect inPixels(const QRect& twips) {
    return {QPoint(pixelsFromTwips(twips.x()), pixelsFromTwips(twips.y())), inPixels(twips.size())};
}

/// The size in twips of a picture to be made; nothing when no picture can be that large.
std::optional<QSize> possibleSize(double width, double height) {
    if (!(width <= mostTwips && height <= mostTwips)) return {};
    const QSize size(roundHalfEven(width), roundHalfEven(height));
    const QSize pixels = inPixels(size);
    if (4 * qint64(pixels.width()) * pixels.height() > pictureMemoryLimit()) return {};
    return size;
}

/// The bar of a rotation, for as long as that runs.
class ProgressShown {
  public:
    explicit ProgressShown(QProgressBar* bar) : bar_(bar) {
        bar_->setValue(0);
        bar_->show();
    }
    ~ProgressShown() { bar_->hide(); }
    ProgressShown(const ProgressShown&) = delete;
    ProgressShown& operator=(const ProgressShown&) = delete;

  private:
    QProgressBar* bar_;
};

[[noreturn]] void refuseSize() {
    throw Error(u"图片变得太大：边长不能超过 %1 像素。"_s.arg(longestPictureSide));
}

}  // namespace

Transforms::Transforms(EditorState& state, Commands& commands, EditorView& view, OperationDialog& dialog,
                       UndoHistory& history)
    : QObject(&view), state_(state), commands_(commands), view_(view), dialog_(dialog), history_(history) {
    connect(&dialog_, &OperationDialog::confirmed, this, &Transforms::cmdCqClick);
}

void Transforms::mnuSfClick() {
    if (!state_.undoing) state_.editState = u"s"_s;
    view_.tscz(u"s1"_s);
    dialog_.czdh(u"s"_s);
    commands_.szan(true);
}

void Transforms::mnuXzClick() {
    state_.editState = u"x"_s;
    view_.tscz(u"x1"_s);
    commands_.setEnabled(commands_.mnuXz, u"xz"_s, false);
    dialog_.czdh(u"x"_s);
    commands_.setEnabled(commands_.mnuAt, u"at"_s, false);
}

/// The dialog was confirmed. What cannot be carried out leaves the dialog open and says why in the hint box.
void Transforms::cmdCqClick() {
    state_.undoing = false;
    const QString mode = dialog_.mode();
    if (mode != u"c" && dialog_.txtCq->text().isEmpty()) {
        say(view_.picCq, u"请在文本框中输入数据！"_s, BoxIcon::information);
        dialog_.txtCq->setFocus();
        return;
    }
    const QString before = state_.opTag;
    try {
        carryOut(mode);
    } catch (const std::exception& failure) {
        state_.opTag = before;
        const auto* told = dynamic_cast<const Error*>(&failure);
        view_.notice(told != nullptr ? told->text() : u"内存不够，不能完成这一步。"_s);
        return;
    }
    finish(mode);
}

void Transforms::carryOut(const QString& mode) {
    if (mode == u"s")
        scale();
    else if (mode == u"c")
        crop();
    else
        tpxz();
}

void Transforms::scale() {
    const QString text = dialog_.txtCq->text();
    const double factor = dialog_.value();
    if (!(factor > 0)) throw Error(u"缩放倍数应是大于 0 的数。"_s);
    state_.opTag += u" *"_s + (text.startsWith(u'.') ? u"0"_s : QString()) + text;
    view_.tscz(u"s2"_s);
    paint({0, 0, state_.picWidth, state_.picHeight}, factor);
}

void Transforms::crop() {
    const QRect part(state_.selLeft, state_.selTop, state_.selWidth, state_.selHeight);
    if (inPixels(part.size()).isEmpty()) throw Error(u"请先在图片上从左上角向右下角拖动鼠标，选择裁剪范围。"_s);
    dialog_.txtCq->setText(u"1"_s);
    state_.opTag += u" 裁剪"_s;
    view_.tscz(u"c2"_s);
    paint(part, 1);
}

/// Paints a part of the picture, `factor` times as large, and makes that the working picture. Its corner stays where
/// the next flip reads its source.
void Transforms::paint(const QRect& part, double factor) {
    const auto size = possibleSize(factor * part.width(), factor * part.height());
    if (size && inPixels(*size).isEmpty()) throw Error(u"图片会变得太小，什么也看不见。"_s);
    state_.picLeft = part.x();
    state_.picTop = part.y();
    view_.picYu->hide();
    view_.picMb->setPicture({});
    if (!size) refuseSize();
    const QImage result =
        painted(view_.picYu->Image(), inPixels(part), inPixels(*size), Mirror::none, view_.picMb->background());
    state_.picWidth = size->width();
    state_.picHeight = size->height();
    view_.takePainted(result);
    view_.setCaption(state_.sourceLine + u" ["_s + state_.opTag + u"]"_s);
}

/// Rotates by the angle in the dialog.
void Transforms::tpxz() {
    if (state_.picWidth == 0) return;
    const Hourglass hourglass;
    const QString text = dialog_.txtCq->text();
    const double number = dialog_.value();
    const double degrees = std::isfinite(number) ? number : 0;
    const QSize twips = rotatedSize({state_.picWidth, state_.picHeight}, degrees);
    const auto size = possibleSize(twips.width(), twips.height());
    if (!size) refuseSize();

    const ProgressShown progress(dialog_.prg1);
    view_.picMb->setPicture({});
    const QImage result = rotated(view_.picYu->Image(), inPixels(*size), degrees, view_.picMb->background(),
                                  [this](int percent) { dialog_.prg1->setValue(percent); });
    dialog_.prg1->setValue(90);
    state_.picWidth = size->width();
    state_.picHeight = size->height();
    view_.takePainted(result);
    dialog_.prg1->setValue(100);
    state_.opTag += u" "_s + text + u"度"_s;
    view_.setCaption(state_.sourceLine + u" ["_s + state_.opTag + u"]"_s);
    view_.tscz(u"x2"_s);
}

/// The end of every confirmed operation.
void Transforms::finish(const QString& mode) {
    state_.editState = mode == u"x" ? u"v"_s : mode;
    history_.cxcz();
    commands_.szan(true);
    commands_.setEnabled(commands_.mnuBc, u"bc"_s, true);
    commands_.setEnabled(commands_.mnuAt, u"at"_s, true);
    dialog_.close();
    view_.shpYu->hide();
    view_.txtCc->hide();
}

void Transforms::mnuFsClick() {
    flip({Mirror::horizontal, u" 水平翻转"_s, u"p"_s, u"p1"_s});
}

void Transforms::mnuFcClick() {
    flip({Mirror::vertical, u" 垂直翻转"_s, u"z"_s, u"z1"_s});
}

/// The source is read from where the last crop had its corner.
void Transforms::flip(const Flip& flip) {
    state_.undoing = false;
    const QRect part(state_.picLeft, state_.picTop, state_.picWidth, state_.picHeight);
    view_.picMb->setPicture({});
    view_.takePainted(
        painted(view_.picYu->Image(), inPixels(part), inPixels(part.size()), flip.mirror, view_.picMb->background()));
    state_.opTag += flip.tag;
    view_.setCaption(state_.sourceLine + u"["_s + state_.opTag + u"]"_s);
    state_.editState = flip.state;
    view_.tscz(flip.hint);
    history_.cxcz();
}
