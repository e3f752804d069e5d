#include "editor/step_trail.h"

QString StepTrail::stepText(int step) {
    return QString::number(step).rightJustified(2, u'0');
}

QString StepTrail::newest() const {
    return steps_.empty() ? QString() : stepText(steps_.back());
}

QString StepTrail::pop() {
    const QString step = newest();
    if (!steps_.empty()) steps_.pop_back();
    return step;
}
