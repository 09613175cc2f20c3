#include "data/odbc/SqlServerWriter.h"

#include "data/RunTimeError.h"
#include "data/odbc/DialectParts.h"
#include "data/sql/SortedBy.h"
#include "data/sql/SqlWriter.h"
#include "data/sql/StatementShape.h"

#include <algorithm>
#include <array>

namespace tarnwell::data {

namespace {

using schema::ColumnType;

/// The length that the server counts leaves blanks at the end out.
constexpr std::array sqlServerFunctions{
    ServerFunction{"abs", "ABS"},       ServerFunction{"coalesce", "COALESCE"},
    ServerFunction{"lower", "LOWER"},   ServerFunction{"ltrim", "LTRIM"},
    ServerFunction{"nullif", "NULLIF"}, ServerFunction{"replace", "REPLACE"},
    ServerFunction{"rtrim", "RTRIM"},   ServerFunction{"substr", "SUBSTRING"},
    ServerFunction{"upper", "UPPER"},   ServerFunction{"length", "(LEN", "+ N'.'", " - 1)"}};

[[noreturn]] void refuseSecond(const Token& token) {
    raise(Failure::SyntaxError, QStringLiteral("a second statement begins here: %1").arg(token.text));
}

bool joinsSelects(const Token& token) {
    return token.is(Keyword::Union) || token.is(Keyword::Except) || token.is(Keyword::Intersect);
}

/// Whether a SELECT at `at` belongs to the statement: it stands in parentheses, behind a UNION, or gives an
/// INSERT its rows.
bool isInnerSelect(const SqlTokens& tokens, int at) {
    const Token& before = tokens.at(at - 1);
    const bool all = before.text.compare(QLatin1String("ALL"), Qt::CaseInsensitive) == 0;
    if (before.is(mark::Open) || joinsSelects(all ? tokens.at(at - 2) : before))
        return true;
    return tokens.at(0).is(Keyword::Insert) && tokens.find(Keyword::Select) == at &&
           tokens.find(Keyword::Values) < 0;
}

/// The server divides statements by nothing but the word that the next one begins with.
void requireOneStatement(const SqlTokens& tokens) {
    for (int i = 1; i < tokens.size(); ++i) {
        const Token& token = tokens.at(i);
        switch (token.keyword) {
        case Keyword::SchemaChange:
        case Keyword::Insert:
        case Keyword::Update:
        case Keyword::Delete:
            refuseSecond(token);
        case Keyword::Select:
            if (!isInnerSelect(tokens, i))
                refuseSecond(token);
            break;
        case Keyword::Set:
            if (!tokens.at(0).is(Keyword::Update) || tokens.find(Keyword::Set) != i)
                refuseSecond(token);
            break;
        case Keyword::Into: // in a SELECT it makes a table
            if (!tokens.at(0).is(Keyword::Insert) || i != 1)
                raise(Failure::PermissionDenied, token.text.toString());
            break;
        default:
            break;
        }
    }
}

/// The server's own views, and the tables of other catalogs, which stand behind two points.
void refuseForeignNames(const SqlTokens& tokens) {
    for (int i = 0; i < tokens.size(); ++i) {
        const Token& token = tokens.at(i);
        if (token.isName() && token.name().startsWith(QLatin1String("sys"), Qt::CaseInsensitive))
            raise(Failure::PermissionDenied, token.name().toString());
        if (token.is(mark::Point) && (tokens.at(i + 1).is(mark::Point) || tokens.at(i + 2).is(mark::Point)))
            raise(Failure::PermissionDenied, tokens.at(i - 1).name().toString());
    }
}

bool isSelectedAs(const SqlTokens& tokens, int from, const QStringView name) {
    for (int i = 2; i < from; ++i)
        if (tokens.at(i - 1).is(Keyword::As) && tokens.at(i).name().compare(name, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

/// A column is named with its table, since the server would look for its bare name among what is selected
/// and refuse one that is selected twice, as a key is. It also refuses to sort by one column twice.
void qualifySorting(SqlTokens& tokens, const StatementTables& tables) {
    for (int i = 0; i < tokens.size(); ++i)
        if (joinsSelects(tokens.at(i)))
            return;
    std::vector<StatementTables::Origin> before;
    for (const SortedBy& element : sortedBy(tokens)) {
        const auto origin = tables.originOf(tokens, element.begin, element.end - 1);
        const bool isBare = element.end == element.begin + 1;
        if (!origin || (isBare && isSelectedAs(tokens, tables.from(), tokens.at(element.begin).name())))
            continue;
        const bool isKnown = std::ranges::any_of(before, [&](const StatementTables::Origin& other) {
            return other.from == origin->from && other.column == origin->column;
        });
        before.push_back(*origin);
        if (isKnown)
            for (int i = element.begin - 1; i < element.next; ++i)
                tokens[i].drop();
        else if (isBare)
            tokens[element.begin].before += engineName(origin->from->alias) + '.';
    }
}

/// A part that is not text, as one.
void writeAsText(SqlTokens& tokens, const StatementTables& tables, int begin, int end) {
    const auto type = tables.columnType(tokens, begin, end);
    if (!type || type == ColumnType::Text)
        return;
    tokens[begin].before += "CAST(";
    tokens[end].after.prepend(" AS nvarchar(max))");
}

void writeTextParts(SqlTokens& tokens, const StatementTables& tables) {
    for (int i = 1; i + 1 < tokens.size(); ++i) {
        if (!tokens.at(i).joinsText)
            continue;
        tokens[i].instead = "+";
        const int left = tokens.at(i - 2).is(mark::Point) ? i - 3 : i - 1;
        if (!tokens.at(left - 1).joinsText) // Else it was the right part of the one before.
            writeAsText(tokens, tables, left, i - 1);
        writeAsText(tokens, tables, i + 1, tokens.at(i + 2).is(mark::Point) ? i + 3 : i + 1);
    }
}

/// In a pattern of the server [ begins a list of letters; in ours it is one.
void guardPatterns(SqlTokens& tokens) {
    for (int i = 0; i + 1 < tokens.size(); ++i)
        if (tokens.at(i).is(Keyword::Like) && tokens.at(i + 1).literal > 0) {
            tokens[i + 1].before += "REPLACE(";
            tokens[i + 1].after.prepend(", N'[', N'[[]')");
        }
}

void writeLimit(SqlTokens& tokens) {
    for (int i = 0; i + 1 < tokens.size(); ++i)
        if (tokens.at(i).is(Keyword::Limit)) {
            tokens[i].instead = "OFFSET 0 ROWS FETCH NEXT";
            tokens[i + 1].after += " ROWS ONLY";
        }
}

QByteArray literalText(const Token& token, bool isText) {
    switch (token.kind) {
    case TokenKind::Number:
        return isText ? "N'" + token.text.toUtf8() + '\'' : token.text.toUtf8();
    case TokenKind::NumberMark:
        if (!isText)
            return token.text.front() == QChar(mark::Decimal) ? "CAST(? AS float)" : "CAST(? AS int)";
        break;
    case TokenKind::DateMark:
        if (!isText)
            return "CAST(? AS datetime2(0))";
        break;
    default:
        break;
    }
    return "?";
}

/// Values travel as text. What they stand for is said with them, since between two of them the server would
/// not know.
void writeValues(SqlTokens& tokens, const StatementTables& tables) {
    for (int i = 0; i < tokens.size(); ++i) {
        const Token& token = tokens.at(i);
        if (token.literal == 0 && (token.kind != TokenKind::Number || token.instead != nullptr))
            continue;
        const bool isText =
            isTakenForText(tokens, tables, i) || tokens.at(i - 1).joinsText || tokens.at(i + 1).joinsText;
        writeInstead(tokens[i], literalText(token, isText));
    }
}

} // namespace

void writeForSqlServer(SqlTokens& tokens, const StatementTables& tables) {
    requireOneStatement(tokens);
    refuseForeignNames(tokens);
    qualifySorting(tokens, tables);
    writeTextParts(tokens, tables);
    guardPatterns(tokens);
    writeLimit(tokens);
    writeValues(tokens, tables);
    writeServerNames(tokens, sqlServerFunctions);
}

} // namespace tarnwell::data
