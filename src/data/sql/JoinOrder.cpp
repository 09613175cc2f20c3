#include "data/sql/JoinOrder.h"

#include "data/sql/SqlWriter.h"

namespace tarnwell::data {

namespace {

/// Whether "table.column" stands at `at`.
bool isQualified(const SqlTokens& tokens, int at) {
    return tokens.at(at).isName() && tokens.at(at + 1).is(QLatin1String(".")) && tokens.at(at + 2).isName();
}

bool sameName(const Token& one, const Token& other) {
    return one.isName() && other.isName() && one.name().compare(other.name(), Qt::CaseInsensitive) == 0;
}

/// Whether the column that stands at `column` is compared with >= between `begin` and `end`.
bool isBounded(const SqlTokens& tokens, int column, int begin, int end) {
    for (int i = begin; i < end; ++i)
        if (isQualified(tokens, i) && tokens.at(i + 3).is(QLatin1String(">=")) &&
            sameName(tokens.at(i), tokens.at(column)) && sameName(tokens.at(i + 2), tokens.at(column + 2)))
            return true;
    return false;
}

void write(Token& token, const QByteArray& text) {
    token.drop();
    token.before = text;
}

} // namespace

void orderJoin(SqlTokens& tokens) {
    const int from = tokens.find(Keyword::From);
    const int where = tokens.find(Keyword::Where);
    const int order = tokens.find(Keyword::Order);
    const bool twoTables = from >= 0 && where == from + 4 && tokens.at(from + 1).isName() &&
                           tokens.at(from + 2).is(QLatin1String(",")) && tokens.at(from + 3).isName();
    const int sortedBy = order + 2; // Behind ORDER BY.
    if (!twoTables || order < where || !isQualified(tokens, sortedBy) ||
        !sameName(tokens.at(sortedBy), tokens.at(from + 3)) || !isBounded(tokens, sortedBy, where, order))
        return;
    for (int i = 0; i < from; ++i)
        if (tokens.at(i).is(QLatin1String("*")))
            return;
    // CROSS JOIN makes the engine keep the order.
    write(tokens[from + 2], "CROSS JOIN");
    const QByteArray first = engineName(tokens.at(from + 1).name());
    write(tokens[from + 1], engineName(tokens.at(from + 3).name()));
    write(tokens[from + 3], first);
}

} // namespace tarnwell::data
