#include "data/odbc/PostgresDialect.h"

#include "data/RunTimeError.h"
#include "data/engine/ConnectionString.h"
#include "data/odbc/PostgresTexts.h"
#include "data/schema/Quoted.h"
#include "data/sql/StatementShape.h"

#include <algorithm>
#include <array>

namespace tarnwell::data {

namespace {

constexpr QLatin1String Comma(",");
constexpr QLatin1String Open("(");

/// Words of SQL that are no keywords to the translation. What is not here is a name.
constexpr std::array plainWords{"all", "asc", "between", "by",     "case", "default", "desc", "else",  "end",
                                "in",  "is",  "null",    "exists", "then", "using",   "when", "escape"};
/// A server has functions that read files, wait or change settings; typed text may call none of them.
constexpr std::array functions{"abs",     "coalesce", "length", "lower",  "ltrim", "nullif",
                               "replace", "round",    "rtrim",  "substr", "trim",  "upper"};

template <std::size_t N>
bool contains(const std::array<const char*, N>& words, QStringView word) {
    return std::ranges::any_of(words, [&](const char* entry) {
        return word.compare(QLatin1String(entry), Qt::CaseInsensitive) == 0;
    });
}

void replace(Token& token, const QByteArray& text) {
    token.drop();
    token.before += text;
}

/// The server takes a column of a table that the statement does not name for a missing table. A select within
/// has tables of its own, which are not known here.
void requireNamedTables(const SqlTokens& tokens, const StatementTables& tables) {
    for (int i = 1; i < tokens.size(); ++i)
        if (tokens.at(i).is(Keyword::Select))
            return;
    for (int i = 0; i + 2 < tokens.size(); ++i) {
        if (!tokens.at(i).isName() || !tokens.at(i + 1).is(mark::Point))
            continue;
        const QStringView name = tokens.at(i).name();
        if (std::ranges::none_of(tables.list(), [&](const NamedTable& from) {
                return name.compare(from.alias, Qt::CaseInsensitive) == 0;
            }))
            raise(Failure::NoSuchColumn, QStringLiteral("%1.%2").arg(name, tokens.at(i + 2).name()));
    }
}

/// Names mind their case on the server, so each is written as the catalogue has it.
void writeNames(SqlTokens& tokens) {
    for (int i = 0; i < tokens.size(); ++i) {
        const Token& token = tokens.at(i);
        if (!token.isName() || token.instead != nullptr)
            continue;
        const bool plain = token.kind == TokenKind::Word && !tokens.at(i - 1).is(QLatin1String("."));
        if (plain && contains(plainWords, token.text))
            continue;
        if (tokens.at(i + 1).is(Open) && !tokens.at(i - 1).is(Keyword::Into)) {
            if (!plain || !contains(functions, token.text))
                raise(Failure::SyntaxError, QStringLiteral("no such function: %1").arg(token.name()));
            continue;
        }
        replace(tokens[i], engineName(token.name()));
    }
}

bool isComparison(const Token& token) {
    static constexpr std::array signs{"=", "<>", "<", ">", "<=", ">="};
    return std::ranges::any_of(signs, [&](const char* sign) { return token.is(QLatin1String(sign)); });
}

/// Of the column whose name, with or without its table's, ends at `end` or begins at `begin`.
std::optional<schema::ColumnType> typeEndingAt(const SqlTokens& tokens, const StatementTables& tables,
                                               int end) {
    return tables.columnType(tokens, tokens.at(end - 1).is(mark::Point) ? end - 2 : end, end);
}
std::optional<schema::ColumnType> typeBeginningAt(const SqlTokens& tokens, const StatementTables& tables,
                                                  int begin) {
    return tables.columnType(tokens, begin, tokens.at(begin + 1).is(mark::Point) ? begin + 2 : begin);
}

/// A number that is compared with a text is one.
bool isTakenForText(const SqlTokens& tokens, const StatementTables& tables, int at) {
    using schema::ColumnType;
    return tokens.at(at - 1).is(Keyword::Like) ||
           (isComparison(tokens.at(at - 1)) && typeEndingAt(tokens, tables, at - 2) == ColumnType::Text) ||
           (isComparison(tokens.at(at + 1)) && typeBeginningAt(tokens, tables, at + 2) == ColumnType::Text);
}

/// The server takes a parameter for what stands beside it, which tells too little of a number: behind a sign,
/// between other numbers, or where a column of whole numbers is compared with a fraction.
QByteArray numberText(const SqlTokens& tokens, const StatementTables& tables, int at) {
    const Token& token = tokens.at(at);
    const bool isText = isTakenForText(tokens, tables, at);
    if (token.kind == TokenKind::Number)
        return isText ? '\'' + token.text.toUtf8() + '\'' : token.text.toUtf8();
    if (isText)
        return "?";
    return token.text.front() == QChar(mark::Decimal) ? "CAST(? AS double precision)" : "CAST(? AS integer)";
}

void writeLiterals(SqlTokens& tokens, const StatementTables& tables) {
    for (int i = 0; i < tokens.size(); ++i) {
        if (tokens.at(i).instead != nullptr) // left out, as the flag behind an ISNULL is
            continue;
        const TokenKind kind = tokens.at(i).kind;
        if (kind == TokenKind::TextMark || kind == TokenKind::DateMark)
            replace(tokens[i], "?");
        else if (kind == TokenKind::NumberMark || kind == TokenKind::Number)
            replace(tokens[i], numberText(tokens, tables, i));
    }
}

/// What is compared with a pattern is a text. Patterns know no sign that guards a wildcard.
void writePatterns(SqlTokens& tokens, const StatementTables& tables) {
    for (int i = 1; i + 1 < tokens.size(); ++i) {
        if (!tokens.at(i).is(Keyword::Like))
            continue;
        tokens[i].instead = "ILIKE";
        if (tokens.at(i + 1).literal > 0)
            tokens[i + 1].after.prepend(" ESCAPE ''");
        const int end = tokens.at(i - 1).is(Keyword::Not) ? i - 2 : i - 1;
        const auto type = typeEndingAt(tokens, tables, end);
        if (!type || type == schema::ColumnType::Text)
            continue;
        tokens[tokens.at(end - 1).is(mark::Point) ? end - 2 : end].before.prepend("CAST(");
        tokens[end].after.append(" AS text)");
    }
}

bool hasOuterJoin(const SqlTokens& tokens) {
    for (int i = 0; i < tokens.size(); ++i)
        if (tokens.at(i).is(Keyword::Left) || tokens.at(i).is(Keyword::Right) ||
            tokens.at(i).is(Keyword::Full))
            return true;
    return false;
}

bool isNeverNull(const SqlTokens& tokens, const StatementTables& tables, int begin, int end) {
    const auto origin = tables.originOf(tokens, begin, end);
    if (!origin || hasOuterJoin(tokens))
        return false;
    return origin->from->table->columns[static_cast<std::size_t>(origin->column)].notNull;
}

/// Nulls come first, and last in a falling order, as on the embedded engine; indexes are made for it. Every
/// indexed text may be Null.
void writeNullOrder(SqlTokens& tokens, const StatementTables& tables) {
    const int order = tokens.find(Keyword::Order);
    if (order < 0)
        return;
    const int limit = tokens.find(Keyword::Limit);
    const int end = limit >= 0 ? limit : tokens.size();
    int begin = order + 2;
    for (int i = begin; i <= end; ++i) {
        if (i < end && tokens.at(i).is(Open))
            i = tokens.at(i).partner;
        if (i < end && !tokens.at(i).is(Comma))
            continue;
        const QStringView word = tokens.at(i - 1).text;
        const bool falls = word.compare(QLatin1String("DESC"), Qt::CaseInsensitive) == 0;
        const bool rises = word.compare(QLatin1String("ASC"), Qt::CaseInsensitive) == 0;
        const int last = falls || rises ? i - 2 : i - 1;
        if (i > begin && !isNeverNull(tokens, tables, begin, last)) {
            const QByteArray nulls = falls ? " NULLS LAST" : " NULLS FIRST";
            const QByteArray part = indexedOrder(tokens, tables, begin, last);
            if (!part.isEmpty())
                tokens[begin].before.prepend(part + (falls ? " DESC" : "") + nulls + ", ");
            tokens[i - 1].after += nulls;
        }
        begin = i + 1;
    }
}

/// A host, and its port where one stands behind a colon.
std::pair<QString, QString> hostAndPort(const QString& address) {
    const qsizetype colon = address.lastIndexOf(QLatin1Char(':'));
    const QString port = address.sliced(colon + 1);
    const bool isNumber = colon >= 0 && !port.isEmpty() && std::ranges::all_of(port, [](QChar c) {
                              return c >= QLatin1Char('0') && c <= QLatin1Char('9');
                          });
    return isNumber ? std::pair(address.first(colon), port) : std::pair(address, QString());
}

/// The driver takes a word that it does not know for no encryption, even one in capital letters.
QString knownSslMode(const QString& chosen) {
    constexpr std::array modes{"disable", "allow", "prefer", "require", "verify-ca", "verify-full"};
    const QString mode = chosen.toLower();
    return std::ranges::find(modes, mode, [](const char* word) { return QLatin1String(word); }) != modes.end()
               ? mode
               : QStringLiteral("require");
}

/// Values hold no semicolon: ours are divided by it as well. The driver takes brackets for a password only.
QString entry(const char* key, const QString& value) {
    return value.isEmpty() ? QString() : QStringLiteral("%1=%2;").arg(QLatin1String(key), value);
}

} // namespace

void PostgresDialect::write(SqlTokens& tokens, const StatementTables& tables) const {
    requireNamedTables(tokens, tables);
    writeNullOrder(tokens, tables);
    compareIndexedParts(tokens, tables);
    writeNames(tokens);
    writeLiterals(tokens, tables);
    writePatterns(tokens, tables);
}

QString PostgresDialect::name() const {
    return QStringLiteral("PostgreSQL");
}

QString PostgresDialect::driverString(const QString& connectionString) const {
    const auto value = [&](const char* key) { return connectionValue(connectionString, QLatin1String(key)); };
    const auto [host, port] = hostAndPort(value("Data Source"));
    const bool isSocket = host.isEmpty() || host.startsWith(QLatin1Char('/'));
    const QString sslMode = isSocket ? QString() : knownSslMode(value("SSLMode"));
    const QString secret = value("Password");
    const QString password = secret.isEmpty() ? secret : QLatin1Char('{') + secret + QLatin1Char('}');
    // A failed statement takes back itself alone, also within a transaction. A network that goes away in the
    // middle holds the program up for ten seconds, rather than for a quarter of an hour.
    return QStringLiteral("Driver={PostgreSQL Unicode};UseServerSidePrepare=1;Protocol=7.4-2;LFConversion=0;"
                          "UseDeclareFetch=0;BoolsAsChar=0;"
                          "pqopt={tcp_user_timeout=10000 keepalives_idle=10 keepalives_interval=5 "
                          "keepalives_count=2};") +
           entry("Servername", host) + entry("Port", port) + entry("Database", value("Initial Catalog")) +
           entry("SSLmode", sslMode) + entry("UID", value("User ID")) + entry("PWD", password);
}

std::vector<QByteArray> PostgresDialect::settings(std::chrono::milliseconds busyTimeout) const {
    const auto wait = std::max<qint64>(busyTimeout.count(), 1); // 0 would wait for ever
    return {"SET lock_timeout = " + QByteArray::number(wait)};
}

QByteArray PostgresDialect::returningKey(const QByteArray& insert, const schema::Table& table) const {
    return insert + " RETURNING " + quoted(table.keyColumn);
}

QByteArray PostgresDialect::locked(const QByteArray& select) const {
    return select + " FOR UPDATE";
}

QByteArray PostgresDialect::firstRows(const QByteArray& select, int most) const {
    return select + " LIMIT " + QByteArray::number(most);
}

QByteArray PostgresDialect::dataVersion() const {
    return "SELECT CAST(pg_current_snapshot() AS text)";
}

QByteArray PostgresDialect::columns() const {
    return "SELECT CAST(t.relname AS text), CAST(c.attname AS text) FROM pg_catalog.pg_class t "
           "JOIN pg_catalog.pg_attribute c ON c.attrelid = t.oid "
           "WHERE t.relkind = 'r' AND c.attnum > 0 AND NOT c.attisdropped AND pg_table_is_visible(t.oid) AND "
           "t.relnamespace <> CAST('pg_catalog' AS regnamespace)";
}

} // namespace tarnwell::data
