#include "platform/picture/picture_file.h"

#include "platform/base/files.h"
#include "platform/base/odd_names.h"
#include "platform/picture/refusal.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

void openPicture(QFile& file) {
    const QString path = file.fileName(), name = QDir::toNativeSeparators(path);
    if (!isStandIn(path)) {
        if (!QFileInfo::exists(path)) refusePicture(name, u"找不到文件"_s);
        if (!fileExists(path)) refusePicture(name, u"这不是文件"_s);
    }
    if (!openForReading(file, path)) refusePicture(name, u"文件不能读取"_s);
}
