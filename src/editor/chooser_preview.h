#pragma once

#include "platform/database/records/recordset.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/surface.h"

/// The preview of the album chooser: a record's picture and the line that tells about it, or a sentence that says why
/// there is none.
class ChooserPreview : public QObject {
    Q_OBJECT

  public:
    explicit ChooserPreview(Surface* picCs);

    /// Shows a record of the album of that title.
    void show(Recordset& record, const QString& title);
    /// Shows no picture, and says why.
    void explain(const QString& sentence);

  private:
    /// The line about a record: without the room for all of it, parts of its texts are left out, its figures never.
    void tell(const QString& title, const QString& number, const QString& code, const QString& size);

    ImageBox* imgCl_;  ///< The picture.
    QLabel* lblCl_;    ///< The line about the record.
    QLabel* lblSm_;    ///< Why there is no picture.
};
