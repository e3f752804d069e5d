#include "platform/desktop/failure_list.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::size_t mostKept = 10;

std::vector<ToldFailure>& kept() {
    static std::vector<ToldFailure> failures;
    return failures;
}

}  // namespace

QString withoutContents(const QString& message) {
    QString text = message.section(u"\n\n"_s, 0, 0);
    text = text.section(u"语句："_s, 0, 0);
    static const QRegularExpression quoted(u"(?<![表列])“(?![^”]*(?:/|\\.[A-Za-z0-9]{1,5}”))[^”]*”"_s);
    return text.replace(quoted, u"“…”"_s);
}

void noteFailure(const QString& message) {
    kept().insert(kept().begin(), {QDateTime::currentDateTime(), withoutContents(message)});
    if (kept().size() > mostKept) kept().pop_back();
}

std::vector<ToldFailure> lastFailures() {
    return kept();
}
