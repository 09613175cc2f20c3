#pragma once

#include "data/odbc/OdbcConnection.h"
#include "data/schema/SchemaVersion.h"

#include <QStringList>

#include <memory>
#include <span>
#include <vector>

namespace tarnwell::data {

// What a catalog says of itself, asked beside the statements of a program.

/// The rows of a select, each value as text.
[[nodiscard]] std::vector<QStringList> rowsOf(const std::shared_ptr<OdbcConnection>& connection,
                                              const QByteArray& sql);
/// Runs one statement, whatever it returns.
void runOne(const std::shared_ptr<OdbcConnection>& connection, const QByteArray& sql,
            std::span<const Value> values = {});
[[nodiscard]] bool hasRow(const std::vector<QStringList>& rows, const QStringList& row);

/// What the catalog says of its tables, `columns` being all tables and columns that it has: the first version
/// where it says nothing. Raises DatabaseForeign for a later version than this program's, and where there is
/// a table for the version and no row in it.
[[nodiscard]] schema::Stamp knownStampOf(const std::shared_ptr<OdbcConnection>& connection,
                                         const std::vector<QStringList>& columns, const QString& catalog);

} // namespace tarnwell::data
