#pragma once

#include "catalogue/bin_contents.h"
#include "catalogue/picture_loader.h"

#include <QAbstractTableModel>
#include <QCache>
#include <QPixmap>
#include <deque>

/// The items of the bin as lines of a table, the newest first. A line is read from the catalogue when it comes into
/// view, its small picture in the background.
class BinModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { picture, origin, detail, kind, removed, size, columns };
    static constexpr QSize pictureSize{64, 48};  ///< Pixels of the screen.

    BinModel(const Database& catalogue, QObject* parent);

    /// Reads which items there are.
    void listAgain();
    std::vector<qint64> idsOf(const QModelIndexList& rows) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const BinItem& itemAt(int row) const;
    QVariant pictureAt(int row) const;
    void take(const PictureRequest& request, const Picture& decoded);
    PictureRequest requestFor(qint64 value) const;

    Database catalogue_;
    std::vector<qint64> ids_;
    mutable QCache<int, BinItem> items_{2000};           ///< By line.
    mutable QCache<qint64, QPixmap> pictures_{2000};     ///< By id of the value; those that are none are null.
    mutable std::deque<std::pair<qint64, int>> wanted_;  ///< Values and lines, the latest first.
    mutable PictureLoader loader_;
};
