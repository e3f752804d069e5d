#include "platform/picture/picture_file.h"

#include "platform/base/files.h"
#include "platform/picture/refusal.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

void openPicture(QFile& file) {
    const QString name = QDir::toNativeSeparators(file.fileName());
    if (!QFileInfo::exists(file.fileName())) refusePicture(name, u"找不到文件"_s);
    if (!fileExists(file.fileName())) refusePicture(name, u"这不是文件"_s);
    if (!file.open(QIODevice::ReadOnly)) refusePicture(name, u"文件不能读取"_s);
}
