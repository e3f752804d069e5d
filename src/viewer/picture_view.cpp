#include "viewer/picture_view.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "platform/base/conversion.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "viewer/tags.h"

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr QSize placeWithoutPicture(640, 480);
}

PictureView::PictureView(ViewerState& state, ToolStrip& strip, ScreenPanel& screen, Page& page, QWidget* window)
    : state_(state), strip_(strip), screen_(screen), page_(page), window_(window) {
    connect(&page, &Page::cellDoubleClicked, this, guarded(window, [this](int cell) { open(cell); }));
    connect(screen.img0, &ImageBox::mousePressed, this, [this] {
        if (screen_.isViewing()) screen_.txtB0->show();
    });
    connect(screen.txtB0, &Caption::clicked, screen.txtB0, &QWidget::hide);
}

void PictureView::open(int cell) {
    state_.selectedCell = cell;
    const ImageBox* thumbnail = page_.picture(cell);
    if (page_.cellCount() == 1 || thumbnail == nullptr || thumbnail->tag().isEmpty()) return;
    const QString tag = thumbnail->tag();
    Recordset record =
        mekTp::catalogue.OpenRecordset(u"SELECT * FROM "_s + page_.table() + u" WHERE 序号 = "_s + numberInTag(tag));
    const QString name = u"序号 %1"_s.arg(numberInTag(tag));
    const bool hasPicture = !record.Fields(u"图片"_s).isNull();
    auto told = sizeFromSpec(record.Fields(u"规格"_s).Value().textOr());
    if (!told || told->isEmpty()) {
        if (hasPicture) throw Error(name + u" 的图片没有可用的规格。"_s);
        told = placeWithoutPicture;
    }

    const QSize fitted =
        fittedSize(*told, widthOf(window_) - 2130, heightOf(window_) - 1600, strip_.tlb1->image(u"yd"_s) == u"cm");
    screen_.pic0->show();
    screen_.beginView(fitted, tag);
    if (hasPicture)
        showPicture(record, name);
    else
        screen_.sayInView(name + u" 没有图片。"_s);
}

void PictureView::showPicture(Recordset& record, const QString& name) {
    try {
        screen_.img0->setPicture(loadPictureField(record, u"图片"_s, name, screen_.img0->targetSize()));
    } catch (const Error& failure) {
        screen_.sayInView(failure.text());
    }
}

void PictureView::close() {
    screen_.endView();
}

void PictureView::switchSize() {
    if (numericValue(strip_.txtYh->text()) == 0) return;
    const bool wasOriginal = strip_.tlb1->image(u"yd"_s) == u"cm";
    strip_.tlb1->setImage(u"yd"_s, wasOriginal ? u"yd"_s : u"cm"_s);
    strip_.tlb1->setToolTip(u"yd"_s, wasOriginal ? u"原始大小"_s : u"充满窗口"_s);
    if (page_.cellCount() > 1) {
        attempt([&] { open(state_.selectedCell); });
        return;
    }
    state_.firstPictureIndex = std::max(-1, state_.firstPictureIndex - 1);
    page_.xstp();
}
