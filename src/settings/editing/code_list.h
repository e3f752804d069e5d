#pragma once

#include "settings/frame/settings_frame.h"

#include <QObject>
#include <array>

class QGroupBox;
class QLabel;
class QRadioButton;

/// The frame Frame8 of the page 图册编辑: the list lstBh of the selection codes, how it is sorted, and the line lblZs
/// about the listed records. Reads the catalogue only.
class CodeList : public QObject {
    Q_OBJECT

  public:
    CodeList(const SettingsFrame& frame);

    /// Takes the list to this page, for no album yet.
    void enter();
    void albumChosen();
    void albumLost();

    /// Shows which buttons offer the album by now, in the same order, at the same place of the list.
    void readAgain();
    void showListing(const QString& text);  ///< lblZs

  Q_SIGNALS:
    void codeClicked(const QString& code);    ///< By mouse or Enter.
    void codeActivated(const QString& code);  ///< By a double click or Enter.

  private:
    QStringList lines() const;
    void fill(const QString& source);
    void optP2Click(int index);
    bool inFront() const;

    SettingsFrame frame_;
    QGroupBox* Frame8;
    QLabel* lblZs;
    std::array<QRadioButton*, 2> optP2{};
    QString source_;
};
