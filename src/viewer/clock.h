#pragma once

#include <QColor>
#include <QDateTime>
#include <QString>

/// The clock of the status bar, and the colours of the title box, which change with the seconds.

/// `2003年10月01日 12:30:00 周三`
QString clockText(const QDateTime& now);

struct TitleColours {
    QColor text, ground;
    bool operator==(const TitleColours& other) const = default;
};

/// The colours follow the last digit of the seconds, modulo 7.
TitleColours titleColours(QTime now);

/// Those of a title that does not change.
TitleColours stillTitleColours();
