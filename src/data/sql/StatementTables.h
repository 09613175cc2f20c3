#pragma once

#include "data/schema/Schema.h"
#include "data/sql/Dialect.h"
#include "data/sql/SqlTokens.h"

#include <optional>
#include <vector>

namespace tarnwell::data {

/// A table as a statement names it.
struct NamedTable {
    QString alias;              ///< Or the table's name, as the catalogue spells it.
    QString name;               ///< Of the table.
    const schema::Table* table; ///< Null for one outside the catalogue.
};

/// Whether rows of one table carry the key of the other.
[[nodiscard]] bool refersTo(const schema::Table& from, const schema::Table& to);

/// The tables that a statement names, and the columns behind its names.
class StatementTables {
public:
    /// Raises PermissionDenied for the engine's own tables.
    StatementTables(const SqlTokens& tokens, StatementKind kind);

    /// In the order of the text.
    [[nodiscard]] const std::vector<NamedTable>& list() const { return m_list; }
    /// Where a select's own FROM stands; -1 when it has none.
    [[nodiscard]] int from() const { return m_from; }
    /// Some rows come from a select within FROM.
    [[nodiscard]] bool hasDerivedRows() const { return m_derived; }

    struct Origin {
        const NamedTable* from; ///< Lives as long as this.
        int column;             ///< Its place in the table's columns.
    };
    /// The stored column that the tokens from `begin` to `end` (included) name; nothing when they name none
    /// of the catalogue.
    [[nodiscard]] std::optional<Origin> originOf(const SqlTokens& tokens, int begin, int end) const;
    /// The type of the column that the tokens from `begin` to `end` (included) name; nothing when they name
    /// none of the catalogue.
    [[nodiscard]] std::optional<schema::ColumnType> columnType(const SqlTokens& tokens, int begin,
                                                               int end) const;

private:
    void readFrom(const SqlTokens& tokens);
    /// Takes the name at `at` and its alias; returns the place of the last token taken.
    int add(const SqlTokens& tokens, int at);

    std::vector<NamedTable> m_list;
    int m_from = -1;
    bool m_derived = false;
};

} // namespace tarnwell::data
