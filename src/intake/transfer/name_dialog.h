#pragma once

#include "platform/picture/picture.h"
#include "settings/frame/settings_frame.h"

#include <QObject>
#include <optional>

class ImageBox;
class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;
class TextBox;

/// What the dialog asks about one picture.
struct NameQuestion {
    QString text;
    QString defaultName;
    std::optional<Picture> picture;  ///< None: the record has no picture that can be shown.
};

/// The small dialog fraWm on the page 图片转存 that asks for the file names of pictures, one after the other. The
/// picture in question stands beside it, in picWm. It lends its lower edge to the progress bar.
class NameDialog : public QObject {
    Q_OBJECT

  public:
    explicit NameDialog(const SettingsFrame& frame);

    void open(QProgressBar* prg3);
    /// Asks for the next picture. The default name is selected, so that typing replaces it.
    void ask(const NameQuestion& question);
    /// Lets the name that was given be changed.
    void askAgain();
    void close();
    bool isOpen() const;
    QString name() const;  ///< Complete, with ".jpg".
    /// The size in device pixels for which a picture should be decoded to be shown.
    QSize pictureSize() const;

  Q_SIGNALS:
    /// Nothing else is taken before `ask` or `askAgain`.
    void confirmed();
    void cancelled();

  private:
    void makePicture();
    void showPicture(const std::optional<Picture>& picture);
    void completeName();
    void confirm();

    SettingsFrame frame_;
    QGroupBox* fraWm_;
    QLabel* lblWm_;
    TextBox* txtWm_;
    QPushButton* cmdWm0_;
    QPushButton* cmdWm1_;
    QLabel* picWm_;
    ImageBox* imgWm_;
};
