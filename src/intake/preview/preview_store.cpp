// The part of the preview panel that takes a new picture in.

#include "catalogue/album_rules.h"
#include "catalogue/bin.h"
#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "intake/preview/preview_fit.h"
#include "intake/preview/preview_panel.h"
#include "intake/preview/preview_parts.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/message_box.h"

#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray piece(QFile& file, qint64 length) {
    const QByteArray bytes = file.read(length);
    if (bytes.size() != length) throw Error(u"读文件“%1”时出错。"_s.arg(file.fileName()));
    return bytes;
}

/// Puts the bytes of a file into a long-binary field: the remainder first, then whole chunks.
void appendFile(Field field, QFile& file) {
    const qint64 length = file.size();
    if (length % pictureChunk > 0) field.AppendChunk(piece(file, length % pictureChunk));
    for (qint64 block = 0; block < length / pictureChunk; ++block) field.AppendChunk(piece(file, pictureChunk));
}

QString numberOf(const Recordset& records) {
    return records.Fields(u"序号"_s).Value().textOr();
}

/// Back to the record after the data were read anew. Numbers can be missing, or borne by two records: the place comes
/// first. False when the record is not to be found.
bool goBack(RecordGrid& grid, int row, const QString& number) {
    if (row < grid.total()) {
        grid.moveToRow(row);
        if (numberOf(grid.records()) == number) return true;
    }
    return !number.isEmpty() && grid.findFirst(u"序号 = "_s + number);
}

}  // namespace

void PreviewPanel::cmdAzClick() {
    file_.clear();
    cmdAz_->setEnabled(false);
    const QString path = askOpenFile(frame_.form, u"查找图片文件"_s, u"BMP文件|*.bmp|JPG文件|*.jpg"_s);
    if (path.isEmpty())
        cmdCkClick(opener_);
    else
        loadFile(path);
    cmdAz_->setEnabled(true);
    (cmdAq_->isEnabled() ? cmdAq_ : cmdAz_)->setFocus();
}

void PreviewPanel::loadFile(const QString& path) {
    file_ = path;
    showsFile_ = true;
    lblC1_->setText(u"查看加载图片"_s);
    chkCkClick();
    const bool isShown = !imgWj_->picture().isNull();
    const QString size = u"图片规格：\n"_s + (isShown ? pixelsText(pictureSize(), u" * "_s) : lblKt_->text());
    if (takesInRecords())
        fraCk_->setTitle(size);
    else
        lblWj_->setText(size);
    cmdAq_->setEnabled(taker()->isEditing());
}

void PreviewPanel::cmdAqClick() {
    if (taker()->store)
        storeForButton();
    else
        storeInRecord();
}

void PreviewPanel::storeForButton() {
    // The file itself is measured: the panel goes on showing an older picture when a file is none.
    const Picture picture = LoadPicture(file_, sizeOnly);
    const QString warning = buttonPictureWarning({picture.Width(), picture.Height()});
    if (!warning.isEmpty()) {
        say(frame_.form,
            u"本图片的尺寸不适合作为按钮图片，("_s + warning +
                u")\n\n请在本软件“图片处理”或其它软件中调整为100＊75像素后再使用。"_s,
            BoxIcon::question);
        cmdAq_->setEnabled(false);
        return;
    }
    const bool agreed = ask(frame_.form, u"如果选择本图片作为按钮图片，\n\n请按“确定”；否则按“取消”。"_s);
    if (agreed && taker()->isEditing()) taker()->store(file_);
    close();
}

void PreviewPanel::storeInRecord() {
    const QString path = file_;
    const Picture picture = LoadPicture(path, sizeOnly);
    Recordset& records = frame_.grid.records();
    const QString number = numberOf(records);
    const int row = records.row();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw Error(u"不能打开文件“%1”。"_s.arg(path));
    if (file.size() == 0) return;

    // The question comes before the record is touched: nothing is half done while the box waits.
    const QDateTime date = FileDateTime(path);
    const bool takeDate = ask(frame_.form, u"  所选图片日期是："_s + FieldValue(date).toText() +
                                               u"\n原有图片的日期是："_s + records.Fields(u"日期"_s).Value().textOr() +
                                               u"\n\n如果要更改，请按《确定》；否则按《取消》。"_s);
    frame_.runBar.makeRoom();
    records.Edit();
    try {
        appendFile(records.Fields(u"图片"_s), file);
        records.Fields(u"大小"_s).SetValue(kilobytesText(file.size()));
        records.Fields(u"规格"_s).SetValue(specOfPicture(picture));
        if (takeDate) records.Fields(u"日期"_s).SetValue(date);
        updateIntoBin(mekTp::catalogue, frame_.albums.table(), records);
    } catch (...) {
        attempt([&] { records.CancelUpdate(); });
        throw;
    }
    Q_EMIT storing();
    frame_.grid.listAgain();
    if (goBack(frame_.grid, row, number)) Q_EMIT stored();
    file.close();
    cmdAq_->setEnabled(false);
    file_.clear();
    close();
    frame_.bin.look();
}
