#include "data/recordset/ResultColumns.h"

#include <algorithm>
#include <sqlite3.h>

namespace tarnwell::data {

namespace {

bool sameName(QStringView a, QStringView b) {
    return a.size() == b.size() && (a == b || a.compare(b, Qt::CaseInsensitive) == 0);
}

QString textOf(const char* utf8) {
    return QString::fromUtf8(utf8);
}

QByteArray quotedName(const QString& name) {
    return '"' + name.toUtf8() + '"';
}

/// The name under which the statement knows a table: its alias, if it stands there once.
QString qualifierOf(const schema::Table& table, const TranslatedShape& shape) {
    const auto names = [&](const auto& entry) { return sameName(entry.second, table.name); };
    if (std::ranges::count_if(shape.tables, names) != 1)
        return table.name;
    return std::ranges::find_if(shape.tables, names)->first;
}

/// Whether rows of one table carry the key of the other.
bool refersTo(const schema::Table& from, const schema::Table& to) {
    return &from != &to && from.columnIndex(to.keyColumn) >= 0;
}

} // namespace

const schema::Column* ResultColumn::stored() const {
    return table == nullptr || tableColumn < 0 ? nullptr
                                               : &table->columns[static_cast<std::size_t>(tableColumn)];
}

ResultColumns::ResultColumns(sqlite3_stmt* statement, const TranslatedShape& shape, bool withKeys) {
    const int cells = sqlite3_column_count(statement);
    const int keys = withKeys ? static_cast<int>(shape.keyTables.size()) : 0;
    m_count = cells - keys;
    readColumns(statement, shape, cells);
    if (keys > 0)
        addKeyTables(shape);
    qualifySharedNames();
}

/// The engine tells the table and the column behind an alias; the catalogue knows their type.
void ResultColumns::readColumns(sqlite3_stmt* statement, const TranslatedShape& shape, int cells) {
    for (int i = 0; i < cells; ++i) {
        ResultColumn column;
        column.bareName = textOf(sqlite3_column_name(statement, i));
        column.table = schema::findTable(textOf(sqlite3_column_table_name(statement, i)));
        if (column.table != nullptr) {
            column.tableColumn = column.table->columnIndex(textOf(sqlite3_column_origin_name(statement, i)));
            column.qualifier = qualifierOf(*column.table, shape);
        }
        column.name = column.bareName;
        const schema::Column* stored = column.stored();
        m_types.push_back(stored == nullptr ? std::nullopt : std::optional(stored->type));
        if (i < m_count)
            m_columns.push_back(std::move(column));
    }
    for (const auto& [position, type] : shape.computedTypes)
        m_types[static_cast<std::size_t>(position)] = type;
}

void ResultColumns::addKeyTables(const TranslatedShape& shape) {
    int cell = m_count;
    for (const QString& name : shape.keyTables) {
        KeyTable entry{schema::findTable(name), cell++, {}, {}};
        const bool twice = std::ranges::count_if(shape.keyTables, [&](const QString& other) {
                               return sameName(other, name);
                           }) > 1;
        // Of a table joined to itself no column says which of the two rows it is from.
        if (entry.table == nullptr || twice)
            continue;
        for (int i = 0; i < m_count; ++i)
            if (at(i).table == entry.table && at(i).tableColumn >= 0 &&
                at(i).stored()->type != schema::ColumnType::Key)
                entry.columns.push_back(i);
        entry.readSql = readSqlOf(entry);
        m_keyTables.push_back(std::move(entry));
    }
}

QByteArray ResultColumns::readSqlOf(const KeyTable& entry) const {
    const QByteArray key = quotedName(entry.table->keyColumn);
    QByteArray sql = "SELECT " + key;
    for (const int column : entry.columns)
        sql += ',' + quotedName(at(column).stored()->name);
    return sql + " FROM " + quotedName(entry.table->name) + " WHERE " + key + "=?1";
}

void ResultColumns::qualifySharedNames() {
    for (ResultColumn& column : m_columns) {
        const auto shares = [&](const ResultColumn& other) {
            return sameName(other.bareName, column.bareName);
        };
        if (!column.qualifier.isEmpty() && std::ranges::count_if(m_columns, shares) > 1)
            column.name = column.qualifier + QLatin1Char('.') + column.bareName;
    }
}

int ResultColumns::find(QStringView name) const {
    // Most callers write the name as the catalogue does; only a few need the folding of case.
    for (int i = 0; i < m_count; ++i)
        if (at(i).name == name)
            return i;
    for (int i = 0; i < m_count; ++i)
        if (sameName(at(i).name, name))
            return i;
    const qsizetype dot = name.indexOf(QLatin1Char('.'));
    return dot < 0 ? -1 : findQualified(name.first(dot), name.sliced(dot + 1));
}

int ResultColumns::findQualified(QStringView qualifier, QStringView bareName) const {
    const auto found = std::ranges::find_if(m_columns, [&](const ResultColumn& column) {
        return column.table != nullptr && sameName(column.bareName, bareName) &&
               (sameName(column.qualifier, qualifier) || sameName(column.table->name, qualifier));
    });
    return found == m_columns.end() ? -1 : static_cast<int>(found - m_columns.begin());
}

const KeyTable* ResultColumns::keyTableOf(int column) const {
    const auto found = std::ranges::find_if(m_keyTables, [column](const KeyTable& entry) {
        return std::ranges::binary_search(entry.columns, column);
    });
    return found == m_keyTables.end() ? nullptr : &*found;
}

/// The one table that no other one refers to: the "many" side of the join.
const KeyTable* ResultColumns::mainTable() const {
    const auto isReferred = [this](const KeyTable& candidate) {
        return std::ranges::any_of(
            m_keyTables, [&](const KeyTable& other) { return refersTo(*other.table, *candidate.table); });
    };
    const KeyTable* found = nullptr;
    for (const KeyTable& candidate : m_keyTables) {
        if (isReferred(candidate))
            continue;
        if (found != nullptr)
            return nullptr;
        found = &candidate;
    }
    return found;
}

} // namespace tarnwell::data
