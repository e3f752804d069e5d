#include "soak/report.h"

#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

void Report::operator()(const QStringList& words) const {
    if (!verb_.isEmpty() && words.front() != verb_) return;
    const QByteArray line = words.join(u' ').toUtf8() + '\n';
    if (write(descriptor_, line.constData(), size_t(line.size())) != line.size()) _exit(3);
}
