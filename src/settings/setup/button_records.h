#pragma once

#include "catalogue/runs/picture_storing.h"
#include "platform/database/records/database.h"
#include "settings/setup/button_rules.h"

#include <optional>
#include <vector>

/// A picture file for a button, and what becomes of it when it is a bitmap. Without a path there is none.
struct ButtonPictureFile {
    QString path;
    BmpFiles bmp = BmpFiles::keep;
};

/// The recordset on the selection buttons in which one is added, changed or deleted. It stands on the button in hand,
/// or on none. What is begun is stored whole or not at all; after a failure it is still begun. Failures throw `Error`.
class ButtonRecords {
  public:
    enum class Work { none, adding, changing };

    /// Gives up what was begun and stands on the button of this number, or on none when there is no such button. Of
    /// several with the number it is the one of this code.
    void choose(const QString& number, const QString& code);
    void chooseNone();

    bool isOnButton() const { return !rows_.isNothing() && rows_.row() >= 0; }
    Work work() const { return work_; }
    bool isPending() const { return work_ != Work::none; }

    /// The button in hand as it is stored. There must be one.
    ButtonTexts texts() const;
    /// 序号 and 编号 of the button in hand as they are stored; empty for a new one.
    QString number() const;
    QString code() const;
    bool hasPicture() const;

    void startAdding();
    void startChanging();
    /// Stores the texts and the picture, if there is one; stands on the stored button afterwards. A partner gets the
    /// number that the button had before.
    void store(const ButtonTexts& texts, const ButtonPictureFile& picture,
               const std::optional<ButtonTexts>& partner = {});
    /// The button that bears a number, when the one in hand can exchange its own for it: both are each one button's
    /// alone, and none of them is the system's.
    std::optional<ButtonTexts> partnerFor(int number) const;
    void remove();

  private:
    void giveOldNumberTo(const ButtonTexts& partner);
    void prepare();
    void storePicture(const ButtonPictureFile& picture);
    QString stored(const QString& column) const;

    Recordset rows_;
    Work work_ = Work::none;
    QString number_;  ///< Of the button that is being changed.
    QString code_;
};

/// The boxes' texts of the button on which a set of buttons stands.
ButtonTexts textsOf(const Recordset& button);

/// The button that bears a code; nothing when none does.
std::optional<ButtonTexts> buttonWithCode(const Database& catalogue, const QString& code);
/// The buttons that bear a number: more than one only in catalogues that were changed by others.
std::vector<ButtonTexts> buttonsWithNumber(const Database& catalogue, int number);
