#pragma once

#include "catalogue/selection_buttons.h"

#include <QDate>
#include <QString>
#include <optional>

/// Which pictures of an album are shown: the conditions, their statements, and the line that names them.

enum class DateRelation { before, after, on };

/// A condition on the day of a picture.
struct DayCondition {
    DateRelation relation;
    QDate day;
    QString words;  ///< The day as the page line shows it.
};

/// The condition for a day as people type it. Its words are the typed text if the engine reads that as the same day,
/// otherwise `2003-10-01`. A time of day is left out. Nothing when the text is no date.
std::optional<DayCondition> dayCondition(DateRelation relation, const QString& typed);

/// `序号 > 5` for "序号>" and "5"; empty if the choice is not three characters long ("序号任意").
QString numberCondition(const QString& choice, const QString& number);

/// The conditions by which pictures are chosen.
struct Conditions {
    QString code = allPicturesCode;   ///< Of the active button.
    std::optional<DayCondition> day;  ///< Nothing: any day.
    QString number;                   ///< See `numberCondition`; empty: any number.
};

/// The statement of the page. Nothing for all pictures without any condition: then the present selection stays.
std::optional<QString> selectionSql(const QString& table, const Conditions& conditions);

/// The statement of a button alone.
QString buttonSql(const QString& table, const QString& code);

/// `日期晚于2003-10-01 序号> 5 共3张 共1页`, or `全部 共…` without conditions. `isLeftOver`: the conditions were taken
/// back, but the pictures are still those that they chose.
QString pageStatus(const Conditions& conditions, bool isLeftOver, int pictures, int pages);

/// " 第 n 张", which ends the page line.
QString placeInSelection(int place);

/// A date that is being typed, and the place of the caret in it.
struct TypedDate {
    QString text;
    int caret;
    bool operator==(const TypedDate& other) const = default;
};
/// Helps with typing a date: the text after `grown` characters were typed in front of the caret. Dashes are added, and
/// a separator next to another one is dropped.
TypedDate helpTypedDate(const TypedDate& typed, int grown);
