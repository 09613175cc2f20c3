#include "data/odbc/PostgresDialect.h"

#include "data/RunTimeError.h"
#include "data/engine/ConnectionString.h"
#include "data/odbc/DialectParts.h"
#include "data/odbc/PostgresTexts.h"
#include "data/schema/Quoted.h"
#include "data/sql/SortedBy.h"
#include "data/sql/StatementShape.h"

#include <algorithm>
#include <array>

namespace tarnwell::data {

namespace {

/// A server has functions that read files, wait or change settings; typed text may call none of them.
constexpr std::array postgresFunctions{
    ServerFunction{"abs", "abs"},         ServerFunction{"coalesce", "coalesce"},
    ServerFunction{"length", "length"},   ServerFunction{"lower", "lower"},
    ServerFunction{"ltrim", "ltrim"},     ServerFunction{"nullif", "nullif"},
    ServerFunction{"replace", "replace"}, ServerFunction{"round", "round"},
    ServerFunction{"rtrim", "rtrim"},     ServerFunction{"substr", "substr"},
    ServerFunction{"trim", "trim"},       ServerFunction{"upper", "upper"}};

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
            writeInstead(tokens[i], "?");
        else if (kind == TokenKind::NumberMark || kind == TokenKind::Number)
            writeInstead(tokens[i], numberText(tokens, tables, i));
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
    for (const SortedBy& element : sortedBy(tokens)) {
        if (isNeverNull(tokens, tables, element.begin, element.end - 1))
            continue;
        const QByteArray nulls = element.falls ? " NULLS LAST" : " NULLS FIRST";
        const QByteArray part = indexedOrder(tokens, tables, element.begin, element.end - 1);
        if (!part.isEmpty())
            tokens[element.begin].before.prepend(part + (element.falls ? " DESC" : "") + nulls + ", ");
        tokens[element.next - 1].after += nulls;
    }
}

/// The driver takes a word that it does not know for no encryption, even one in capital letters.
QString knownSslMode(const QString& chosen) {
    constexpr std::array modes{"disable", "allow", "prefer", "require", "verify-ca", "verify-full"};
    const QString mode = chosen.toLower();
    return std::ranges::find(modes, mode, [](const char* word) { return QLatin1String(word); }) != modes.end()
               ? mode
               : QStringLiteral("require");
}

} // namespace

void PostgresDialect::write(SqlTokens& tokens, const StatementTables& tables) const {
    requireNamedTables(tokens, tables);
    writeNullOrder(tokens, tables);
    compareIndexedParts(tokens, tables);
    writeServerNames(tokens, postgresFunctions);
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
    // A failed statement takes back itself alone, also within a transaction. A network that goes away in the
    // middle holds the program up for ten seconds, rather than for a quarter of an hour.
    return QStringLiteral("Driver={PostgreSQL Unicode};UseServerSidePrepare=1;Protocol=7.4-2;LFConversion=0;"
                          "UseDeclareFetch=0;BoolsAsChar=0;"
                          "pqopt={tcp_user_timeout=10000 keepalives_idle=10 keepalives_interval=5 "
                          "keepalives_count=2};") +
           driverEntry("Servername", host) + driverEntry("Port", port) +
           driverEntry("Database", value("Initial Catalog")) + driverEntry("SSLmode", sslMode) +
           driverEntry("UID", value("User ID")) + driverPassword(value("Password"));
}

std::vector<QByteArray> PostgresDialect::settings(std::chrono::milliseconds busyTimeout) const {
    const auto wait = std::max<qint64>(busyTimeout.count(), 1); // 0 would wait for ever
    // The planner takes a comparison of texts for as cheap as one of numbers, and a page for one on a turning
    // disk: it sorts what an index holds in order. Folding case makes a comparison several times as dear.
    // A workstation that stops in the middle of a write lets go of its rows after a minute. What is committed
    // is on the disk, however the server is set up.
    return {"SELECT set_config('lock_timeout', '" + QByteArray::number(wait) +
            "', false), set_config('idle_in_transaction_session_timeout', '60000', false), "
            "set_config('synchronous_commit', 'on', false), set_config('cpu_operator_cost', '0.01', false), "
            "set_config('random_page_cost', '1.1', false)"};
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

QByteArray PostgresDialect::workstations() const {
    return "SELECT CAST(count(*) AS integer) FROM pg_catalog.pg_stat_activity WHERE datname = "
           "current_database() AND application_name = current_setting('application_name')";
}

QByteArray PostgresDialect::columns() const {
    return "SELECT CAST(t.relname AS text), CAST(c.attname AS text) FROM pg_catalog.pg_class t "
           "JOIN pg_catalog.pg_attribute c ON c.attrelid = t.oid "
           "WHERE t.relkind = 'r' AND c.attnum > 0 AND NOT c.attisdropped AND pg_table_is_visible(t.oid) AND "
           "t.relnamespace <> CAST('pg_catalog' AS regnamespace)";
}

} // namespace tarnwell::data
