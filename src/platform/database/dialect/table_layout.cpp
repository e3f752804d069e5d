#include "platform/database/dialect/table_layout.h"

#include "platform/base/error.h"

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

struct TypeName {
    QString name;
    FieldType type;
    int size;
    /// How the column is declared to the engine. A memo needs the word TEXT, without which the engine would turn "007"
    /// into a number; texts compare without case.
    QString engineType;
};

const std::array<TypeName, 22>& typeNames() {
    static const std::array<TypeName, 22> names{{
        {u"LONG"_s, FieldType::longInteger, 4, u"LONG"_s},
        {u"INTEGER"_s, FieldType::integer, 2, u"INTEGER"_s},
        {u"SHORT"_s, FieldType::integer, 2, u"SHORT"_s},
        {u"BYTE"_s, FieldType::byte, 1, u"BYTE"_s},
        {u"SINGLE"_s, FieldType::single, 4, u"SINGLE"_s},
        {u"REAL"_s, FieldType::single, 4, u"SINGLE"_s},
        {u"DOUBLE"_s, FieldType::real, 8, u"DOUBLE"_s},
        {u"FLOAT"_s, FieldType::real, 8, u"DOUBLE"_s},
        {u"NUMBER"_s, FieldType::real, 8, u"DOUBLE"_s},
        {u"CURRENCY"_s, FieldType::currency, 8, u"CURRENCY"_s},
        {u"DECIMAL"_s, FieldType::decimal, 16, u"DECIMAL"_s},
        {u"YESNO"_s, FieldType::boolean, 1, u"YESNO"_s},
        {u"BIT"_s, FieldType::boolean, 1, u"BIT"_s},
        {u"BOOLEAN"_s, FieldType::boolean, 1, u"BIT"_s},
        {u"DATETIME"_s, FieldType::date, 8, u"DATETIME"_s},
        {u"TEXT"_s, FieldType::text, 255, u"TEXT"_s},
        {u"VARCHAR"_s, FieldType::text, 255, u"TEXT"_s},
        {u"CHAR"_s, FieldType::text, 255, u"TEXT"_s},
        {u"MEMO"_s, FieldType::memo, 0, u"MEMO TEXT"_s},
        {u"GUID"_s, FieldType::guid, 16, u"GUID TEXT"_s},
        {u"BINARY"_s, FieldType::binary, 510, u"BINARY"_s},
        {u"LONGBINARY"_s, FieldType::longBinary, 0, u"LONGBINARY"_s},
    }};
    return names;
}

const TypeName* findType(const QString& word) {
    const auto& names = typeNames();
    const auto found = std::ranges::find_if(
        names, [&](const TypeName& type) { return type.name.compare(word, Qt::CaseInsensitive) == 0; });
    return found == names.end() ? nullptr : &*found;
}

/// The rules by which the engine itself reads a type name that is not ours.
FieldType engineAffinity(const QString& declaration) {
    const QString name = declaration.toUpper();
    if (name.contains(u"INT")) return FieldType::longInteger;
    if (name.contains(u"CHAR") || name.contains(u"CLOB") || name.contains(u"TEXT")) return FieldType::memo;
    if (name.contains(u"REAL") || name.contains(u"FLOA") || name.contains(u"DOUB")) return FieldType::real;
    return name.contains(u"DATE") ? FieldType::date : FieldType::memo;
}

/// Reads the words of a CREATE TABLE.
class CreationReader {
  public:
    explicit CreationReader(const Tokens& tokens) : tokens_(tokens) {}

    TableCreation read() {
        TableCreation creation;
        expect(u"CREATE");
        expect(u"TABLE");
        creation.table = name();
        expect(u"(");
        QStringList columns;
        do columns << column(creation);
        while (take(u","));
        expect(u")");
        if (at_ < tokens_.size()) fail();
        creation.sql = u"CREATE TABLE %1 (%2)"_s.arg(quotedName(creation.table), columns.join(u", "));
        return creation;
    }

  private:
    [[noreturn]] void fail() const {
        const QString place = at_ < tokens_.size() ? tokens_[at_].text : u"末尾"_s;
        throw Error(u"建表语句在“%1”处有错。"_s.arg(place));
    }

    bool take(QStringView text) {
        if (at_ >= tokens_.size() || !isToken(tokens_[at_], text)) return false;
        ++at_;
        return true;
    }

    void expect(QStringView text) {
        if (!take(text)) fail();
    }

    QString name() {
        if (at_ >= tokens_.size() || !isName(tokens_[at_])) fail();
        return tokens_[at_++].text;
    }

    QString column(TableCreation& creation) {
        const QString columnName = name();
        const QString typeWord = name();
        const TypeName* type = findType(typeWord);
        if (!type) throw Error(u"建表语句中列“%1”的类型“%2”未知。"_s.arg(columnName, typeWord));
        QString definition = quotedName(columnName) + u' ' + type->engineType;
        if (take(u"(")) {
            if (at_ >= tokens_.size() || tokens_[at_].kind != Token::Kind::number) fail();
            definition += u'(' + tokens_[at_++].text + u')';
            expect(u")");
        }
        if (type->engineType.endsWith(u"TEXT")) definition += u" COLLATE NOCASE";
        if (type->type == FieldType::longBinary) creation.longBinaryColumns << columnName;
        return definition + constraints();
    }

    /// NOT NULL, PRIMARY KEY, DEFAULT and the like pass as they are.
    QString constraints() {
        const size_t start = at_;
        int depth = 0;
        for (; at_ < tokens_.size(); ++at_) {
            if (depth == 0 && (isToken(tokens_[at_], u",") || isToken(tokens_[at_], u")"))) break;
            if (isToken(tokens_[at_], u"(")) ++depth;
            if (isToken(tokens_[at_], u")")) --depth;
        }
        return at_ == start ? QString() : u' ' + engineSql(std::span(tokens_).subspan(start, at_ - start));
    }

    const Tokens& tokens_;
    size_t at_ = 0;
};

}  // namespace

bool isReservedTable(const QString& table) {
    return table.compare(u"long_binary", Qt::CaseInsensitive) == 0 ||
           table.startsWith(u"sqlite_", Qt::CaseInsensitive) || table.startsWith(u"lunq_", Qt::CaseInsensitive);
}

Column declaredColumn(const QString& name, const QString& declaration) {
    const qsizetype bracket = declaration.indexOf(u'(');
    const QString words = (bracket < 0 ? declaration : declaration.left(bracket)).trimmed();
    const TypeName* type = findType(words.section(u' ', 0, 0));
    if (!type) return {name, engineAffinity(words), 0};
    const bool hasLength = type->type == FieldType::text || type->type == FieldType::binary;
    if (!hasLength || bracket < 0) return {name, type->type, type->size};
    return {name, type->type, declaration.mid(bracket + 1).section(u')', 0, 0).toInt()};
}

int columnIndex(const std::vector<Column>& columns, const QString& name) {
    const auto found = std::ranges::find_if(
        columns, [&](const Column& column) { return column.name.compare(name, Qt::CaseInsensitive) == 0; });
    return found == columns.end() ? -1 : int(found - columns.begin());
}

TableCreation tableCreation(const Tokens& tokens) {
    return CreationReader(tokens).read();
}

QStringList longBinaryTriggers(const QString& table, const QString& column) {
    const QString col = quotedName(column);
    const auto triggerName = [&](const QString& event) { return quotedName(table + u'_' + column + u'_' + event); };
    return {
        u"CREATE TRIGGER %1 AFTER DELETE ON %2 WHEN OLD.%3 IS NOT NULL "
        "BEGIN DELETE FROM long_binary WHERE id = OLD.%3; END"_s.arg(triggerName(u"deleted"_s), quotedName(table), col),
        u"CREATE TRIGGER %1 AFTER UPDATE OF %3 ON %2 WHEN OLD.%3 IS NOT NULL AND OLD.%3 IS NOT NEW.%3 "
        "BEGIN DELETE FROM long_binary WHERE id = OLD.%3; END"_s.arg(triggerName(u"replaced"_s), quotedName(table),
                                                                     col)};
}
