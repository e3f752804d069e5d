#pragma once

#include "intake/shared_controls.h"

#include <QObject>

class QGroupBox;
class TextBox;

/// The small dialog fraWm on the page 图片转存 that asks for the file names of pictures, one after the other. It lends
/// its lower edge to the progress bar.
class NameDialog : public QObject {
    Q_OBJECT

  public:
    explicit NameDialog(SharedControls& controls);

    void open(const QString& question, QProgressBar* prg3);
    void askNext(const QString& question);
    void close();
    bool isOpen() const;
    QString name() const;          ///< Complete, with ".jpg".
    void setConfirmable(bool on);  ///< cmdWm(0); never enabled without a name.

  Q_SIGNALS:
    void confirmed();
    void cancelled();

  private:
    void completeName();
    void confirm();

    SharedControls& controls_;
    QGroupBox* fraWm_;
    QLabel* lblWm_;
    TextBox* txtWm_;
    QPushButton* cmdWm0_;
    QPushButton* cmdWm1_;
};
