#include "settings/frame/pasted_picture.h"

#include "catalogue/runs/picture_names.h"
#include "platform/base/error.h"
#include "platform/base/system_reason.h"
#include "platform/desktop/message_box.h"
#include "platform/picture/formats/picture_format.h"

#include <QFile>
#include <QInputDialog>

using namespace Qt::Literals::StringLiterals;

namespace {

QString endingOf(const QByteArray& picture) {
    const PictureFormat format = pictureFormat(picture.first(std::min(picture.size(), formatBytes)));
    return format == PictureFormat::jpeg ? u".jpg"_s : u'.' + formatName(format).toLower();
}

/// Empty when the person cancels.
QString askName(const QString& proposal, QWidget* form) {
    QInputDialog dialog(form);
    dialog.setObjectName(u"dlgTm"_s);
    dialog.setWindowTitle(u"拖入或粘贴的图片"_s);
    dialog.setLabelText(u"给这张图片起一个文件名："_s);
    dialog.setTextValue(proposal);
    dialog.setOkButtonText(u"确定"_s);
    dialog.setCancelButtonText(u"取消"_s);
    return dialog.exec() == QDialog::Accepted ? dialog.textValue().trimmed() : QString();
}

}  // namespace

QString PastedPictures::keep(const PictureOffer& offer, QWidget* form) {
    const QString ending = endingOf(offer.picture);
    QString name = offer.name.isEmpty() ? u"图片"_s : offer.name;
    QString path;
    do {
        name = askName(name, form);
        if (name.isEmpty()) return {};
        path = folder_.filePath(name + ending);
        const QString objection =
            QFile::exists(path) ? u"已经有一张叫“%1”的图片。"_s.arg(name) : objectionToFileName(name + ending);
        if (objection.isEmpty()) break;
        say(form, objection);
    } while (true);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(offer.picture) != offer.picture.size())
        throw Error(u"图片不能写入临时文件夹“%1”：%2。"_s.arg(folder_.path(), systemReason(file.errorString())));
    return path;
}
