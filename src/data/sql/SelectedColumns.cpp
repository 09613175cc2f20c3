#include "data/sql/SelectedColumns.h"

#include "data/RunTimeError.h"
#include "data/sql/SqlWriter.h"

namespace tarnwell::data {

namespace {

/// Tokens from `begin` to `end`, both included.
struct Range {
    int begin;
    int end;
    [[nodiscard]] int size() const { return end - begin + 1; }
};

bool endsList(const Token& token) {
    switch (token.keyword) {
    case Keyword::From:
    case Keyword::Where:
    case Keyword::Group:
    case Keyword::Having:
    case Keyword::Order:
    case Keyword::Limit:
    case Keyword::Union:
    case Keyword::Except:
    case Keyword::Intersect:
        return true;
    default:
        return token.kind == TokenKind::End;
    }
}

/// Calls `visit(Range)` for each element of the select list.
template <class Visitor>
void forEachElement(const SqlTokens& tokens, Visitor visit) {
    int begin = tokens.at(1).is(Keyword::Distinct) ? 2 : 1;
    for (int i = begin;; ++i) {
        const Token& token = tokens.at(i);
        if (token.is(mark::Open)) {
            i = token.partner;
        } else if (token.is(mark::Comma) || endsList(token)) {
            if (i > begin)
                visit(Range{begin, i - 1});
            begin = i + 1;
            if (!token.is(mark::Comma))
                return;
        }
    }
}

/// "*" or "Job.*".
bool isStar(const SqlTokens& tokens, Range element) {
    return tokens.at(element.end).is(mark::Star) &&
           (element.size() == 1 || (element.size() == 3 && tokens.at(element.end - 1).is(mark::Point)));
}

/// Takes an alias off the end of the element and returns it.
QString takeAlias(const SqlTokens& tokens, Range& element) {
    const Token& last = tokens.at(element.end);
    const Token& before = tokens.at(element.end - 1);
    const bool named = before.is(Keyword::As) && last.kind != TokenKind::Symbol;
    const bool follows = last.isName() && (before.isName() || before.is(mark::Close) || before.literal > 0 ||
                                           before.kind == TokenKind::Number || before.is(Keyword::True) ||
                                           before.is(Keyword::False));
    if (element.size() < 2 || (!named && !follows))
        return {};
    element.end -= named ? 2 : 1;
    return last.name().toString();
}

Range withoutParentheses(const SqlTokens& tokens, Range element) {
    while (tokens.at(element.begin).is(mark::Open) && tokens.at(element.begin).partner == element.end)
        element = {element.begin + 1, element.end - 1};
    return element;
}

QString textOf(const SqlTokens& tokens, Range element) {
    QString text;
    for (int i = element.begin; i <= element.end; ++i)
        text += tokens.at(i).literal > 0 ? QStringLiteral("?") : tokens.at(i).text.toString();
    return text;
}

SelectedColumn storedColumn(const NamedTable& from, int column) {
    const schema::Column& stored = from.table->columns[static_cast<std::size_t>(column)];
    return {stored.name, from.alias, from.table, column, stored.type};
}

SelectedColumn columnOf(const SqlTokens& tokens, const StatementTables& tables, Range element) {
    const QString alias = takeAlias(tokens, element);
    const Range bare = withoutParentheses(tokens, element);
    SelectedColumn column;
    if (const auto origin = tables.originOf(tokens, bare.begin, bare.end)) {
        column = storedColumn(*origin->from, origin->column);
    } else {
        column.name = textOf(tokens, element);
        const bool isExtreme =
            tokens.at(bare.begin).is(Keyword::Min) || tokens.at(bare.begin).is(Keyword::Max);
        if (isExtreme && tokens.at(bare.begin + 1).partner == bare.end)
            column.type = tables.columnType(tokens, bare.begin + 2, bare.end - 1);
    }
    if (!alias.isEmpty())
        column.name = alias;
    return column;
}

/// Calls `visit(NamedTable)` for each table whose columns the star stands for.
template <class Visitor>
void forEachStarred(const SqlTokens& tokens, const StatementTables& tables, Range star, Visitor visit) {
    for (const NamedTable& from : tables.list())
        if (star.size() == 1 || tokens.at(star.begin).name().compare(from.alias, Qt::CaseInsensitive) == 0)
            visit(from);
}

void appendColumns(QByteArray& text, const NamedTable& from) {
    const QByteArray qualifier = engineName(from.alias) + ".\"";
    constexpr qsizetype usualNameLength = 16;
    text.reserve(text.size() + std::ssize(from.table->columns) * (qualifier.size() + usualNameLength));
    for (const schema::Column& column : from.table->columns) {
        if (!text.isEmpty())
            text += ", ";
        text += qualifier;
        for (const QChar letter : column.name) // names of the catalogue are plain
            text += static_cast<char>(letter.unicode());
        text += '"';
    }
}

} // namespace

std::vector<SelectedColumn> selectedColumns(const SqlTokens& tokens, const StatementTables& tables) {
    std::vector<SelectedColumn> columns;
    forEachElement(tokens, [&](Range element) {
        if (!isStar(tokens, element)) {
            columns.push_back(columnOf(tokens, tables, element));
            return;
        }
        forEachStarred(tokens, tables, element, [&](const NamedTable& from) {
            for (int i = 0; i < std::ssize(from.table->columns); ++i)
                columns.push_back(storedColumn(from, i));
        });
    });
    return columns;
}

void writeOutStars(SqlTokens& tokens, const StatementTables& tables) {
    forEachElement(tokens, [&](Range element) {
        if (!isStar(tokens, element))
            return;
        QByteArray text;
        forEachStarred(tokens, tables, element, [&](const NamedTable& from) {
            if (from.table == nullptr)
                raise(Failure::NoSuchTable, from.alias);
            appendColumns(text, from);
        });
        if (text.isEmpty() || tables.hasDerivedRows())
            raise(Failure::SyntaxError, QStringLiteral("name the columns instead of \"*\""));
        for (int i = element.begin; i <= element.end; ++i)
            tokens[i].drop();
        tokens[element.begin].before = text;
    });
}

} // namespace tarnwell::data
