#pragma once

#include <QString>

/// Texts of the picture filters: conditions, statements, and the line that tells what is shown.

/// Code of the button that stands for all pictures of an album.
inline const QString allPicturesCode = QStringLiteral("v");

/// `序号 > 5` out of "序号>" and "5"; empty where the choice is not three characters long ("序号任意").
QString numberCondition(const QString& choice, const QString& number);

/// ` DateValue(日期) > #2003-10-01#`; `dateOperator` 0 is earlier, 1 later, otherwise that day.
QString dateConditionFor(int dateOperator, const QString& typedDate);

/// The statement of the page: code, date and number conditions joined. For all pictures without any condition the text
/// is no valid statement, so that the selection in force stays.
QString selectionSql(const QString& table, const QString& code, const QString& dateCondition,
                     const QString& numberCondition);

/// The statement of a button alone.
QString buttonSql(const QString& table, const QString& code);

/// What `pageStatus` tells.
struct FilterTexts {
    QString dateCondition;
    int dateOperator;
    QString typedDate;
    QString numberCondition;
};

/// `日期晚于2003-10-01 序号> 5 共3张 共1页`, or `全部 共…` without conditions.
QString pageStatus(const FilterTexts& filter, int pictures, int pages);

/// " 第 n 张", which ends the page line.
QString placeInSelection(int place);

/// Help with typing a date: the text as it goes on after what was typed, and where the caret goes (-1: it stays).
struct TypedDate {
    QString text;
    int caret;
    bool operator==(const TypedDate& other) const = default;
};
TypedDate helpTypedDate(const QString& text);
