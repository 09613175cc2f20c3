#include "data/sql/StatementTables.h"

#include "data/RunTimeError.h"

#include <algorithm>
#include <array>

namespace tarnwell::data {

namespace {

constexpr std::array enginesPrefixes{"sqlite_", "pragma_", "pg_", "information_schema"};

/// An engine's own tables and functions are not among ours.
void refuseEngineTables(const SqlTokens& tokens) {
    for (int i = 0; i < tokens.size(); ++i) {
        if (!tokens.at(i).isName())
            continue;
        const QStringView name = tokens.at(i).name();
        const bool isEngines = std::ranges::any_of(enginesPrefixes, [&](const char* prefix) {
            return name.startsWith(QLatin1String(prefix), Qt::CaseInsensitive);
        });
        if (isEngines)
            raise(Failure::PermissionDenied, name.toString());
    }
}

bool endsFrom(const Token& token) {
    switch (token.keyword) {
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
        return false;
    }
}

} // namespace

bool refersTo(const schema::Table& from, const schema::Table& to) {
    return &from != &to && from.columnIndex(to.keyColumn) >= 0;
}

StatementTables::StatementTables(const SqlTokens& tokens, StatementKind kind) {
    refuseEngineTables(tokens);
    switch (kind) {
    case StatementKind::Select:
        m_from = tokens.find(Keyword::From);
        if (m_from >= 0)
            readFrom(tokens);
        break;
    case StatementKind::Update:
        add(tokens, 1);
        break;
    case StatementKind::Delete:
        add(tokens, tokens.find(Keyword::From) + 1);
        break;
    case StatementKind::Insert:
        add(tokens, tokens.find(Keyword::Into) + 1);
        break;
    }
}

void StatementTables::readFrom(const SqlTokens& tokens) {
    bool expected = true;
    int conditionDepth = -1; // Commas within a join's condition divide no tables.
    int depth = 0;
    for (int i = m_from + 1; i < tokens.size(); ++i) {
        const Token& token = tokens.at(i);
        if (depth == 0 && endsFrom(token))
            return;
        if (token.is(QLatin1String("("))) {
            if (expected && tokens.at(i + 1).is(Keyword::Select)) {
                m_derived = true;
                expected = false;
                i = token.partner;
            } else {
                ++depth;
            }
        } else if (token.is(QLatin1String(")"))) {
            if (--depth < conditionDepth)
                conditionDepth = -1;
        } else if (token.is(Keyword::On)) {
            conditionDepth = depth;
        } else if (token.is(Keyword::Join) ||
                   (token.is(QLatin1String(",")) && (conditionDepth < 0 || depth <= conditionDepth))) {
            expected = true;
            conditionDepth = -1;
        } else if (expected && token.isName()) {
            expected = false;
            i = add(tokens, i);
        }
    }
}

int StatementTables::add(const SqlTokens& tokens, int at) {
    if (!tokens.at(at).isName())
        return at;
    const QStringView name = tokens.at(at).name();
    const schema::Table* table = schema::findTable(name);
    const QString ownName = table != nullptr ? table->name : name.toString();
    const int aliasAt = tokens.at(at + 1).is(Keyword::As) ? at + 2 : at + 1;
    const bool aliased = tokens.at(aliasAt).isName();
    m_list.push_back({aliased ? tokens.at(aliasAt).name().toString() : ownName, ownName, table});
    return aliased ? aliasAt : at;
}

std::optional<StatementTables::Origin> StatementTables::originOf(const SqlTokens& tokens, int begin,
                                                                 int end) const {
    const bool qualified = end == begin + 2 && tokens.at(begin + 1).is(QLatin1String("."));
    if ((begin != end && !qualified) || !tokens.at(begin).isName() || !tokens.at(end).isName())
        return std::nullopt;
    for (const NamedTable& from : m_list) {
        if (from.table == nullptr ||
            (qualified && tokens.at(begin).name().compare(from.alias, Qt::CaseInsensitive) != 0))
            continue;
        if (const int column = from.table->columnIndex(tokens.at(end).name()); column >= 0)
            return Origin{&from, column};
    }
    return std::nullopt;
}

std::optional<schema::ColumnType> StatementTables::columnType(const SqlTokens& tokens, int begin,
                                                              int end) const {
    const std::optional<Origin> origin = originOf(tokens, begin, end);
    if (!origin)
        return std::nullopt;
    return origin->from->table->columns[static_cast<std::size_t>(origin->column)].type;
}

} // namespace tarnwell::data
