#include "data/sql/SqlTokens.h"

#include "data/RunTimeError.h"
#include "data/sql/StatementShape.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tarnwell::data {

namespace {

struct KeywordEntry {
    std::string_view word;
    Keyword keyword;
};

constexpr std::array keywords{
    KeywordEntry{"ALTER", Keyword::SchemaChange},
    KeywordEntry{"ANALYZE", Keyword::SchemaChange},
    KeywordEntry{"AND", Keyword::And},
    KeywordEntry{"AS", Keyword::As},
    KeywordEntry{"ATTACH", Keyword::SchemaChange},
    KeywordEntry{"AVG", Keyword::Avg},
    KeywordEntry{"BEGIN", Keyword::SchemaChange},
    KeywordEntry{"COMMIT", Keyword::SchemaChange},
    KeywordEntry{"COUNT", Keyword::Count},
    KeywordEntry{"CREATE", Keyword::SchemaChange},
    KeywordEntry{"CROSS", Keyword::Cross},
    KeywordEntry{"DELETE", Keyword::Delete},
    KeywordEntry{"DETACH", Keyword::SchemaChange},
    KeywordEntry{"DISTINCT", Keyword::Distinct},
    KeywordEntry{"DROP", Keyword::SchemaChange},
    KeywordEntry{"EXCEPT", Keyword::Except},
    KeywordEntry{"EXEC", Keyword::SchemaChange},
    KeywordEntry{"FALSE", Keyword::False},
    KeywordEntry{"FROM", Keyword::From},
    KeywordEntry{"FULL", Keyword::Full},
    KeywordEntry{"GRANT", Keyword::SchemaChange},
    KeywordEntry{"GROUP", Keyword::Group},
    KeywordEntry{"HAVING", Keyword::Having},
    KeywordEntry{"INNER", Keyword::Inner},
    KeywordEntry{"INSERT", Keyword::Insert},
    KeywordEntry{"INTERSECT", Keyword::Intersect},
    KeywordEntry{"INTO", Keyword::Into},
    KeywordEntry{"ISNULL", Keyword::IsNull},
    KeywordEntry{"JOIN", Keyword::Join},
    KeywordEntry{"LEFT", Keyword::Left},
    KeywordEntry{"LIKE", Keyword::Like},
    KeywordEntry{"LIMIT", Keyword::Limit},
    KeywordEntry{"MAX", Keyword::Max},
    KeywordEntry{"MIN", Keyword::Min},
    KeywordEntry{"NATURAL", Keyword::Natural},
    KeywordEntry{"NOT", Keyword::Not},
    KeywordEntry{"ON", Keyword::On},
    KeywordEntry{"OR", Keyword::Or},
    KeywordEntry{"ORDER", Keyword::Order},
    KeywordEntry{"OUTER", Keyword::Outer},
    KeywordEntry{"PRAGMA", Keyword::SchemaChange},
    KeywordEntry{"REINDEX", Keyword::SchemaChange},
    KeywordEntry{"RELEASE", Keyword::SchemaChange},
    KeywordEntry{"RIGHT", Keyword::Right},
    KeywordEntry{"ROLLBACK", Keyword::SchemaChange},
    KeywordEntry{"SAVEPOINT", Keyword::SchemaChange},
    KeywordEntry{"SELECT", Keyword::Select},
    KeywordEntry{"SET", Keyword::Set},
    KeywordEntry{"SUM", Keyword::Sum},
    KeywordEntry{"TOTAL", Keyword::Total},
    KeywordEntry{"TRUE", Keyword::True},
    KeywordEntry{"UNION", Keyword::Union},
    KeywordEntry{"UPDATE", Keyword::Update},
    KeywordEntry{"VACUUM", Keyword::SchemaChange},
    KeywordEntry{"VALUES", Keyword::Values},
    KeywordEntry{"WHERE", Keyword::Where},
};
static_assert(std::ranges::is_sorted(keywords, {}, &KeywordEntry::word));

/// Looked up once for each word; from there on words are compared as numbers.
Keyword keywordOf(QStringView word) {
    static constexpr qsizetype LongestKeyword = 9;
    if (word.size() > LongestKeyword)
        return Keyword::None;
    std::array<char, LongestKeyword> upper{};
    for (qsizetype i = 0; i < word.size(); ++i) {
        const char16_t letter = word[i].unicode() & ~0x20; // Only letters become letters by this.
        if (letter < u'A' || letter > u'Z')
            return Keyword::None;
        upper[static_cast<std::size_t>(i)] = static_cast<char>(letter);
    }
    const std::string_view wanted(upper.data(), static_cast<std::size_t>(word.size()));
    const auto found = std::ranges::lower_bound(keywords, wanted, {}, &KeywordEntry::word);
    return found != keywords.end() && found->word == wanted ? found->keyword : Keyword::None;
}

bool isBlank(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}
bool isDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}
bool isWordCharacter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || isDigit(c) || c == u'_' || c > 127;
}

/// Splits a shape, whose characters were all judged when the literals were taken out.
class Splitter {
public:
    explicit Splitter(QStringView shape) : m_shape(shape) {}

    bool next(Token& token) {
        while (m_at < m_shape.size() && isBlank(here()))
            ++m_at;
        if (m_at == m_shape.size())
            return false;
        const qsizetype begin = m_at;
        token.kind = kindHere();
        m_at += lengthOf(token.kind);
        token.text = m_shape.sliced(begin, m_at - begin);
        return true;
    }

private:
    [[nodiscard]] char16_t here(qsizetype ahead = 0) const {
        return m_at + ahead < m_shape.size() ? m_shape[m_at + ahead].unicode() : u'\0';
    }
    [[nodiscard]] TokenKind kindHere() const {
        switch (const char16_t character = here()) {
        case mark::Text:
            return TokenKind::TextMark;
        case mark::Number:
        case mark::Decimal:
            return TokenKind::NumberMark;
        case mark::Date:
            return TokenKind::DateMark;
        case u'[':
            return TokenKind::Bracketed;
        default:
            if (isDigit(character) || (character == u'.' && isDigit(here(1))))
                return TokenKind::Number;
            return isWordCharacter(character) ? TokenKind::Word : TokenKind::Symbol;
        }
    }
    [[nodiscard]] qsizetype lengthOf(TokenKind kind) const {
        qsizetype length = 1;
        if (kind == TokenKind::Bracketed)
            return m_shape.indexOf(u']', m_at) - m_at + 1;
        if (kind == TokenKind::Word)
            while (isWordCharacter(here(length)))
                ++length;
        if (kind == TokenKind::Number) // A sign belongs to it behind an exponent's letter only.
            while (isWordCharacter(here(length)) || here(length) == u'.' ||
                   ((here(length) == u'+' || here(length) == u'-') && (here(length - 1) | 0x20) == u'e'))
                ++length;
        if (kind == TokenKind::Symbol) {
            const bool two = (here() == u'<' && (here(1) == u'=' || here(1) == u'>')) ||
                             (here() == u'>' && here(1) == u'=');
            return two ? 2 : 1;
        }
        return length;
    }

    QStringView m_shape;
    qsizetype m_at = 0;
};

/// Names are plain nearly always, and then need no conversion of their own.
void append(QByteArray& out, QStringView text) {
    const bool plain = std::ranges::all_of(text, [](QChar c) { return c.unicode() < 128; });
    if (!plain) {
        out += text.toUtf8();
        return;
    }
    for (const QChar character : text)
        out += static_cast<char>(character.unicode());
}

} // namespace

SqlTokens::SqlTokens(QStringView shape) {
    m_tokens.reserve(64);
    int literals = 0;
    Splitter splitter(shape);
    for (Token token; splitter.next(token); token = Token()) {
        const bool afterPoint = !m_tokens.empty() && m_tokens.back().is(QLatin1String("."));
        if (token.kind == TokenKind::Word && !afterPoint)
            token.keyword = keywordOf(token.text);
        if (token.kind == TokenKind::TextMark || token.kind == TokenKind::NumberMark ||
            token.kind == TokenKind::DateMark)
            token.literal = ++literals;
        m_tokens.push_back(std::move(token));
    }
    matchParentheses();
}

void SqlTokens::matchParentheses() {
    std::vector<int> open;
    for (int i = 0; i < size(); ++i) {
        if (at(i).is(QLatin1String("(")))
            open.push_back(i);
        if (!at(i).is(QLatin1String(")")))
            continue;
        if (open.empty())
            raise(Failure::SyntaxError, QStringLiteral("a parenthesis is closed that was not opened"));
        (*this)[i].partner = open.back();
        (*this)[open.back()].partner = i;
        open.pop_back();
    }
    if (!open.empty())
        raise(Failure::SyntaxError, QStringLiteral("a parenthesis is not closed"));
}

int SqlTokens::find(Keyword wanted) const {
    for (int i = 0; i < size(); ++i) {
        if (at(i).is(wanted))
            return i;
        if (at(i).is(QLatin1String("(")))
            i = at(i).partner;
    }
    return -1;
}

QByteArray SqlTokens::write(int begin, int end) const {
    QByteArray out;
    static constexpr qsizetype UsualTokenLength = 12;
    out.reserve((end - begin) * UsualTokenLength);
    for (int i = begin; i < end; ++i) {
        const Token& token = at(i);
        out += token.before;
        if (token.instead != nullptr)
            out += token.instead;
        else if (token.literal > 0)
            out += '?' + QByteArray::number(token.literal);
        else
            append(out, token.text);
        out += token.after;
        // A blank behind every token keeps two signs from growing into a comment.
        if (!token.is(QLatin1String(".")) && !at(i + 1).is(QLatin1String(".")))
            out += ' ';
    }
    return out;
}

const Token& SqlTokens::endToken() {
    static const Token end;
    return end;
}

} // namespace tarnwell::data
