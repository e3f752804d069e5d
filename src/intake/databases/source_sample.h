#pragma once

#include "platform/database/records/database.h"
#include "settings/frame/settings_frame.h"

class QTableWidget;

/// The first records of a source table, in columns with the table's own headings and with their pictures, below the
/// grid of the page 图片录入 while its fields are being mapped. It covers the place of the code buttons.
class SourceSample {
  public:
    explicit SourceSample(const SettingsFrame& frame);

    /// What cannot be read stays empty.
    void show(const Database& source, const QString& table);
    void hide();
    bool isShown() const;

  private:
    void showPicturesFirst(const Database& source, const QString& table);
    void showRecord(Recordset& record, int row);

    QTableWidget* grdYl;  ///< A line for each record.
};
