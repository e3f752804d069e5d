#pragma once

#include <QDialog>

class QBoxLayout;

/// The about box: what the program is, its version and what is new in it, the last failures of this run, and a way to
/// the system-information tool of the desktop. Touches no catalogue.
class frmGy : public QDialog {
    Q_OBJECT

  public:
    explicit frmGy(QWidget* parent = nullptr);

    /// The system-information tools that are looked for, with their arguments; the first one that starts is it.
    void setTools(const QStringList& commands) { tools_ = commands; }

  private:
    QBoxLayout* makeButtons();
    void showSystemInformation();
    void showChanges();
    void showFailures();
    QStringList tools_;
};
