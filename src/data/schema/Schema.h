#pragma once

#include "data/Value.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>
#include <span>
#include <vector>

namespace tarnwell::schema {

/// What a column holds, and how it comes out of a recordset.
enum class ColumnType {
    Key,   ///< The table's own key: generated, from 1 on, never given out twice.
    Long,  ///< 32 bits; also keys of other tables, where 0 means none.
    Small, ///< 16 bits.
    Money, ///< A double in the currency's unit; rounded only where it is shown.
    YesNo, ///< Stored as -1 and 0, never Null.
    Date,  ///< Day and time to the second, without a time zone.
    Text   ///< Compares without regard to case.
};

/// What a relation does to the row that refers when the row it refers to is deleted.
enum class OnDelete {
    Cascade, ///< It is deleted with it.
    Refuse   ///< The deletion fails as a constraint, and nothing is deleted.
};

struct Column {
    QString name; ///< As SQL text spells it; may hold a blank.
    ColumnType type;
    int length = 0; ///< Text: what the screens limit it to, 0 for no limit. Not enforced here.
    std::optional<Value> defaultValue; ///< None: Null.
    bool notNull = false;              ///< A write of Null fails as a constraint.
};

/// A column whose value must be the key of a row in another table. A column that may hold 0 has none.
struct Relation {
    QString column;
    QString parentTable;
    OnDelete onDelete;
};

/// Makes a search or a sort cheap. Its name in the file is made of the table and the columns.
struct Index {
    std::vector<QString> columns; ///< In the order in which they are compared.
};

struct Table {
    QString name;
    QString keyColumn; ///< The first of `columns`; three tables do not name it after themselves.
    std::vector<Column> columns;
    std::vector<Relation> relations;
    std::vector<Index> indexes;

    /// Position of a column by name without regard to case, or -1.
    [[nodiscard]] int columnIndex(QStringView column) const;
};

/// Every table of the main database, in an order in which they can be created. Valid until the program ends.
[[nodiscard]] std::span<const Table> tables();

/// A table by name without regard to case, or null.
[[nodiscard]] const Table* findTable(QStringView name);

/// A row of a new database: pairs of column and value.
struct InitialRow {
    QString table;
    std::vector<std::pair<QString, Value>> values;
};
/// `Code` rows (employee types, non-linked option names) and `ReportDefinition` rows of a new database.
/// Columns that a row does not name get their defaults. Valid until the program ends.
[[nodiscard]] std::span<const InitialRow> initialRows();

/// The statements that make the tables, relations, indexes and triggers in an empty SQLite file, in order; no
/// rows. Plain types only, so that any SQLite client can open the file. Requires: relations are enforced only
/// on connections with foreign keys switched on.
[[nodiscard]] QStringList createStatements();

} // namespace tarnwell::schema
