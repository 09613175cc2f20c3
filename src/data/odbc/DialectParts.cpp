#include "data/odbc/DialectParts.h"

#include "data/RunTimeError.h"
#include "data/sql/SqlWriter.h"

#include <algorithm>
#include <array>

namespace tarnwell::data {

namespace {

/// Words of SQL that are no keywords to the translation. What is not here is a name.
constexpr std::array plainWords{"all", "asc", "between", "by",     "case", "default", "desc", "else",  "end",
                                "in",  "is",  "null",    "exists", "then", "using",   "when", "escape"};

bool isWord(QStringView word, const char* wanted) {
    return word.compare(QLatin1String(wanted), Qt::CaseInsensitive) == 0;
}

const ServerFunction* functionNamed(QStringView name, std::span<const ServerFunction> functions) {
    const auto found = std::ranges::find_if(
        functions, [&](const ServerFunction& function) { return isWord(name, function.name); });
    return found != functions.end() ? &*found : nullptr;
}

bool isComparison(const Token& token) {
    static constexpr std::array signs{"=", "<>", "<", ">", "<=", ">="};
    return std::ranges::any_of(signs, [&](const char* sign) { return token.is(QLatin1String(sign)); });
}

} // namespace

void writeInstead(Token& token, const QByteArray& text) {
    token.drop();
    token.before += text;
}

void writeServerNames(SqlTokens& tokens, std::span<const ServerFunction> functions) {
    for (int i = 0; i < tokens.size(); ++i) {
        const Token& token = tokens.at(i);
        if (!token.isName() || token.instead != nullptr)
            continue;
        const bool plain = token.kind == TokenKind::Word && !tokens.at(i - 1).is(mark::Point);
        if (plain &&
            std::ranges::any_of(plainWords, [&](const char* word) { return isWord(token.text, word); }))
            continue;
        if (tokens.at(i + 1).is(mark::Open) && !tokens.at(i - 1).is(Keyword::Into)) {
            const ServerFunction* function = plain ? functionNamed(token.text, functions) : nullptr;
            if (function == nullptr)
                raise(Failure::SyntaxError, QStringLiteral("no such function: %1").arg(token.name()));
            Token& close = tokens[tokens.at(i + 1).partner];
            tokens[i].instead = function->serverName;
            close.before += function->within;
            close.after.prepend(function->behind);
            continue;
        }
        writeInstead(tokens[i], engineName(token.name()));
    }
}

std::optional<schema::ColumnType> typeEndingAt(const SqlTokens& tokens, const StatementTables& tables,
                                               int end) {
    return tables.columnType(tokens, tokens.at(end - 1).is(mark::Point) ? end - 2 : end, end);
}

std::optional<schema::ColumnType> typeBeginningAt(const SqlTokens& tokens, const StatementTables& tables,
                                                  int begin) {
    return tables.columnType(tokens, begin, tokens.at(begin + 1).is(mark::Point) ? begin + 2 : begin);
}

bool isTakenForText(const SqlTokens& tokens, const StatementTables& tables, int at) {
    using schema::ColumnType;
    return tokens.at(at - 1).is(Keyword::Like) ||
           (isComparison(tokens.at(at - 1)) && typeEndingAt(tokens, tables, at - 2) == ColumnType::Text) ||
           (isComparison(tokens.at(at + 1)) && typeBeginningAt(tokens, tables, at + 2) == ColumnType::Text);
}

std::pair<QString, QString> hostAndPort(const QString& address) {
    const qsizetype colon = address.lastIndexOf(QLatin1Char(':'));
    const QString port = address.sliced(colon + 1);
    const bool isNumber = colon >= 0 && !port.isEmpty() && std::ranges::all_of(port, [](QChar c) {
                              return c >= QLatin1Char('0') && c <= QLatin1Char('9');
                          });
    return isNumber ? std::pair(address.first(colon), port) : std::pair(address, QString());
}

QString driverEntry(const char* key, const QString& value) {
    return value.isEmpty() ? QString() : QStringLiteral("%1=%2;").arg(QLatin1String(key), value);
}

QString driverPassword(const QString& password) {
    return password.isEmpty() ? QString() : QStringLiteral("PWD={%1};").arg(password);
}

} // namespace tarnwell::data
