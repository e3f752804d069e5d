#include "editor/document/picture_files.h"

#include "platform/picture/picture.h"

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

void writePictureFile(const QImage& image, const QByteArray& profile, const QString& path) {
    if (path.endsWith(u"jpg"))
        saveJpeg(image, path, jpegQuality, profile);
    else
        SavePicture(image, path, profile);
}

QString savingName(const QString& chosen) {
    if (chosen.endsWith(u"jpg")) return chosen;
    if (chosen.endsWith(u'.')) return chosen + u"bmp"_s;
    const QString suffix = QFileInfo(chosen).suffix();
    return (suffix.isEmpty() ? chosen + u'.' : chosen.chopped(suffix.size())) + u"bmp"_s;
}
