#pragma once

#include <QString>
#include <QStringList>

class QWidget;

/// What a run of the page 图片录入 has left out because the pictures are doubtful, and the question about it.

/// Files by their names, or records by the values of a field.
struct LeftOut {
    QString field = {};           ///< Empty for files.
    QStringList truncated = {};   ///< Pictures that end early.
    QStringList noPictures = {};  ///< Neither BMP nor JPEG.

    bool isEmpty() const { return truncated.isEmpty() && noPictures.isEmpty(); }
};

/// How many there are, which, and what their fault is.
QString leftOutQuestion(const LeftOut& leftOut, bool replace);

/// Asks whether they are to be taken in all the same. Enter and Escape leave them out.
bool takesLeftOut(QWidget* parent, const LeftOut& leftOut, bool replace);
