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
    static const QRegularExpression statement(u"语句(在 .* 处有错|(中缺少“[^”]*”)?：.*)"_s,
                                              QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression value(u"不能存入“.*”(?=：)"_s, QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression quoted(u"(?<![表列])“(?!/|[^”]*\\.[A-Za-z0-9]{1,5}”)[^”]*”"_s);
    QString text = message;
    text = text.replace(value, u"不能存入“…”"_s).section(u"\n\n"_s, 0, 0);
    return text.replace(statement, u"语句"_s).replace(quoted, u"“…”"_s);
}

void noteFailure(const QString& message) {
    const QString what = withoutContents(message);
    if (!kept().empty() && kept().front().what == what) kept().erase(kept().begin());
    kept().insert(kept().begin(), {QDateTime::currentDateTime(), what});
    if (kept().size() > mostKept) kept().pop_back();
}

std::vector<ToldFailure> lastFailures() {
    return kept();
}
