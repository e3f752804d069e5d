#pragma once

#include "bin/bin_model.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;
class QWidget;
struct Restored;

/// The window frmHs, the bin: shows what was taken away, puts chosen items back, or removes them for good. Esc closes
/// it; it is deleted then.
class frmHs : public QDialog {
    Q_OBJECT

  public:
    frmHs(const Database& catalogue, QWidget* parent);

    /// Asks for other codes, for one of these buttons after the other. None: asks no more.
    void askCode(std::vector<qint64> buttons);

  Q_SIGNALS:
    void restored();  ///< Records, albums or buttons have come back.
    void changed();   ///< The bin holds other items now.

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void makeList();
    QWidget* makeCodeRow();
    QWidget* makeButtons();
    QPushButton* makeButton(const QString& name, const QString& caption, const QString& tip);

    void restoreChosen();
    void restoreWithCode();
    void removeForGood(const std::vector<qint64>& ids);
    std::vector<qint64> chosen() const;
    void tellOutcome(const QString& text);
    void showContents();
    void enableButtons();

    Database catalogue_;
    BinModel* model_;
    QLabel* lblHs;                  ///< How much there is.
    QTableView* lstHs;              ///< The items.
    QWidget* codeRow_ = nullptr;    ///< While a button needs another code.
    QLabel* lblBm = nullptr;        ///< Says why.
    QLineEdit* txtBm = nullptr;     ///< The code.
    QPushButton* cmdBm = nullptr;   ///< Puts the button back with it.
    QLabel* lblJg = nullptr;        ///< What was done last.
    QPushButton* cmdHy = nullptr;   ///< Puts the chosen items back.
    QPushButton* cmdQc = nullptr;   ///< Removes them for good.
    QPushButton* cmdQk = nullptr;   ///< Empties the bin.
    std::vector<qint64> askedFor_;  ///< Buttons that need another code, the present one first.
};
