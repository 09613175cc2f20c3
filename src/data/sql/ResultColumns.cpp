#include "data/sql/ResultColumns.h"

#include "data/sql/RowStatements.h"

#include <algorithm>

namespace tarnwell::data {

namespace {

bool sameName(QStringView a, QStringView b) {
    return a.size() == b.size() && (a == b || a.compare(b, Qt::CaseInsensitive) == 0);
}

} // namespace

const schema::Column* ResultColumn::stored() const {
    return table == nullptr || tableColumn < 0 ? nullptr
                                               : &table->columns[static_cast<std::size_t>(tableColumn)];
}

ResultColumns::ResultColumns(std::vector<SelectedColumn> selected, const std::vector<QString>& keyTables)
    : m_count(static_cast<int>(selected.size())) {
    for (SelectedColumn& column : selected) {
        m_types.push_back(column.type);
        m_columns.push_back({column.name, std::move(column.name), std::move(column.qualifier), column.table,
                             column.tableColumn});
    }
    m_types.resize(selected.size() + keyTables.size(), schema::ColumnType::Key);
    addKeyTables(keyTables);
    qualifySharedNames();
}

void ResultColumns::addKeyTables(const std::vector<QString>& names) {
    int cell = m_count;
    for (const QString& name : names) {
        KeyTable entry{schema::findTable(name), cell++, {}, {}, {schema::ColumnType::Key}};
        const bool twice =
            std::ranges::count_if(names, [&](const QString& other) { return sameName(other, name); }) > 1;
        // Of a table joined to itself no column says which of the two rows it is from.
        if (entry.table == nullptr || twice)
            continue;
        for (int i = 0; i < m_count; ++i)
            if (at(i).table == entry.table && at(i).stored()->type != schema::ColumnType::Key)
                entry.columns.push_back(i);
        for (const int column : entry.columns)
            entry.types.push_back(at(column).stored()->type);
        entry.readSql = readRowStatement(*entry.table, storedPlaces(entry));
        m_keyTables.push_back(std::move(entry));
    }
}

std::vector<int> ResultColumns::storedPlaces(const KeyTable& entry) const {
    std::vector<int> places;
    places.reserve(entry.columns.size());
    for (const int column : entry.columns)
        places.push_back(at(column).tableColumn);
    return places;
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
