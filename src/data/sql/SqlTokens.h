#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <vector>

namespace tarnwell::data {

enum class TokenKind { End, Word, Bracketed, Number, TextMark, NumberMark, DateMark, Symbol };

/// Words with a meaning in the dialect. A word behind a point is a column's name and never one of them.
enum class Keyword {
    None,
    And,
    As,
    Avg,
    Count,
    Cross,
    Delete,
    Distinct,
    Except,
    False,
    From,
    Full,
    Group,
    Having,
    Inner,
    Insert,
    Intersect,
    Into,
    IsNull,
    Join,
    Left,
    Like,
    Limit,
    Max,
    Min,
    Natural,
    Not,
    On,
    Or,
    Order,
    Outer,
    Right,
    SchemaChange, ///< Every word that begins a statement other than those of rows.
    Select,
    Set,
    Sum,
    Total,
    True,
    Union,
    Update,
    Values,
    Where,
};

/// One token of a shape, and how it is written for the engine.
struct Token {
    TokenKind kind = TokenKind::End;
    QStringView text;                ///< As it stands in the shape.
    Keyword keyword = Keyword::None; ///< None for names, and for whatever is not a word.
    int literal = 0;                 ///< Of a mark: which literal it stands for, counted from 1.
    int partner = -1;                ///< Of a parenthesis: where the other one stands.

    // How it is written: what is put in front, what stands in its place, what is put behind.
    QByteArray before;
    const char* instead = nullptr; ///< Null: the token as it is. Empty: nothing.
    QByteArray after;
    bool joinsText = false; ///< An operator whose result is text.
    bool isTwice = false;   ///< A mark whose literal is written twice, one behind the other.

    [[nodiscard]] bool is(Keyword wanted) const { return keyword == wanted; }
    [[nodiscard]] bool is(QLatin1String symbol) const { return kind == TokenKind::Symbol && text == symbol; }
    [[nodiscard]] bool isName() const {
        return kind == TokenKind::Bracketed || (kind == TokenKind::Word && keyword == Keyword::None);
    }
    /// Without brackets.
    [[nodiscard]] QStringView name() const {
        return kind == TokenKind::Bracketed ? text.sliced(1, text.size() - 2) : text;
    }
    /// Leaves the token out of what is written.
    void drop() { instead = ""; }
};

/// Symbols that have a meaning, as a token's text.
namespace mark {
inline constexpr QLatin1String Open("(");
inline constexpr QLatin1String Close(")");
inline constexpr QLatin1String Comma(",");
inline constexpr QLatin1String Point(".");
inline constexpr QLatin1String Star("*");
inline constexpr QLatin1String Plus("+");
inline constexpr QLatin1String Ampersand("&");
inline constexpr QLatin1String Equals("=");
inline constexpr QLatin1String Differs("<>");
} // namespace mark

/// The tokens of a shape; the shape's text must outlive them. Outside of the range stand tokens of kind End.
class SqlTokens {
public:
    /// Raises SyntaxError when parentheses do not match.
    explicit SqlTokens(QStringView shape);

    [[nodiscard]] int size() const { return static_cast<int>(m_tokens.size()); }
    [[nodiscard]] const Token& at(int index) const {
        return index < 0 || index >= size() ? endToken() : m_tokens[static_cast<std::size_t>(index)];
    }
    /// Within the range only.
    [[nodiscard]] Token& operator[](int index) { return m_tokens[static_cast<std::size_t>(index)]; }
    /// Takes the last token away; partners of the others stay right.
    void dropLast() { m_tokens.pop_back(); }

    /// First place of a keyword outside of parentheses, or -1.
    [[nodiscard]] int find(Keyword wanted) const;
    /// The tokens from `begin` up to `end` in the engine's words.
    [[nodiscard]] QByteArray write(int begin, int end) const;

private:
    static const Token& endToken();
    void matchParentheses();

    std::vector<Token> m_tokens;
};

} // namespace tarnwell::data
