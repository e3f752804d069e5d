#pragma once

#include <QDialog>

class QPushButton;
class QTextBrowser;

/// A text to read in a dialog of its own, which can be copied as a whole. Gone when it is closed.
class TextPage : public QDialog {
    Q_OBJECT

  public:
    TextPage(const QString& title, QWidget* parent);

    void showText(const QString& text);
    void showMarkdown(const QString& text);

  private:
    QTextBrowser* txtNr;  ///< The text.
    QPushButton* cmdFz;   ///< Copies it.
    QPushButton* cmdGb;   ///< Closes the dialog.
};
