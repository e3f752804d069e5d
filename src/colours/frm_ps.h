#pragma once

#include "colours/scheme_tile.h"
#include "platform/database/records/recordset.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/shapes.h"
#include "platform/desktop/text_box.h"
#include "windows/windows.h"

#include <QComboBox>
#include <QLabel>
#include <array>
#include <vector>

class QPushButton;

/// The dialog for the colours of the main window. It shows the schemes, lets the user mix one of his own, and makes one
/// the active scheme. The main window wears at once what the user chooses or mixes, and goes back to its own colours
/// when this window goes. Nothing is stored before 确定; then `tcsz.颜色`, and the row of the user's own scheme.
class frmPs : public QWidget {
    Q_OBJECT

  public:
    explicit frmPs(Windows& windows);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
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
    void addTile(const QString& name);
    /// Every tile with its stored colours, the chosen one marked.
    void showTiles();
    void chooseTile(int index);
    /// The colours in the boxes.
    ColourScheme mixedScheme() const;
    /// After a choice of the user.
    void tryOn();
    void txtYsGotFocus(int index);
    int focusedBox() const;  ///< Index of the box txtYs that has the focus, -1 for none.
    void cmdQdClick();
    void leave();

    QString schemeNumber() const;
    QColor partColour(int index) const;
    void setPartColour(int index, const QColor& colour);

    Windows& windows_;
    Recordset schemeRow_;  ///< The chosen scheme in `tcys`.

    QLabel* lblFa;                     ///< Names the active scheme.
    QLabel* lblBt;                     ///< Title of the picture.
    ImageBox* imgXs;                   ///< Picture of the main window in the chosen scheme.
    QLabel* lblTs;                     ///< Hint on the picture of the default scheme.
    QComboBox* cboFa;                  ///< List of the schemes.
    std::array<TextBox*, 4> txtYs{};   ///< Colours of the four parts, for the user's own scheme.
    std::array<ShapeBox*, 4> shpYs{};  ///< The colours of the boxes.
    std::vector<SchemeTile*> cmdFa_;   ///< The schemes as small windows, in the order of the list.
    std::array<QLabel*, 3> lblB0{};    ///< Miniature of the main window: fill, inner frame, outer frame.
    QLabel* lblB2 = nullptr;           ///< Miniature: the fill again, inside the inner frame.
    ShapeBox* shpCt = nullptr;         ///< Miniature: the ground of the window.
    QPushButton* cmdQd = nullptr;      ///< Stores the choice.
    bool isTried_ = false;             ///< The main window wears colours that are not stored.
    bool choosing_ = false;            ///< A colour dialog is open.
    bool passesBox_ = false;  ///< The focus came to a box with Tab, or with a press whose click is still to come.
};
