#pragma once

#include "data/schema/Schema.h"
#include "data/sql/Dialect.h"
#include "data/sql/SqlTokens.h"

#include <optional>
#include <utility>
#include <vector>

namespace tarnwell::data {

/// The tables that a statement names, and the columns behind its names.
class StatementTables {
public:
    /// Raises PermissionDenied for the engine's own tables.
    StatementTables(const SqlTokens& tokens, StatementKind kind);

    /// Alias (or name) and table, in the order of the text; a table without an alias as the catalogue spells
    /// it.
    [[nodiscard]] const std::vector<std::pair<QString, QString>>& list() const { return m_list; }
    /// Where a select's own FROM stands; -1 when it has none.
    [[nodiscard]] int from() const { return m_from; }
    /// Some rows come from a select within FROM.
    [[nodiscard]] bool hasDerivedRows() const { return m_derived; }

    /// The type of the column that the tokens from `begin` to `end` (included) name; nothing when they name
    /// none of the catalogue.
    [[nodiscard]] std::optional<schema::ColumnType> columnType(const SqlTokens& tokens, int begin,
                                                               int end) const;

private:
    void readFrom(const SqlTokens& tokens);
    /// Takes the name at `at` and its alias; returns the place of the last token taken.
    int add(const SqlTokens& tokens, int at);

    std::vector<std::pair<QString, QString>> m_list;
    std::vector<std::pair<QString, const schema::Table*>> m_known;
    int m_from = -1;
    bool m_derived = false;
};

} // namespace tarnwell::data
