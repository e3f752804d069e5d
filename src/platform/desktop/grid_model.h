#pragma once

#include "platform/database/records/field_value.h"
#include "platform/desktop/data_control.h"

#include <QAbstractTableModel>
#include <QCache>
#include <QPointer>
#include <optional>
#include <vector>

/// One heading of a grid's format string.
struct GridHeading {
    QString caption;  ///< Trimmed.
    QString spaced;   ///< With the blanks that make its width.
    std::optional<Qt::Alignment> alignment;
};

std::vector<GridHeading> gridHeadings(const QString& format);

/// The records of a data control as a table. A record is read when a cell of it is asked for; the last few hundred
/// are kept. A record that cannot be read gives empty cells.
class GridModel : public QAbstractTableModel {
  public:
    explicit GridModel(QObject* parent) : QAbstractTableModel(parent), rows_(keptRows) {}

    void bind(DataControl* source) { data_ = source; }
    void setHeadings(std::vector<GridHeading> headings);

    void reload();    ///< Takes columns and number of records from the data control.
    void clear();     ///< Only the headings remain.
    void dropRows();  ///< Records are read anew; follows a changed number of records.
    /// Nothing is read until `release`: records that are not kept are blank.
    void hold() { held_ = true; }
    void release();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    bool isNumeric(int column) const;
    /// The heading's text with its blanks, or the field's name.
    QString spacedHeading(int column) const;

  private:
    struct Column {
        int field;
        QString name;
        FieldType type;
    };
    static constexpr int keptRows = 512;

    const std::vector<FieldValue>& values(int row) const;
    const GridHeading* heading(int column) const;
    Qt::Alignment alignment(int column) const;

    QPointer<DataControl> data_;  ///< Whose records are shown.
    std::vector<GridHeading> headings_;
    std::vector<Column> columns_;
    int total_ = 0;
    bool held_ = false;
    mutable QCache<int, std::vector<FieldValue>> rows_;
};
