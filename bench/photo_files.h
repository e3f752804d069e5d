#pragma once

#include "scene.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImageWriter>

/// Photographs as files, no two of which are the same.
class PhotoFiles {
  public:
    /// So many pixels wide: 4000 and quality 91 give files of 4 MB, 1020 and 85 give 170 KB.
    PhotoFiles(int width, int quality) {
        for (int i = 0; i < scenes; ++i) {
            QBuffer buffer(&coded_[std::size_t(i)]);
            QImageWriter writer(&buffer, "jpeg");
            writer.setQuality(quality);
            writer.write(width == 4000 ? photograph(i) : photograph(i).copy(0, 0, width, width * 3 / 4));
        }
    }

    /// The bytes of the photograph of that number.
    QByteArray bytes(int number) const {
        const QByteArray mark = "photograph " + QByteArray::number(number).rightJustified(8, '0');
        const QByteArray comment = QByteArray("\xff\xfe\0", 3) + char(mark.size() + 2) + mark;
        return QByteArray(coded_[std::size_t(number % scenes)]).insert(2, comment);
    }

    /// Files in a folder, named by their numbers from 1 on. Returns their paths.
    QStringList write(const QString& folder, int count) const {
        QStringList paths;
        for (int number = 1; number <= count; ++number) {
            paths << QDir(folder).filePath(QString::number(number).rightJustified(5, u'0') + QStringLiteral(".jpg"));
            QFile file(paths.back());
            if (!file.open(QIODevice::WriteOnly) || file.write(bytes(number)) < 0)
                qFatal("%s", qPrintable(file.errorString()));
        }
        return paths;
    }

  private:
    static constexpr int scenes = 8;
    std::array<QByteArray, scenes> coded_;
};
