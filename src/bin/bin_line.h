#pragma once

#include "platform/desktop/growing.h"

#include <QObject>
#include <QRect>
#include <QTimer>
#include <functional>
#include <vector>

class ElidedLabel;
class QPushButton;

/// The line about the bin at the lower edge of a window: for ten seconds what was taken away just now, and cmdHf that
/// puts it back; after that, as long as the bin holds something, cmdHf opens the bin.
class BinLine : public QObject {
    Q_OBJECT

  public:
    /// The controls are hidden at first.
    explicit BinLine(QWidget* form);

    /// In twips of the smallest window.
    void place(const QRect& line, const QRect& button);
    QPushButton* button() const { return cmdHf; }

    /// Tells what was taken away since the last call, and shows whether the bin holds something. Not told is what was
    /// there at the first call.
    void look();
    /// Both controls are hidden meanwhile.
    void setAway(bool on);

    /// Asked before anything is put back, or the bin is opened. Not set: always.
    std::function<bool()> mayRestore;

  protected:
    /// The time begins anew when a box or window in front has let the form go.
    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    void restored();  ///< Records, albums or buttons have come back.
    void arranged();  ///< The controls have come or gone, or stay as they are.

  private:
    void cmdHfClick();
    void restoreLast();
    /// For these buttons it asks for other codes.
    void openBin(const std::vector<qint64>& codeTaken = {});
    void tell(const QString& text, bool mayBePutBack);
    void letTimeRun();
    void showSmall();
    void arrange();

    QWidget* form_;
    ElidedLabel* lblHf;       ///< What was taken away.
    QPushButton* cmdHf;       ///< Puts it back, or opens the bin.
    QTimer shown_;            ///< As long as the line is told.
    qint64 told_ = -1;        ///< The newest removal that was looked at; -1 before the first look.
    qint64 before_ = 0;       ///< The one before those that are told.
    bool isBlocked_ = false;  ///< Nobody can press cmdHf.
    bool isAway_ = false;
    bool isFilled_ = false;
};
