#pragma once

#include <QString>
#include <optional>

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
    QString date;
    QString numberCondition;
    bool isLeftOver;  ///< The selection is that of conditions which have been taken back.
};

/// `日期晚于2003-10-01 序号> 5 共3张 共1页`, or `全部 共…` without conditions.
QString pageStatus(const FilterTexts& filter, int pictures, int pages);

/// " 第 n 张", which ends the page line.
QString placeInSelection(int place);

/// What a date is called in a condition: as it was typed where the engine reads it so, otherwise `2003-10-01`. A time
/// of day is left out. Nothing when the text is no date.
std::optional<QString> dateForCondition(const QString& typed);

/// A date that is being typed, and the place of the caret in it.
struct TypedDate {
    QString text;
    int caret;
    bool operator==(const TypedDate& other) const = default;
};
/// Help with typing a date: how it goes on after it has grown in front of the caret by `grown` characters. Dashes come
/// by themselves, and a separator that is typed where one stands already is swallowed.
TypedDate helpTypedDate(const TypedDate& typed, int grown);
