#include "platform/database/dialect/sql_tokens.h"

#include "platform/base/conversion.h"
#include "platform/base/error.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

bool isWordCharacter(QChar c) {
    return c.isLetterOrNumber() || c == u'_' || c == u'$' || (c.unicode() > 0x7f && !c.isSpace());
}

class Tokenizer {
  public:
    explicit Tokenizer(const QString& sql) : sql_(sql) {}

    Tokens tokens() {
        Tokens tokens;
        bool ended = false;
        for (skipBlanks(); at_ < sql_.size(); skipBlanks()) {
            if (sql_[at_] == u';') {
                ended = true;
                ++at_;
                continue;
            }
            if (ended) throw Error(u"一次只能执行一条语句：%1"_s.arg(sql_));
            tokens.push_back(next());
        }
        return tokens;
    }

  private:
    void skipBlanks() {
        while (at_ < sql_.size() && sql_[at_].isSpace()) ++at_;
    }

    Token next() {
        const QChar c = sql_[at_];
        if (c == u'\'') return {Token::Kind::text, u'\'' + delimited(u'\'') + u'\''};
        if (c == u'"') return {Token::Kind::name, delimited(u'"').replace(u"\"\""_s, u"\""_s)};
        if (c == u'`') return {Token::Kind::name, delimited(u'`')};
        if (c == u'[') return {Token::Kind::name, delimited(u']')};
        if (c == u'#') return dateLiteral(delimited(u'#'));
        if (isDigit(c) || (c == u'.' && at_ + 1 < sql_.size() && isDigit(sql_[at_ + 1]))) return number();
        if (isWordCharacter(c)) return word();
        return symbol();
    }

    /// The text up to the closing mark; a doubled mark belongs to it (and stays doubled).
    QString delimited(QChar mark) {
        const qsizetype start = ++at_;
        while (true) {
            at_ = sql_.indexOf(mark, at_);
            if (at_ < 0) throw Error(u"语句中缺少“%1”：%2"_s.arg(mark).arg(sql_));
            ++at_;
            const bool doubled = (mark == u'\'' || mark == u'"') && at_ < sql_.size() && sql_[at_] == mark;
            if (!doubled) return sql_.sliced(start, at_ - start - 1);
            ++at_;
        }
    }

    static Token dateLiteral(const QString& text) {
        const auto date = dateFromText(text);
        if (!date) throw Error(u"“#%1#”不是日期。"_s.arg(text));
        return {Token::Kind::text, u'\'' + dateText(*date, dateTimePattern) + u'\''};
    }

    Token number() {
        const qsizetype start = at_;
        while (at_ < sql_.size() && (isDigit(sql_[at_]) || sql_[at_] == u'.')) ++at_;
        if (at_ < sql_.size() && sql_[at_].toLower() == u'e') {
            qsizetype exponent = at_ + 1;
            if (exponent < sql_.size() && (sql_[exponent] == u'-' || sql_[exponent] == u'+')) ++exponent;
            if (exponent < sql_.size() && isDigit(sql_[exponent])) {
                at_ = exponent;
                while (at_ < sql_.size() && isDigit(sql_[at_])) ++at_;
            }
        }
        return {Token::Kind::number, sql_.sliced(start, at_ - start)};
    }

    Token word() {
        const qsizetype start = at_;
        while (at_ < sql_.size() && isWordCharacter(sql_[at_])) ++at_;
        return {Token::Kind::word, sql_.sliced(start, at_ - start)};
    }

    Token symbol() {
        static const std::array pairs{u"<="_s, u">="_s, u"<>"_s, u"!="_s, u"=="_s, u"||"_s};
        const QString pair = sql_.mid(at_, 2);
        const qsizetype length = std::ranges::find(pairs, pair) != pairs.end() ? 2 : 1;
        at_ += length;
        return {Token::Kind::symbol, pair.left(length)};
    }

    const QString& sql_;
    qsizetype at_ = 0;
};

bool isComparison(const Token& token) {
    static const std::array signs{u"="_s, u"=="_s, u"<>"_s, u"!="_s, u"<"_s, u">"_s, u"<="_s, u">="_s};
    return token.kind == Token::Kind::symbol && std::ranges::find(signs, token.text) != signs.end();
}

bool isKeywordFunction(const Token& token) {
    return isToken(token, u"Left") || isToken(token, u"IsNull");
}

}  // namespace

Tokens tokensOf(const QString& sql) {
    return Tokenizer(sql).tokens();
}

bool isToken(const Token& token, QStringView text) {
    return (token.kind == Token::Kind::word || token.kind == Token::Kind::symbol) &&
           token.text.compare(text, Qt::CaseInsensitive) == 0;
}

bool isKeyword(const QString& word) {
    const QByteArray utf8 = word.toUtf8();
    return sqlite3_keyword_check(utf8.constData(), int(utf8.size())) != 0;
}

bool isName(const Token& token) {
    return token.kind == Token::Kind::word || token.kind == Token::Kind::name;
}

QString engineSql(std::span<const Token> tokens) {
    QString sql;
    for (size_t i = 0; i < tokens.size(); ++i) {
        const Token& token = tokens[i];
        const bool call = i + 1 < tokens.size() && isToken(tokens[i + 1], u"(");
        const bool compared =
            (i > 0 && isComparison(tokens[i - 1])) || (i + 1 < tokens.size() && isComparison(tokens[i + 1]));
        if (i > 0) sql += u' ';
        const bool quote = token.kind == Token::Kind::name || (call && isKeywordFunction(token));
        sql += quote ? quotedName(token.text) : token.text;
        if (token.kind == Token::Kind::text && compared) sql += u" COLLATE NOCASE";
    }
    return sql;
}

QString quotedName(const QString& name) {
    return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"';
}
