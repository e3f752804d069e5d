#pragma once

#include "editor/operations/typed_numbers.h"
#include "platform/base/error.h"

#include <QImage>
#include <QRect>
#include <functional>
#include <optional>
#include <vector>

/// Hears the percentage of a work that is done.
using Progress = std::function<void(int percent)>;

/// Something that the editor can do to a picture: what it is called, what it asks the person, and what comes of it.
/// Lengths are twips.
struct Operation {
    enum class Asks {
        nothing,  ///< Carried out at once.
        number,   ///< Typed into the dialog.
        angle,    ///< The same, with a dial beside it.
        part      ///< Drawn on the picture with the mouse, and confirmed in the dialog.
    };

    /// A sentence of the hint box, and the code by which it is found.
    struct Hint {
        QString code, text;
    };

    struct Input {
        QImage picture;
        QSize size;       ///< Of the picture; in pixels, rounded, that of `picture`.
        QPoint origin;    ///< Where a flip reads its source.
        QRect selection;  ///< Part that was drawn last.
        QString entry;    ///< What was typed.
    };

    /// What will come of it. `paint` gives the picture, of `size` in pixels.
    struct Outcome {
        QSize size;
        QPoint origin;  ///< Where a flip reads its source afterwards.
        QString tag;    ///< The words that name it in the caption.
        std::function<QImage(const Progress&)> paint;
    };

    QString key;      ///< Of the tool button and its icon.
    QString item;     ///< Object name of the menu item.
    QString caption;  ///< Of the menu item.
    QString toolTip;  ///< Of the tool button.

    Asks asks = Asks::nothing;
    QString question = {};     ///< Heading of the dialog.
    bool isExclusive = false;  ///< While the dialog asks, its command and that of button pictures are off.
    bool isSlow = false;       ///< The dialog shows how far it has come.

    QString code = {};     ///< State of the editor while the dialog asks.
    QString doneCode;      ///< State of the editor afterwards.
    Hint askingHint = {};  ///< Shown while the dialog asks.
    Hint doneHint;         ///< Shown afterwards.

    /// The number that a typed text means.
    std::function<double(const QString& entry)> value = numberFromText;
    /// Throws the `Error` that says why it cannot be carried out.
    std::function<Outcome(const Input& input)> plan;

    bool asksNothing() const { return asks == Asks::nothing; }
    bool asksForPart() const { return asks == Asks::part; }
    bool asksForEntry() const { return asks == Asks::number || asks == Asks::angle; }
};

/// All operations, in the order of menu and tool bar. Another one is a file of its own and a line in this list.
const std::vector<const Operation*>& operations();

/// A painting that was begun and came to nothing: the picture would be larger than any can be.
class TooLarge : public Error {
  public:
    TooLarge();
};

/// The hint after an operation.
inline const QString goOnHint = QStringLiteral(
    "按“保存”菜单，保存现在显示的图片(“保存”将覆盖原同名文件，“另存为”不覆盖)。也可继续进行其它编辑操作。");

/// What a picture does not cover.
inline constexpr QRgb pictureBackground = 0xffffffff;

QSize inPixels(QSize twips);
QRect inPixels(const QRect& twips);

/// The size in twips of a picture to be made; nothing when none can be that large.
std::optional<QSize> possibleSize(double width, double height);
QString tooLargeText();

/// A part of the picture, painted `factor` times as large. Throws `TooLarge`, and another `Error` when nothing of it
/// would be left to see.
Operation::Outcome stretched(const Operation::Input& input, const QRect& part, double factor, const QString& tag);
