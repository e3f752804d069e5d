#pragma once

#include "platform/database/records/database.h"

#include <QImage>
#include <QTemporaryDir>
#include <utility>
#include <variant>
#include <vector>

/// A picture file that goes into a long-binary column.
struct PictureFile {
    QString path;
    QString sizeText;  ///< "1024 * 768"
    qint64 bytes = 0;
};

using ColumnValue = std::variant<FieldValue, PictureFile>;
using Row = std::vector<std::pair<QString, ColumnValue>>;

/// Adds one row; columns that are not named stay Null.
void addRow(const Database& database, const QString& table, const Row& row);

/// Where drawings become files before they are stored.
class Workshop {
  public:
    PictureFile jpeg(const QImage& image, int quality = 88);
    PictureFile bitmap(const QImage& image);

  private:
    QString nextPath(const QString& suffix);
    PictureFile described(const QImage& image, const QString& path) const;

    QTemporaryDir folder_;
    int count_ = 0;
};
