#include "viewer/clock.h"

#include "platform/base/conversion.h"

#include <array>

using namespace Qt::Literals::StringLiterals;

QString clockText(const QDateTime& now) {
    static const QString days = u"日一二三四五六"_s;
    return dateText(now, shownDatePattern) + u" 周"_s + days.at(now.date().dayOfWeek() % 7);
}

TitleColours titleColours(QTime now) {
    static const std::array<TitleColours, 7> cycle{{
        {QColor(0, 0, 170), QColor(0, 255, 192)},
        {QColor(255, 0, 0), QColor(255, 192, 192)},
        {QColor(255, 85, 0), QColor(195, 255, 127)},
        {QColor(255, 220, 0), QColor(0, 255, 192)},
        {QColor(0, 255, 0), QColor(255, 200, 220)},
        {QColor(0, 0, 255), QColor(110, 220, 255)},
        {QColor(255, 0, 255), QColor(255, 210, 255)},
    }};
    return cycle.at(size_t(now.second() % 10 % 7));
}

// The calmest of them.
TitleColours stillTitleColours() {
    return titleColours(QTime(0, 0));
}
