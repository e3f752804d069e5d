#pragma once

#include "platform/database/records/recordset.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/shapes.h"
#include "platform/desktop/text_box.h"
#include "windows/windows.h"

#include <QComboBox>
#include <QLabel>
#include <array>

class QPushButton;

/// The dialog for the colours of the main window: shows every scheme, lets the user mix his own one, and makes one of
/// them the active one. Nothing is stored before 确定; then `tcsz.颜色`, and the row of the user's own scheme.
class frmPs : public QWidget {
    Q_OBJECT

  public:
    explicit frmPs(Windows& windows);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void makeList();
    void makeBoxes();
    void makeMiniature();
    void makeButtons();
    void load();

    void cboFaClick();
    void showScheme();
    void paintParts();
    void txtYsGotFocus(int index);
    int focusedBox() const;  ///< Index of the box txtYs that has the focus, -1 for none.
    void cmdQdClick();
    void leave();

    QString schemeNumber() const;
    QColor partColour(int index) const;
    void setPartColour(int index, const QColor& colour);

    Windows& windows_;
    Recordset schemeRow;

    QLabel* lblFa;
    QLabel* lblBt;
    ImageBox* imgXs;
    QLabel* lblTs;
    QComboBox* cboFa;
    std::array<TextBox*, 4> txtYs{};
    std::array<QLabel*, 3> lblB0{};
    QLabel* lblB2 = nullptr;
    ShapeBox* shpCt = nullptr;
    QPushButton* cmdQd = nullptr;
    bool choosing_ = false;   ///< A colour dialog is open.
    bool passesBox_ = false;  ///< The focus came to a box by the mouse, whose click is still to come, or with Tab.
};
