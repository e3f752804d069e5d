#include "platform/desktop/grid_model.h"

#include "platform/base/error.h"

using namespace Qt::Literals::StringLiterals;

std::vector<GridHeading> gridHeadings(const QString& format) {
    std::vector<GridHeading> result;
    if (format.isEmpty()) return result;
    for (QString part : format.split(u'|')) {
        std::optional<Qt::Alignment> alignment;
        const QChar mark = part.isEmpty() ? QChar() : part.front();
        if (mark == u'^') alignment = Qt::AlignHCenter;
        if (mark == u'>') alignment = Qt::AlignRight;
        if (mark == u'<') alignment = Qt::AlignLeft;
        if (alignment) part.remove(0, 1);
        result.push_back({part.trimmed(), part, alignment});
    }
    return result;
}

namespace {

bool isNumber(FieldType type) {
    return type == FieldType::byte || type == FieldType::integer || type == FieldType::longInteger ||
           type == FieldType::single || type == FieldType::real;
}

QString cellTextOf(const FieldValue& value) {
    // Another program may have put bytes into a column of texts.
    if (std::holds_alternative<QByteArray>(value.storage())) return u"二进制数据"_s;
    return value.textOr();
}

}  // namespace

void GridModel::setHeadings(std::vector<GridHeading> headings) {
    if (columns_.empty()) {
        beginResetModel();
        headings_ = std::move(headings);
        endResetModel();
        return;
    }
    headings_ = std::move(headings);
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

void GridModel::reload() {
    beginResetModel();
    rows_.clear();
    columns_.clear();
    total_ = 0;
    if (data_ != nullptr && !data_->Recordset().isNothing()) {
        attempt([&] {
            const Recordset& records = data_->Recordset();
            for (int i = 0; i < records.FieldCount(); ++i) {
                const Field field = records.Fields(i);
                if (field.Type() != FieldType::longBinary) columns_.push_back({i, field.Name(), field.Type()});
            }
            total_ = data_->total();
        });
    }
    endResetModel();
}

void GridModel::clear() {
    beginResetModel();
    rows_.clear();
    columns_.clear();
    total_ = 0;
    endResetModel();
}

void GridModel::dropRows() {
    rows_.clear();
    if (data_ != nullptr && total_ > 0 && data_->total() != total_)
        reload();
    else if (total_ > 0 && columnCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(total_ - 1, columnCount() - 1));
}

void GridModel::release() {
    held_ = false;
    if (total_ > 0 && columnCount() > 0) Q_EMIT dataChanged(index(0, 0), index(total_ - 1, columnCount() - 1));
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : total_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    if (parent.isValid()) return 0;
    return int(columns_.empty() ? headings_.size() : columns_.size());
}

bool GridModel::isNumeric(int column) const {
    return !columns_.empty() && isNumber(columns_[size_t(column)].type);
}

const std::vector<FieldValue>& GridModel::values(int row) const {
    static const std::vector<FieldValue> blank;
    if (const auto* kept = rows_.object(row)) return *kept;
    if (held_) return blank;
    auto fresh = std::make_unique<std::vector<FieldValue>>();
    attempt([&] {
        if (data_ != nullptr && !data_->Recordset().isNothing()) *fresh = data_->Recordset().valuesAt(row);
    });
    const auto& result = *fresh;
    rows_.insert(row, fresh.release());
    return result;
}

const GridHeading* GridModel::heading(int column) const {
    const auto place = size_t(column);
    return place < headings_.size() ? &headings_[place] : nullptr;
}

QString GridModel::spacedHeading(int column) const {
    const GridHeading* found = heading(column);
    return found != nullptr ? found->spaced : columns_[size_t(column)].name;
}

Qt::Alignment GridModel::alignment(int column) const {
    const GridHeading* found = heading(column);
    if (found != nullptr && found->alignment) return *found->alignment | Qt::AlignVCenter;
    return (isNumeric(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= total_ || index.column() >= columnCount()) return {};
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(alignment(index.column()));
    if (role != Qt::DisplayRole) return {};
    const std::vector<FieldValue>& row = values(index.row());
    const auto field = size_t(columns_[size_t(index.column())].field);
    return field < row.size() ? cellTextOf(row[field]) : QString();
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(alignment(section));
    if (role != Qt::DisplayRole) return {};
    const GridHeading* found = heading(section);
    return found != nullptr ? found->caption : columns_[size_t(section)].name;
}
