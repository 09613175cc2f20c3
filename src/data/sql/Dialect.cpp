#include "data/sql/Dialect.h"

#include "data/RunTimeError.h"
#include "data/schema/Quoted.h"
#include "data/sql/ConditionRewriter.h"
#include "data/sql/JoinOrder.h"
#include "data/sql/ResultColumns.h"
#include "data/sql/SelectedColumns.h"
#include "data/sql/SortedBy.h"
#include "data/sql/SqlTokens.h"
#include "data/sql/SqlWriter.h"
#include "data/sql/StatementShape.h"
#include "data/sql/StatementTables.h"
#include "data/sql/TextJoins.h"

#include <algorithm>
#include <unordered_map>

namespace tarnwell::data {

namespace {

// A statement longer than this lists marked keys: it is not sent twice, and its shape would push out others.
constexpr qsizetype LongestCachedStatement = 4000;
constexpr std::size_t MostShapes = 1000;

StatementKind kindOf(const SqlTokens& tokens) {
    const Token& first = tokens.at(0);
    switch (first.keyword) {
    case Keyword::Select:
        if (tokens.size() == 1 || tokens.at(1).is(Keyword::From))
            raise(Failure::SyntaxError, QStringLiteral("nothing is selected"));
        return StatementKind::Select;
    case Keyword::Insert:
        return StatementKind::Insert;
    case Keyword::Update:
        return StatementKind::Update;
    case Keyword::Delete:
        return StatementKind::Delete;
    case Keyword::SchemaChange:
        raise(Failure::PermissionDenied, first.text.toString());
    default:
        raise(Failure::SyntaxError,
              QStringLiteral("expected DELETE, INSERT, SELECT or UPDATE: %1").arg(first.text));
    }
}

/// One semicolon may end a statement; whatever follows it would be a second one.
void dropSemicolon(SqlTokens& tokens) {
    const QLatin1String semicolon(";");
    if (tokens.at(tokens.size() - 1).is(semicolon))
        tokens.dropLast();
    for (int i = 0; i < tokens.size(); ++i)
        if (tokens.at(i).is(semicolon))
            raise(Failure::SyntaxError, QStringLiteral("characters found after the end of the statement"));
    if (tokens.size() == 0)
        raise(Failure::SyntaxError, QStringLiteral("the statement is empty"));
}

bool isAggregate(const SqlTokens& tokens, int at) {
    switch (tokens.at(at).keyword) {
    case Keyword::Avg:
    case Keyword::Count:
    case Keyword::Max:
    case Keyword::Min:
    case Keyword::Sum:
    case Keyword::Total:
        return tokens.at(at + 1).is(QLatin1String("("));
    default:
        return false;
    }
}

/// Whether each row of a select stands for one stored row of each of its tables.
bool rowsAreStored(const SqlTokens& tokens, const StatementTables& tables) {
    if (tables.from() < 0 || tables.hasDerivedRows() || tokens.at(1).is(Keyword::Distinct))
        return false;
    for (const Keyword word :
         {Keyword::Group, Keyword::Having, Keyword::Union, Keyword::Except, Keyword::Intersect})
        if (tokens.find(word) >= 0)
            return false;
    for (int i = 0; i < tables.from(); ++i)
        if (isAggregate(tokens, i))
            return false;
    return true;
}

/// The table whose key alone names a row of the select: of joined tables the one whose rows carry the others'
/// keys. Null when no single one does.
const NamedTable* namingTable(const StatementTables& tables) {
    const NamedTable* found = nullptr;
    for (const NamedTable& from : tables.list()) {
        const bool isReferred =
            from.table == nullptr || std::ranges::any_of(tables.list(), [&](const NamedTable& other) {
                return other.table != nullptr && refersTo(*other.table, *from.table);
            });
        if (isReferred)
            continue;
        if (found != nullptr)
            return nullptr;
        found = &from;
    }
    return found;
}

QByteArray keyText(const NamedTable& from) {
    return ", " + engineName(from.alias) + '.' + quoted(from.table->keyColumn) + ' ';
}

/// Whether the key of the table is one of what is sorted by: nothing behind it matters, and some engines
/// refuse to sort by one column twice.
bool isSortedByKey(const SqlTokens& tokens, const StatementTables& tables, const NamedTable& from) {
    return std::ranges::any_of(sortedBy(tokens), [&](const SortedBy& element) {
        const auto origin = tables.originOf(tokens, element.begin, element.end - 1);
        return origin && origin->from == &from &&
               from.table->columns[static_cast<std::size_t>(origin->column)].type == schema::ColumnType::Key;
    });
}

/// What stands behind an ORDER BY, so that rows which it leaves equal come in the order of their keys, on
/// every engine the same.
QByteArray orderedKeys(const SqlTokens& tokens, const StatementTables& tables) {
    QByteArray text;
    const NamedTable* naming = namingTable(tables);
    for (const NamedTable& from : tables.list())
        if (from.table != nullptr && (naming == nullptr || naming == &from) &&
            !isSortedByKey(tokens, tables, from))
            text += keyText(from);
    return text;
}

/// The order of a statement that asks for none. A join is left to its engine: of many rows its caller may
/// want to know no more than whether there are any.
QByteArray ownOrder(const SqlTokens& tokens, const StatementTables& tables, bool isStored) {
    if (isStored && tables.list().size() == 1)
        return "ORDER BY" + keyText(tables.list().front()).sliced(1);
    return tokens.at(1).is(Keyword::Distinct) ? "ORDER BY 1 " : QByteArray();
}

/// Where an ORDER BY stands, or the end.
int sortingAt(const SqlTokens& tokens) {
    const int order = tokens.find(Keyword::Order);
    return order >= 0 ? order : tokens.size();
}

bool sortsByValue(const SqlTokens& tokens) {
    for (int i = sortingAt(tokens); i < tokens.size(); ++i)
        if (tokens.at(i).literal > 0)
            return true;
    return false;
}

void writeSelect(const SqlTokens& tokens, const StatementTables& tables, TranslatedShape& shape) {
    QByteArray keys;
    if (rowsAreStored(tokens, tables))
        for (const NamedTable& from : tables.list())
            if (from.table != nullptr) {
                keys += keyText(from);
                shape.keyTables.push_back(from.table->name);
            }
    const bool isStored = !keys.isEmpty();
    const int limit = tokens.find(Keyword::Limit);
    const int end = limit >= 0 ? limit : tokens.size();
    shape.isLimited = limit >= 0;
    QByteArray order;
    if (tokens.find(Keyword::Order) < 0)
        order = ownOrder(tokens, tables, isStored);
    else if (isStored)
        order = orderedKeys(tokens, tables);
    const QByteArray head = tokens.write(0, tables.from());
    const QByteArray tail = tokens.write(tables.from(), end) + order + tokens.write(end, tokens.size());
    shape.sql = head + tail;
    shape.sqlWithKeys = head + keys + tail;
    shape.sortingAt = shape.sqlWithKeys.size();
    if (!shape.isLimited && !sortsByValue(tokens))
        shape.sortingAt = (head + keys).size() + tokens.write(tables.from(), sortingAt(tokens)).size();
}

std::vector<int> parametersOf(const SqlTokens& tokens) {
    std::vector<int> parameters;
    bool repeats = false;
    for (int i = 0; i < tokens.size(); ++i) {
        const Token& token = tokens.at(i);
        if (token.literal > 0)
            parameters.insert(parameters.end(), token.isTwice ? 2 : 1, token.literal);
        repeats = repeats || token.isTwice;
    }
    return repeats ? parameters : std::vector<int>();
}

std::shared_ptr<const TranslatedShape> translateShape(std::u16string text, const SqlWriter* writer) {
    auto shape = std::make_shared<TranslatedShape>();
    shape->text = std::move(text);
    SqlTokens tokens(shape->text);
    dropSemicolon(tokens);
    if (tokens.size() == 1 && tokens.at(0).isName()) {
        // The name alone opens the table.
        return translateShape(u"SELECT * FROM [" + tokens.at(0).name().toString().toStdU16String() + u"]",
                              writer);
    }
    shape->kind = kindOf(tokens);
    if (shape->kind == StatementKind::Select && tokens.find(Keyword::Into) >= 0)
        raise(Failure::PermissionDenied, QStringLiteral("a select makes no table"));
    const StatementTables tables(tokens, shape->kind);
    rewriteConditions(tokens);
    rewriteKeyLists(tokens);
    rewriteTextJoins(tokens, tables);
    orderJoin(tokens);
    for (int i = 1; i < tokens.size(); ++i)
        if (tokens.at(i).kind == TokenKind::TextMark && tokens.at(i - 1).is(Keyword::Like))
            shape->patterns.push_back(tokens.at(i).literal);
    if (shape->kind == StatementKind::Select)
        writeOutStars(tokens, tables);
    if (writer != nullptr)
        writer->write(tokens, tables);
    shape->parameters = parametersOf(tokens);
    if (shape->kind == StatementKind::Select && tables.from() >= 0)
        writeSelect(tokens, tables, *shape);
    else
        shape->sql = shape->sqlWithKeys = tokens.write(0, tokens.size());
    return shape;
}

void repeatLiterals(const std::vector<int>& order, std::vector<Value>& parameters) {
    if (order.empty())
        return;
    std::vector<Value> repeated;
    repeated.reserve(order.size() + 1); // A key may come behind them.
    for (const int literal : order)
        repeated.push_back(parameters[static_cast<std::size_t>(literal) - 1]);
    parameters = std::move(repeated);
}

/// Patterns are written with "*" and "?"; the engine's own wildcards pass as well.
void translatePatterns(const std::vector<int>& patterns, std::vector<Value>& parameters) {
    for (const int pattern : patterns) {
        Value& parameter = parameters[static_cast<std::size_t>(pattern) - 1];
        QString text = parameter.toText();
        parameter =
            text.replace(QLatin1Char('*'), QLatin1Char('%')).replace(QLatin1Char('?'), QLatin1Char('_'));
    }
}

} // namespace

const std::shared_ptr<const ResultColumns>& TranslatedShape::columns(bool withKeys) const {
    std::shared_ptr<const ResultColumns>& known = m_columns[withKeys ? 1 : 0];
    if (known == nullptr) {
        const SqlTokens tokens(text);
        const StatementTables tables(tokens, kind);
        known = std::make_shared<const ResultColumns>(selectedColumns(tokens, tables),
                                                      withKeys ? keyTables : std::vector<QString>());
    }
    return known;
}

/// Shapes by their text, looked up by the scan's own buffer without a copy of it.
struct Dialect::Cache {
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::u16string_view text) const {
            return std::hash<std::u16string_view>()(text);
        }
    };
    std::unordered_map<std::u16string, std::shared_ptr<const TranslatedShape>, Hash, std::equal_to<>> shapes;
    std::u16string text; ///< Of the statement at hand; kept for its capacity.
};

Dialect::Dialect(const SqlWriter* writer) : m_writer(writer), m_cache(std::make_unique<Cache>()) {}
Dialect::~Dialect() = default;

Translation Dialect::translate(QStringView sql) {
    const bool cached = sql.size() <= LongestCachedStatement;
    Translation translation;
    translation.parameters =
        takeOutLiterals(sql, cached ? Numbers::TakenOut : Numbers::Inline, m_cache->text);
    auto& shapes = m_cache->shapes;
    if (!cached) {
        translation.shape = translateShape(m_cache->text, m_writer);
    } else if (const auto found = shapes.find(std::u16string_view(m_cache->text)); found != shapes.end()) {
        translation.shape = found->second;
    } else {
        translation.shape = translateShape(m_cache->text, m_writer);
        if (shapes.size() >= MostShapes)
            shapes.clear();
        shapes.emplace(m_cache->text, translation.shape);
    }
    translatePatterns(translation.shape->patterns, translation.parameters);
    repeatLiterals(translation.shape->parameters, translation.parameters);
    return translation;
}

} // namespace tarnwell::data
