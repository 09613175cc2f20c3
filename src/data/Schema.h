#pragma once

#include "data/Value.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>
#include <span>
#include <vector>

namespace tarnwell::schema {

enum class ColumnType { Key, Long, Small, Money, YesNo, Date, Text };

/// What a relation does to the row that refers when the row it refers to is deleted.
enum class OnDelete { Cascade, Refuse };

struct Column {
    QString name;
    ColumnType type;
    int length = 0; ///< Text: what the screens limit it to, 0 for no limit. Not enforced here.
    std::optional<Value> defaultValue; ///< None: Null.
    bool notNull = false;
};

struct Relation {
    QString column;
    QString parentTable;
    OnDelete onDelete;
};

struct Index {
    std::vector<QString> columns; ///< In order.
};

struct Table {
    QString name;
    QString keyColumn;
    std::vector<Column> columns;
    std::vector<Relation> relations;
    std::vector<Index> indexes;

    /// Position of a column by name without regard to case, or -1.
    [[nodiscard]] int columnIndex(QStringView column) const;
};

/// Every table of the main database, in an order in which they can be created.
[[nodiscard]] std::span<const Table> tables();

/// A table by name without regard to case, or null.
[[nodiscard]] const Table* findTable(QStringView name);

/// A row of a new database: values in the order of `columns`.
struct InitialRow {
    QString table;
    std::vector<std::pair<QString, Value>> values;
};
/// `Code` rows (employee types, non-linked option names) and `ReportDefinition` rows of a new database.
[[nodiscard]] std::span<const InitialRow> initialRows();

/// The statements that make the tables, relations, indexes and triggers in an empty SQLite file, in order.
/// Plain types only, so that any SQLite client can open the file. Relations need foreign keys switched on.
[[nodiscard]] QStringList createStatements();

} // namespace tarnwell::schema
