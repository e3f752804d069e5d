#include "editor/chooser_preview.h"

#include "catalogue/album_rules.h"
#include "catalogue/picture_field.h"
#include "editor/chooser_places.h"
#include "platform/base/error.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/theme.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using namespace chooserPlaces;

namespace {

constexpr int sentenceMargin = 450;
constexpr int usualFont = 12, smallFont = 11;  // pixels
const auto nothingChosen = u"图片处理（尚未选择图片）"_s;

/// The size at which a preview of that shape stays inside its place.
QSize previewSize(double ratio) {
    const double fit = double(previewWidth) / previewHeight;
    return ratio <= fit ? QSize(int(previewHeight * ratio), previewHeight)
                        : QSize(previewWidth, int(previewWidth / ratio));
}

QString sizeText(const Picture& picture) {
    return u"图片规格："_s + QString::number(pixelsFromHiMetric(picture.Width())) + u" * "_s +
           QString::number(pixelsFromHiMetric(picture.Height()));
}

}  // namespace

ChooserPreview::ChooserPreview(Surface* picCs) : QObject(picCs) {
    imgCl_ = make<ImageBox>(picCs, u"imgCl"_s);
    place(imgCl_, rightColumn, previewTop, previewWidth, previewHeight);
    lblCl_ = make<QLabel>(picCs, u"lblCl"_s);
    lblCl_->setTextFormat(Qt::PlainText);
    lblCl_->setText(nothingChosen);
    place(lblCl_, rightColumn, previewTop + previewHeight + 30, rightWidth, 300);
    lblSm_ = make<QLabel>(picCs, u"lblSm"_s);
    lblSm_->setTextFormat(Qt::PlainText);
    lblSm_->setWordWrap(true);
    lblSm_->setAlignment(Qt::AlignCenter);
    lblSm_->setStyleSheet(theme::filledIn(u"color: @faint;"_s));
    place(lblSm_, rightColumn + sentenceMargin, previewTop, previewWidth - 2 * sentenceMargin, previewHeight);
    lblSm_->hide();
}

void ChooserPreview::show(Recordset& record, const QString& title) {
    lblSm_->hide();
    const bool isNull = record.Fields(u"图片"_s).isNull();
    const QSize room(pixelsFromTwips(previewWidth), pixelsFromTwips(previewHeight));
    const bool isShown = readPictureField(record, u"图片"_s, *imgCl_, ImageBox::targetSize(imgCl_, room));
    const Picture& shown = imgCl_->picture();
    if (isShown) {
        const QSize size = previewSize(double(shown.Width()) / shown.Height());
        place(imgCl_, rightColumn + (previewWidth - size.width()) / 2, previewTop + (previewHeight - size.height()) / 2,
              size.width(), size.height());
    } else if (!isNull) {
        explain(u"这条记录的图片不能显示：它的内容不是完整的 BMP 或 JPEG 图片。"_s);
    }
    tell(title, record.Fields(u"序号"_s).Value().textOr(), record.Fields(u"编号"_s).Value().textOr(),
         isShown  ? sizeText(shown)
         : isNull ? u"没有图片"_s
                  : u"图片不能显示"_s);
}

void ChooserPreview::explain(const QString& sentence) {
    imgCl_->setPicture({});
    lblCl_->setText(nothingChosen);
    lblCl_->setToolTip({});
    lblSm_->setText(sentence);
    lblSm_->show();
    lblSm_->raise();
}

void ChooserPreview::tell(const QString& title, const QString& number, const QString& code, const QString& size) {
    const auto line = [&](const QString& album, const QString& codes) {
        return u"表名："_s + album + u" 序号："_s + number + u"  编号："_s + codes + u' ' + size;
    };
    const QString whole = line(title, code);
    QFont font = lblCl_->font();
    font.setPixelSize(usualFont);
    if (QFontMetrics(font).horizontalAdvance(whole) > lblCl_->width()) font.setPixelSize(smallFont);
    const QFontMetrics metrics(font);
    const auto shortened = [&](const QString& text, const QString& lineWithout) {
        const int room = lblCl_->width() - metrics.horizontalAdvance(lineWithout);
        return metrics.elidedText(text, Qt::ElideRight, std::max(room, metrics.horizontalAdvance(u'…')));
    };
    const QString album = shortened(title, line({}, code));
    const QString shown = line(album, shortened(code, line(album, {})));
    lblCl_->setFont(font);
    lblCl_->setText(shown);
    lblCl_->setToolTip(shown == whole ? QString() : whole.toHtmlEscaped());
}
