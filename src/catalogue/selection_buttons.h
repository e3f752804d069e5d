#pragma once

#include "platform/database/records/database.h"

#include <QString>
#include <vector>

/// The selection buttons (`tcan`): each has a number, a code of one character, a name, the albums that offer it, and a
/// picture. A picture belongs to the buttons whose codes stand in its 编号. All throw `Error`.

/// The button "v", which lists all pictures: every album is entered in it.
inline const QString allPicturesCode = QStringLiteral("v");
bool isAllPictures(const QString& code);

struct SelectionCode {
    QString code;
    QString name;
};

/// The buttons that an album offers, by their numbers.
Recordset buttonsOfAlbum(const Database& catalogue, const QString& album);
/// The same without those that have no picture.
Recordset pictureButtonsOfAlbum(const Database& catalogue, const QString& album);
std::vector<SelectionCode> codesOfAlbum(const Database& catalogue, const QString& album);

/// All buttons with a code: more than one only in catalogues that were changed by others.
Recordset buttonsWithCode(const Database& catalogue, const QString& code);
/// The name of the first of them; there must be one.
QString nameOfCode(const Database& catalogue, const QString& code);

/// Has the button of a code offer an album. False when it did before, or there is no such button.
bool offerAlbum(const Database& catalogue, const QString& code, const QString& album);

/// What follows the table's name in a SELECT of the records that carry a code, with a blank in front; empty for "v".
QString whereCode(const QString& code);

/// A line of the list of codes; braces mark one that the album offers.
QString codeLine(const QString& code, const QString& name, bool offered);
QString codeOfLine(const QString& line);
