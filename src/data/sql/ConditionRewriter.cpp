#include "data/sql/ConditionRewriter.h"

#include <optional>

namespace tarnwell::data {

namespace {

/// A parenthesis starts a condition where one is expected; that of a call does not.
bool startsCondition(const SqlTokens& tokens, int before) {
    const Token& token = tokens.at(before);
    switch (token.keyword) {
    case Keyword::Where:
    case Keyword::And:
    case Keyword::Or:
    case Keyword::Not:
    case Keyword::On:
    case Keyword::Having:
        return true;
    default:
        return token.is(mark::Open) && (before == 0 || startsCondition(tokens, before - 1));
    }
}

bool endsCondition(const Token& token) {
    switch (token.keyword) {
    case Keyword::And:
    case Keyword::Or:
    case Keyword::Where:
    case Keyword::Inner:
    case Keyword::Left:
    case Keyword::Right:
    case Keyword::Join:
    case Keyword::Group:
    case Keyword::Having:
    case Keyword::Order:
    case Keyword::Limit:
    case Keyword::Union:
        return true;
    default:
        return token.kind == TokenKind::End || token.is(mark::Close);
    }
}

struct Flag {
    bool yes;
    int length; ///< Tokens.
};

/// True, False, -1 or 0 at this place.
std::optional<Flag> flagAt(const SqlTokens& tokens, int at) {
    const Token& token = tokens.at(at);
    if (token.is(Keyword::True) || token.is(Keyword::False))
        return Flag{token.is(Keyword::True), 1};
    if (token.kind == TokenKind::Number && token.text == QLatin1String("0"))
        return Flag{false, 1};
    if (token.is(QLatin1String("-")) && tokens.at(at + 1).text == QLatin1String("1"))
        return Flag{true, 2};
    return std::nullopt;
}

/// A bare IS NULL is what an index answers; a comparison with a computed yes/no would read every row.
void rewriteIsNull(SqlTokens& tokens, int at) {
    const int close = tokens.at(at + 1).partner;
    const Token& comparison = tokens.at(close + 1);
    if (comparison.is(mark::Equals) || comparison.is(mark::Differs)) {
        const std::optional<Flag> flag = flagAt(tokens, close + 2);
        if (flag && endsCondition(tokens.at(close + 2 + flag->length))) {
            const bool wanted = flag->yes == comparison.is(mark::Equals);
            for (int i = close + 1; i < close + 2 + flag->length; ++i)
                tokens[i].drop();
            tokens[at].instead = "(";
            tokens[close].after = wanted ? " IS NULL)" : " IS NOT NULL)";
            return;
        }
    }
    // As a value it is a yes/no, which the engine's own truth of 1 is not.
    const bool alone = startsCondition(tokens, at - 1) && endsCondition(comparison);
    tokens[at].instead = alone ? "(" : "(CASE WHEN ";
    tokens[close].after = alone ? " IS NULL)" : " IS NULL THEN -1 ELSE 0 END)";
}

bool isKey(const Token& token) {
    return token.kind == TokenKind::NumberMark || token.kind == TokenKind::Number;
}

bool sameColumn(const SqlTokens& tokens, int a, int b, int length) {
    for (int i = 0; i < length; ++i)
        if (tokens.at(a + i).text.compare(tokens.at(b + i).text, Qt::CaseInsensitive) != 0)
            return false;
    return true;
}

/// Only between its own parentheses is such a chain whole: no AND can take one of its terms away.
void rewriteKeyList(SqlTokens& tokens, int open) {
    const int close = tokens.at(open).partner;
    const int first = open + 1;
    const int nameLength = tokens.at(first + 1).is(QLatin1String(".")) ? 3 : 1;
    const int term = nameLength + 2; // Name, "=", key.
    if ((close - first + 1) % (term + 1) != 0 || close - first <= term || !tokens.at(first).isName())
        return;
    for (int at = first; at < close; at += term + 1)
        if (!sameColumn(tokens, first, at, nameLength) || !tokens.at(at + nameLength).is(mark::Equals) ||
            !isKey(tokens.at(at + nameLength + 1)) ||
            (at + term < close && !tokens.at(at + term).is(Keyword::Or)))
            return;
    tokens[first + nameLength].instead = "IN (";
    for (int at = first + term; at < close; at += term + 1) {
        tokens[at].instead = ",";
        for (int i = 1; i <= nameLength + 1; ++i)
            tokens[at + i].drop();
    }
    tokens[close].before = ")";
}

} // namespace

void rewriteConditions(SqlTokens& tokens) {
    for (int i = 0; i < tokens.size(); ++i) {
        if (tokens.at(i).is(Keyword::IsNull) && tokens.at(i + 1).is(mark::Open))
            rewriteIsNull(tokens, i);
        if (tokens.at(i).is(Keyword::True) && tokens.at(i).instead == nullptr)
            tokens[i].instead = "-1";
        if (tokens.at(i).is(Keyword::False) && tokens.at(i).instead == nullptr)
            tokens[i].instead = "0";
    }
}

void rewriteKeyLists(SqlTokens& tokens) {
    for (int i = 0; i < tokens.size(); ++i)
        if (tokens.at(i).is(mark::Open))
            rewriteKeyList(tokens, i);
}

} // namespace tarnwell::data
