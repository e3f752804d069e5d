#include "intake/files/run_boxes.h"

#include "intake/files/run_texts.h"
#include "platform/desktop/message_box.h"

using namespace Qt::Literals::StringLiterals;

bool takesLeftOut(QWidget* parent, const RunReport& report, const QString& indexField, bool replace) {
    if (report.leftOut().isEmpty() || !report.failure.isEmpty() || report.stopped) return false;
    constexpr int alsoTaken = 0, stayOut = 1;
    return choose(parent, leftOutQuestion(report, indexField, replace), {u"也录入"_s, u"不录入"_s}, stayOut, stayOut) ==
           alsoTaken;
}
