#include "data/sql/TextJoins.h"

namespace tarnwell::data {

namespace {

bool isFunctionName(const Token& token) {
    return token.kind == TokenKind::Word &&
           (token.isName() || token.is(Keyword::Min) || token.is(Keyword::Max) || token.is(Keyword::Count) ||
            token.is(Keyword::Sum) || token.is(Keyword::Avg) || token.is(Keyword::Total));
}

/// Whether an operand can end with this token.
bool endsOperand(const Token& token) {
    return token.isName() || token.literal > 0 || token.kind == TokenKind::Number || token.is(mark::Close) ||
           token.is(Keyword::True) || token.is(Keyword::False);
}

/// An operand is a literal, a name with its qualifier, a call, or what stands in parentheses.
class Joiner {
public:
    Joiner(SqlTokens& tokens, const StatementTables& tables) : m_tokens(tokens), m_tables(tables) {}

    void rewritePlus() {
        for (int i = 1; i < m_tokens.size(); ++i) {
            if (!m_tokens.at(i).is(mark::Plus) || !endsOperand(m_tokens.at(i - 1)))
                continue;
            const int begin = operandBegin(i - 1);
            if (isText(begin, i - 1) || m_tokens.at(begin - 1).joinsText || isText(i + 1, operandEnd(i + 1)))
                join(i);
        }
    }

    /// "&" binds weaker than "+": an operand of it is a whole chain of sums.
    void rewriteAmpersand() {
        for (int i = 1; i + 1 < m_tokens.size(); ++i) {
            if (!m_tokens.at(i).is(mark::Ampersand) || !endsOperand(m_tokens.at(i - 1)))
                continue;
            int begin = operandBegin(i - 1);
            while (m_tokens.at(begin - 1).is(mark::Plus) && begin > 1)
                begin = operandBegin(begin - 2);
            int end = operandEnd(i + 1);
            while (m_tokens.at(end + 1).is(mark::Plus) && end + 2 < m_tokens.size())
                end = operandEnd(end + 2);
            if (!m_tokens.at(begin - 1).is(
                    mark::Ampersand)) // Else it was the right operand of the one before.
                emptyForNull(begin, i - 1);
            emptyForNull(i + 1, end);
            join(i);
        }
    }

private:
    [[nodiscard]] int operandEnd(int begin) const {
        if (m_tokens.at(begin).is(mark::Open))
            return m_tokens.at(begin).partner;
        int end = begin;
        while (m_tokens.at(end + 1).is(mark::Point) && m_tokens.at(end + 2).isName())
            end += 2;
        if (isFunctionName(m_tokens.at(end)) && m_tokens.at(end + 1).is(mark::Open))
            end = m_tokens.at(end + 1).partner;
        return end;
    }

    [[nodiscard]] int operandBegin(int end) const {
        if (m_tokens.at(end).is(mark::Close)) {
            const int open = m_tokens.at(end).partner;
            return isFunctionName(m_tokens.at(open - 1)) ? open - 1 : open;
        }
        int begin = end;
        while (m_tokens.at(begin - 1).is(mark::Point) && begin > 1)
            begin -= 2;
        return begin;
    }

    /// Counts and sums are numbers whatever they are of; other calls have the type of what they are given.
    [[nodiscard]] bool isText(int begin, int end) const {
        const Token& first = m_tokens.at(begin);
        if (first.kind == TokenKind::TextMark)
            return true;
        if (first.is(mark::Open))
            return holdsText(begin, end);
        if (m_tokens.at(end).is(mark::Close))
            return (first.isName() || first.is(Keyword::Min) || first.is(Keyword::Max)) &&
                   holdsText(begin + 1, end);
        return m_tables.columnType(m_tokens, begin, end) == schema::ColumnType::Text;
    }

    /// Any operand between the two parentheses is text.
    [[nodiscard]] bool holdsText(int open, int close) const {
        for (int i = open + 1; i < close; i = operandEnd(i) + 1)
            if (m_tokens.at(i).joinsText || isText(i, operandEnd(i)))
                return true;
        return false;
    }

    void join(int at) {
        m_tokens[at].instead = "||";
        m_tokens[at].joinsText = true;
    }

    void emptyForNull(int begin, int end) {
        m_tokens[begin].before.prepend("coalesce(");
        m_tokens[end].after.append(",'')");
    }

    SqlTokens& m_tokens;
    const StatementTables& m_tables;
};

} // namespace

void rewriteTextJoins(SqlTokens& tokens, const StatementTables& tables) {
    Joiner joiner(tokens, tables);
    joiner.rewritePlus();
    joiner.rewriteAmpersand();
}

} // namespace tarnwell::data
