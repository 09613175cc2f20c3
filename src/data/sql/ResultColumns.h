#pragma once

#include "data/schema/Schema.h"
#include "data/sql/SelectedColumns.h"

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <optional>
#include <span>
#include <vector>

namespace tarnwell::data {

/// One column of a result and the stored column behind it.
struct ResultColumn {
    QString name;      ///< As shown: qualified where two columns share the bare name.
    QString bareName;  ///< Alias, or the stored column's own name.
    QString qualifier; ///< The table as the statement calls it; empty for a computed column.
    const schema::Table* table = nullptr; ///< Null for a computed column.
    int tableColumn = -1;                 ///< Its place in the table's columns; -1 for a computed column.

    /// The column in the catalogue; null for a computed one, which cannot be written.
    [[nodiscard]] const schema::Column* stored() const;
};

/// A table whose rows the result's rows stand for.
struct KeyTable {
    const schema::Table* table;
    int keyCell;              ///< Where a row holds this table's key, behind the shown columns.
    std::vector<int> columns; ///< The shown columns that come from it, its key column aside.
    QByteArray readSql;       ///< Reads the row of one key: the key, then `columns`.
    std::vector<std::optional<schema::ColumnType>> types; ///< Of the cells of `readSql`.
};

/// What is known of a select's result from its text and the catalogue.
class ResultColumns {
public:
    /// `keyTables`: the tables whose keys stand behind the selected columns, in that order.
    ResultColumns(std::vector<SelectedColumn> selected, const std::vector<QString>& keyTables);

    /// Shown columns.
    [[nodiscard]] int count() const { return m_count; }
    /// Shown columns and keys.
    [[nodiscard]] int width() const { return static_cast<int>(m_types.size()); }
    [[nodiscard]] const ResultColumn& at(int index) const {
        return m_columns[static_cast<std::size_t>(index)];
    }
    /// Types of all cells; none for what is computed.
    [[nodiscard]] std::span<const std::optional<schema::ColumnType>> types() const { return m_types; }
    /// Position of a shown column by bare or qualified name without regard to case, or -1. A bare name that
    /// two columns share names neither.
    [[nodiscard]] int find(QStringView name) const;

    [[nodiscard]] std::span<const KeyTable> keyTables() const { return m_keyTables; }
    /// The key table that a shown column is written to, or null.
    [[nodiscard]] const KeyTable* keyTableOf(int column) const;
    /// The table that loses a row when a row of the result is deleted: of joined tables the one whose rows
    /// carry the others' keys. Null when the rows stand for no stored row, or the tables do not tell.
    [[nodiscard]] const KeyTable* mainTable() const;

private:
    void addKeyTables(const std::vector<QString>& names);
    [[nodiscard]] std::vector<int> storedPlaces(const KeyTable& entry) const;
    void qualifySharedNames();
    [[nodiscard]] int findQualified(QStringView qualifier, QStringView bareName) const;

    int m_count = 0;
    std::vector<ResultColumn> m_columns;
    std::vector<std::optional<schema::ColumnType>> m_types;
    std::vector<KeyTable> m_keyTables;
};

} // namespace tarnwell::data
