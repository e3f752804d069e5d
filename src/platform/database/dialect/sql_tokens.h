#pragma once

#include <QString>
#include <span>
#include <vector>

/// The words of a statement in the program's dialect, and their translation into the engine's language.

struct Token {
    enum class Kind { word, name, text, number, symbol };
    Kind kind;
    /// A name without its brackets; everything else as the engine reads it (a date literal already as a text).
    QString text;
};

using Tokens = std::vector<Token>;

/// Cuts a statement into its words. Throws `Error` for an unfinished text, bracket or date literal, for a date that is
/// none, and for a second statement behind a semicolon. Semicolons at the end are dropped.
Tokens tokensOf(const QString& sql);

/// Whether a token is this keyword or symbol, in either case.
bool isToken(const Token& token, QStringView text);

/// Whether a word means something to the engine, so that it is no name without quotes.
bool isKeyword(const QString& word);

/// Whether a token can be the name of a table or column.
bool isName(const Token& token);

/// The statement in the engine's language: function names that are keywords there are quoted, comparisons with a text
/// ignore the case of Latin letters.
QString engineSql(std::span<const Token> tokens);

/// A table or column name between double quotes.
QString quotedName(const QString& name);
