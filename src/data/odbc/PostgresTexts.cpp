#include "data/odbc/PostgresTexts.h"

#include "data/sql/SqlWriter.h"

#include <algorithm>
#include <array>

namespace tarnwell::data {

namespace {

bool isIndexed(const schema::Table& table, const schema::Column& column) {
    return column.type == schema::ColumnType::Text &&
           std::ranges::any_of(table.indexes, [&](const schema::Index& index) {
               return std::ranges::find(index.columns, column.name) != index.columns.end();
           });
}

/// The indexed text column that the tokens name, as the engine reads it; else empty.
QByteArray indexedColumn(const SqlTokens& tokens, const StatementTables& tables, int begin, int end) {
    const auto origin = tables.originOf(tokens, begin, end);
    if (!origin)
        return {};
    const schema::Table& table = *origin->from->table;
    if (!isIndexed(table, table.columns[static_cast<std::size_t>(origin->column)]))
        return {};
    const QByteArray name = engineName(tokens.at(end).name());
    return begin == end ? name : engineName(tokens.at(begin).name()) + '.' + name;
}

/// How parts compare where wholes do.
QByteArray partsComparison(const Token& token) {
    static constexpr std::array<std::pair<const char*, const char*>, 5> comparisons{
        {{"=", "="}, {">=", ">="}, {">", ">="}, {"<=", "<="}, {"<", "<="}}};
    for (const auto& [wholes, parts] : comparisons)
        if (token.is(QLatin1String(wholes)))
            return parts;
    return {};
}

/// Whether what begins behind this token is a whole side of a comparison.
bool beginsComparison(const Token& token) {
    return token.is(mark::Open) || token.is(Keyword::Where) || token.is(Keyword::And) ||
           token.is(Keyword::Or) || token.is(Keyword::Not) || token.is(Keyword::On) ||
           token.is(Keyword::Having);
}

void compareIndexedPart(SqlTokens& tokens, const StatementTables& tables, int literal) {
    const QByteArray comparison = partsComparison(tokens.at(literal - 1));
    const int end = literal - 2;
    const int begin = tokens.at(end - 1).is(mark::Point) ? end - 2 : end;
    const Token& next = tokens.at(literal + 1);
    if (comparison.isEmpty() || !beginsComparison(tokens.at(begin - 1)) ||
        (next.kind == TokenKind::Symbol && !next.is(mark::Close)))
        return;
    const QByteArray column = indexedColumn(tokens, tables, begin, end);
    if (column.isEmpty())
        return;
    tokens[begin].before.prepend('(');
    tokens[literal].after += " AND " + indexedPart(column) + comparison + indexedPart("?") + ')';
    tokens[literal].isTwice = true;
}

/// Whether a column of that name may be sorted by though it is not selected as it is.
bool sortsByStored(const SqlTokens& tokens, const QString& name) {
    if (tokens.at(1).is(Keyword::Distinct) || tokens.find(Keyword::Group) >= 0 ||
        tokens.find(Keyword::Union) >= 0 || tokens.find(Keyword::Except) >= 0 ||
        tokens.find(Keyword::Intersect) >= 0)
        return false;
    const int from = tokens.find(Keyword::From);
    for (int i = 1; i < from; ++i) // A computed column of that name goes before the stored one.
        if (tokens.at(i - 1).is(Keyword::As) && tokens.at(i).name().compare(name, Qt::CaseInsensitive) == 0)
            return false;
    return true;
}

} // namespace

QByteArray indexedPart(const QByteArray& text) {
    // Of the longest letters two such parts fit into an index.
    return "CAST(left(" + text + ", 200) AS citext)";
}

QByteArray indexedOrder(const SqlTokens& tokens, const StatementTables& tables, int begin, int end) {
    const QByteArray column = indexedColumn(tokens, tables, begin, end);
    return column.isEmpty() || !sortsByStored(tokens, tokens.at(end).name().toString()) ? QByteArray()
                                                                                        : indexedPart(column);
}

void compareIndexedParts(SqlTokens& tokens, const StatementTables& tables) {
    if (!tokens.at(0).is(Keyword::Select))
        return;
    for (int i = 2; i < tokens.size(); ++i)
        if (tokens.at(i).kind == TokenKind::TextMark)
            compareIndexedPart(tokens, tables, i);
}

} // namespace tarnwell::data
