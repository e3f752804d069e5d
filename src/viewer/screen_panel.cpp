#include "viewer/screen_panel.h"

#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "catalogue/settings_row.h"
#include "platform/base/error.h"
#include "platform/desktop/placing.h"
#include "viewer/ground.h"
#include "viewer/middle.h"

#include <QRandomGenerator>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int stripHeight = 270;
const QString startPicture = u":/pictures/start.jpg"_s;
constexpr QSize usualSize(800, 600);  // of the panel, in pixels
// The pictures of `pmtp` that serve as curtains are numbers 7 to 12.
constexpr int curtains = 6;
constexpr int curtainsBefore = 7;
}  // namespace

ScreenPanel::ScreenPanel(ToolStrip& strip, QWidget* form) : strip_(strip) {
    pic0 = make<Surface>(form, u"pic0"_s);
    pic0->setAutoFillBackground(true);
    img0 = make<ZoomBox>(pic0, u"img0"_s);
    imgSh = make<ImageBox>(pic0, u"imgSh"_s);
    imgSh->setGeometry(0, 0, 0, 0);
    lblWz = make<QLabel>(pic0, u"lblWz"_s);
    txtB0 = make<Caption>(pic0, u"txtB0"_s);
    txtB0->hide();
    stage_ = std::make_unique<Stage>(pic0, img0, lblWz, false);
    stage_->include(txtB0->viewport());
    connect(stage_.get(), &Stage::placed, this, &ScreenPanel::placeStrip);
    connect(img0, &ImageBox::clicked, this, [this] {
        if (!stage_->wasDragged()) Q_EMIT clicked();
    });
    connect(img0, &ImageBox::mouseMoved, this, &ScreenPanel::mouseMoved);
    connect(img0, &ImageBox::mousePressed, this, [this] {
        if (isViewing()) txtB0->show();
        Q_EMIT mousePressed();
    });
    connect(txtB0, &Caption::clicked, txtB0, &QWidget::hide);
    // Another thread decodes it while this one makes the window.
    attempt(
        [&] { firstPicture_ = std::async(std::launch::async, [] { return LoadPicture(startPicture, usualSize); }); });
}

void ScreenPanel::layOut(const Box& page) {
    place(pic0, page.left, page.top, page.width, page.height);
    fitStartPicture();
    if (!isViewing()) fillPanel();
}

void ScreenPanel::hang(const Picture& picture) {
    hanging_ = picture;
    fillPanel();
}

void ScreenPanel::fillPanel() {
    placePicture({widthOf(pic0), heightOf(pic0)});
    img0->setPicture(middleFor(img0->size(), hanging_));
}

// Decoded at the size of the panel: at full size the start would take several times as long.
void ScreenPanel::fitStartPicture() {
    if (firstPicture_.valid() && hanging_.isNull()) attempt([&] { hangStartPicture(firstPicture_.get()); });
    if (!hanging_.isNull() && hanging_.image().cacheKey() != startPicture_) return;
    const QSize size = panelTarget();
    const bool isWhole = !hanging_.isNull() && hanging_.image().size() == hanging_.pixels();
    if (isWhole || size.boundedTo(hanging_.image().size()) == size) return;
    attempt([&] { hangStartPicture(LoadPicture(startPicture, size)); });
}

void ScreenPanel::hangStartPicture(const Picture& picture) {
    hanging_ = picture;
    startPicture_ = picture.image().cacheKey();
}

void ScreenPanel::placePicture(QSize size) {
    place(img0, 0, 0, size.width(), size.height());
}

void ScreenPanel::cover() {
    pic0->show();
    imgSh->show();
}

void ScreenPanel::uncover() {
    pic0->hide();
    imgSh->hide();
    if (isViewing()) endView();
}

void ScreenPanel::beginView(QSize whole, QSize pixels, const QString& data) {
    pic0->show();
    stage_->begin(whole, pixels);
    offerPaging(false);
    txtB0->setText(data);
    placeStrip();
    txtB0->show();
    txtB0->raise();
    strip_.offer(u"yd"_s, true);
}

// At the foot of the picture, or of what is seen of it. A text of several lines grows upwards, and beyond the foot of a
// low picture.
void ScreenPanel::placeStrip() {
    const QRect picture = stage_->isWhole() ? img0->geometry() : stage_->seen();
    const int lines = txtB0->lineCountFor(picture.width());
    const int height = lines == 1 ? stripHeight : std::max(stripHeight, twipsFromPixels(txtB0->heightOfLines(lines)));
    const int foot = twipsFromPixels(picture.bottom() + 1);
    const int top = std::max(0, foot - height);
    const int room = std::max(foot, heightOf(pic0)) - top;
    place(txtB0, 0, top, twipsFromPixels(picture.width()), std::min(height, room));
}

void ScreenPanel::offerPaging(bool on) {
    for (const QString& key : {u"ty"_s, u"sy"_s, u"xy"_s, u"hy"_s}) strip_.offer(key, on);
}

void ScreenPanel::endView() {
    pic0->hide();
    stage_->end();
    offerPaging(true);
    strip_.offer(u"yd"_s, true);
    txtB0->hide();
    fillPanel();  // it is a curtain again
    Q_EMIT viewEnded();
}

void ScreenPanel::drawCurtain() {
    const bool hangs = isCovering() && !isViewing();
    if (isViewing()) endView();
    if (!hangs) {
        hang({});
        attempt([&] { changeCurtain(); });
    }
    cover();
}

void ScreenPanel::repaintCurtain() {
    if (isCovering()) img0->repaint();
}

void ScreenPanel::setGround(const QColor& ground) {
    ::setGround(pic0, ground);
}

void ScreenPanel::loadCover() {
    Recordset settings = settingsRow();
    if (const auto cover = pictureFromField(settings, u"封面"_s, panelTarget())) hang(*cover);
}

void ScreenPanel::changeCurtain() {
    const int number = QRandomGenerator::global()->bounded(curtains) + curtainsBefore;
    Recordset picture = mekTp::catalogue.OpenRecordset(u"SELECT * FROM pmtp WHERE 序号 = "_s + QString::number(number));
    if (const auto curtain = pictureFromField(picture, u"图片"_s, panelTarget())) hang(*curtain);
}
