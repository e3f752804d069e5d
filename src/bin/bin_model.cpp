#include "bin/bin_model.h"

#include "bin/bin_words.h"
#include "platform/base/error.h"

#include <QGuiApplication>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr std::size_t mostWanted = 64;      ///< More lines than a screen shows.
constexpr qint64 roomOfLoader = 4LL << 20;  ///< It gives its pictures away at once.
}  // namespace

BinModel::BinModel(const Database& catalogue, QObject* parent)
    : QAbstractTableModel(parent), catalogue_(catalogue), ids_(binItems(catalogue)) {
    loader_.setRoom(roomOfLoader);
    connect(&loader_, &PictureLoader::loaded, this, &BinModel::take);
}

void BinModel::listAgain() {
    std::vector<qint64> ids = binItems(catalogue_);
    beginResetModel();
    ids_ = std::move(ids);
    items_.clear();
    wanted_.clear();
    endResetModel();
}

std::vector<qint64> BinModel::idsOf(const QModelIndexList& rows) const {
    std::vector<qint64> ids;
    for (const QModelIndex& row : rows) ids.push_back(ids_[std::size_t(row.row())]);
    return ids;
}

int BinModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(ids_.size());
}

int BinModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns;
}

QVariant BinModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation == Qt::Vertical) return {};
    const QString headings[] = {u"图片"_s, u"来自"_s, u"编号和备注"_s, u"原因"_s, u"时间"_s, u"大小"_s};
    return headings[section];
}

/// An item that is gone is an empty line.
const BinItem& BinModel::itemAt(int row) const {
    if (const BinItem* known = items_.object(row)) return *known;
    auto* read = new BinItem;
    attempt([&] { *read = binItem(catalogue_, ids_[std::size_t(row)]).value_or(BinItem()); });
    items_.insert(row, read);
    return *read;
}

QVariant BinModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::DecorationRole && index.column() == picture) return pictureAt(index.row());
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != Qt::AccessibleTextRole) return {};
    const BinItem& item = itemAt(index.row());
    if (item.id == 0) return {};
    switch (index.column()) {
        case picture:
            return role == Qt::AccessibleTextRole ? originText(item) : QString();
        case origin:
            return originText(item);
        case detail:
            return detailText(item);
        case kind:
            return kindText(item);
        case removed:
            return item.removed.left(16);
        default:
            return bytesText(item.bytes);
    }
}

PictureRequest BinModel::requestFor(qint64 value) const {
    return {OwnRows(catalogue_).value(value), pictureSize * qGuiApp->devicePixelRatio()};
}

QVariant BinModel::pictureAt(int row) const {
    const qint64 value = itemAt(row).picture;
    if (value == 0) return {};
    if (const QPixmap* known = pictures_.object(value)) return *known;
    if (std::ranges::find(wanted_, value, &std::pair<qint64, int>::first) != wanted_.end()) return {};
    wanted_.emplace_front(value, row);
    if (wanted_.size() > mostWanted) wanted_.pop_back();
    std::vector<PictureRequest> requests;
    attempt([&] {
        for (const auto& [id, line] : wanted_) requests.push_back(requestFor(id));
        loader_.want(requests);
    });
    return {};
}

void BinModel::take(const PictureRequest& request, const Picture& decoded) {
    const auto wanted = std::ranges::find(wanted_, request.value.id(), &std::pair<qint64, int>::first);
    auto* small = new QPixmap;
    if (!decoded.isNull()) {
        *small =
            QPixmap::fromImage(decoded.image().scaled(request.target, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        small->setDevicePixelRatio(qGuiApp->devicePixelRatio());
    }
    pictures_.insert(request.value.id(), small);
    if (wanted == wanted_.end()) return;
    const QModelIndex line = index(wanted->second, BinModel::picture);
    wanted_.erase(wanted);
    Q_EMIT dataChanged(line, line, {Qt::DecorationRole});
}
