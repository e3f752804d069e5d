#pragma once

#include <QWidget>

/// The about box: what the program is, its version, and a way to the system-information tool of the desktop. Touches no
/// catalogue.
class frmGy : public QWidget {
    Q_OBJECT

  public:
    explicit frmGy(QWidget* parent = nullptr);

    /// The system-information tools that are looked for, the first installed one is started.
    void setTools(const QStringList& programs) { tools_ = programs; }

  private:
    void showSystemInformation();
    QStringList tools_;
};
