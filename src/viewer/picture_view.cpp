#include "viewer/picture_view.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr QSize placeWithoutPicture(640, 480);
}

PictureView::PictureView(Page& page, ToolStrip& strip, ScreenPanel& screen)
    : page_(page), strip_(strip), screen_(screen) {
    connect(&page, &Page::cellDoubleClicked, this, guarded(page.window(), [this](int cell) { open(cell); }));
}

void PictureView::open(int cell) {
    selectedCell_ = cell;
    if (page_.cellCount() == 1 || page_.numberIn(cell).isEmpty()) return;
    table_ = page_.table();
    number_ = page_.numberIn(cell);
    data_ = page_.dataIn(cell);
    show();
}

void PictureView::show() {
    Recordset record = mekTp::catalogue.OpenRecordset(u"SELECT * FROM "_s + table_ + u" WHERE 序号 = "_s + number_);
    const QString name = u"序号 "_s + number_;
    const bool hasPicture = !record.Fields(u"图片"_s).isNull();
    auto pixels = sizeFromSpec(record.Fields(u"规格"_s).Value().textOr());
    if (!pixels || pixels->isEmpty()) {
        if (hasPicture) throw Error(name + u" 的图片没有可用的规格。"_s);
        pixels = placeWithoutPicture;
    }

    const QWidget* window = page_.window();
    const QSize fitted = fittedSize(*pixels, viewRoom(widthOf(window), heightOf(window)), page_.isOriginalSize());
    screen_.beginView(fitted, data_);
    if (hasPicture)
        load(record, name);
    else
        screen_.sayInView(name + u" 没有图片。"_s);
}

void PictureView::load(Recordset& record, const QString& name) {
    try {
        screen_.showInView(loadPictureField(record, u"图片"_s, name, screen_.targetSize()));
    } catch (const Error& failure) {
        screen_.sayInView(failure.text());
    }
}

void PictureView::switchSize() {
    if (strip_.page() == 0) return;
    page_.setOriginalSize(!page_.isOriginalSize());
    strip_.showOriginalSize(page_.isOriginalSize());
    if (page_.cellCount() > 1) {
        attempt([&] { open(selectedCell_); });
        return;
    }
    page_.setFirstIndex(std::max(-1, page_.firstIndex() - 1));
    page_.xstp();
}
