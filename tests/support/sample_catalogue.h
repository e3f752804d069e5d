#pragma once

#include "catalogue/mektp.h"
#include "rows.h"
#include "run_all.h"
#include "test_files.h"

#include <QColor>
#include <QImage>
#include <memory>

/// A small catalogue in a temporary folder, opened as `mekTp::catalogue`, for tests of windows. Closed and removed with
/// the object. It holds the fixed tables; `tc00` 演示 with three pictures; `tc01` 旅行 with ten (序号 1 to 10, codes
/// "1" for odd numbers, "2" for 1 to 5, dates 2003-09-26 to 2003-10-05 at noon, 40 x 30 pixels except number 3, which
/// is 30 x 40, and number 4, which is 100 x 50); `tc02` 空册 without pictures; `tcan` with "v" (全部), "1" (风景),
/// "2" (人物), all with pictures and offering tc00, tc01 and tc02, and "a" (无图) without a picture; `pmtp` 1 to 12.
class SampleCatalogue {
  public:
    SampleCatalogue();
    ~SampleCatalogue();

    QString folder() const { return folder_.path(); }
    QString file(const QString& name) const { return folder_.filePath(name); }

  private:
    QTemporaryDir folder_;
};

/// A test class each of whose functions has a sample catalogue of its own.
class SampleTest : public QObject {
    Q_OBJECT

  protected Q_SLOTS:
    void init() {
        cleanup();
        sample_ = std::make_unique<SampleCatalogue>();
    }
    void cleanup() { sample_.reset(); }

  protected:
    std::unique_ptr<SampleCatalogue> sample_;
};

/// The same, with the catalogue as the program opens it: it has the tables of what the program remembers.
class OpenedSampleTest : public SampleTest {
    Q_OBJECT

  protected Q_SLOTS:
    void init() {
        SampleTest::init();
        mekTp::openCatalogue();
    }
};

/// Adds a row to a table of the open catalogue.
void addRow(const QString& table, const RowValues& values);

/// Changes the first row that a source (a table or a query) gives.
void changeRow(const QString& source, const RowValues& values);

/// A column of the first row that a source gives.
FieldValue fieldOf(const QString& source, const QString& column);

/// Bytes of a JPEG or BMP picture in one colour.
QByteArray pictureBytes(QSize pixels, const QColor& colour, const char* format = "JPG");

/// Writes such a picture as a file.
void writePicture(const QString& path, QSize pixels, const QColor& colour, const char* format = "JPG");
