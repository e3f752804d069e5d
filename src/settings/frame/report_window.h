#pragma once

#include "settings/frame/run_words.h"

#include <QDialog>

class QPushButton;

/// The window frmBg that tells what became of each thing of a run. It can be saved as a text, and what failed or was
/// left can be tried again. Esc closes it.
class ReportWindow : public QDialog {
    Q_OBJECT

  public:
    /// `mayRetry`: whether there is a run that can be tried again.
    ReportWindow(QWidget* parent, const RunReport& report, const RunWords& words, bool mayRetry);

  Q_SIGNALS:
    void retryAsked();  ///< The window is closed.

  private:
    void makeButtons(bool mayRetry);
    void save();

    RunReport report_;
    RunWords words_;
    QPushButton* cmdBc;  ///< Saves the report as a text.
    QPushButton* cmdCs;  ///< Tries again.
    QPushButton* cmdBg;  ///< Closes the window.
};
