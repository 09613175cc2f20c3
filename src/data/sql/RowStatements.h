#pragma once

#include "data/schema/Schema.h"

#include <QByteArray>

#include <span>

namespace tarnwell::data {

// Statements about single rows of the catalogue's tables. Columns are places in the table's own list; the
// parameters are the columns' values in that order, and the row's key behind them where there is one.

/// The key of one row, then its columns. Parameter: the key.
[[nodiscard]] QByteArray readRowStatement(const schema::Table& table, std::span<const int> columns);
/// New rows; without columns one of nothing but defaults. Parameters: the values of one row after the other.
[[nodiscard]] QByteArray insertStatement(const schema::Table& table, std::span<const int> columns,
                                         std::size_t rows = 1);
/// Sets the columns of one row. Requires at least one column.
[[nodiscard]] QByteArray updateStatement(const schema::Table& table, std::span<const int> columns);
/// Parameter: the key.
[[nodiscard]] QByteArray deleteStatement(const schema::Table& table);
/// A select narrowed to the rows whose cell `keyCell`, of `width`, has one value. Parameters: those of the
/// select, then that value.
[[nodiscard]] QByteArray narrowedStatement(const QByteArray& select, int width, int keyCell);

} // namespace tarnwell::data
