#pragma once

#include "catalogue/conversion/conversion_files.h"
#include "catalogue/runs/run_report.h"
#include "platform/desktop/long_work.h"

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

/// The window frmZh, in which an old catalogue is converted before the program begins. It shows how far the conversion
/// is, and closes by itself. Closing it before stops the conversion.
class ConversionWindow : public QDialog {
    Q_OBJECT

  public:
    ConversionWindow(const ConversionFiles& files, const QString& fresh);

    /// Converts into the half file of `files`. Returns when that is over.
    RunReport convert();

    void reject() override;

  private:
    class Watch;

    void showProgress(int percent, const QString& text);

    ConversionFiles files_;
    QString fresh_;
    QLabel* lblZh;       ///< Says what is under way.
    QProgressBar* prg4;  ///< How much of it is done.
    QLabel* lblJd;       ///< The same in numbers.
    QPushButton* cmdTz;  ///< Stops it.
    LongWork work_;      ///< Last: it waits for the work before the rest goes.
};
