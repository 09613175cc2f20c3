#pragma once

#include <QString>

#include <memory>

namespace tarnwell {

class Connection;
class Grid;
class Recordset;

/// Shows a statement's rows, which can be written, in place of those before, in the layout of a file of
/// `gLayoutPath`. What is pending among those before is written first: raises what that raises, and shows
/// them still. Raises what reading the new rows raises, and shows none then: those before would stand under
/// the heading of the new ones. `rows` is null then.
void showRows(Connection& connection, Grid& grid, std::shared_ptr<Recordset>& rows, const QString& sql,
              const QString& layout);

/// Shows the rows of the same statement as they are by now, where they have changed, and moves nothing (see
/// `Grid::showAgain`, whose false it returns). Raises what reading them raises; nothing has changed then.
[[nodiscard]] bool showChangedRows(Connection& connection, Grid& grid, std::shared_ptr<Recordset>& rows,
                                   const QString& sql, const QString& key);

/// Reads the grid's rows anew after one of them was deleted, and stands where it stood. Raises what reading
/// raises, and shows the rows of before then.
void readWithoutRow(Grid& grid, Recordset& rows);

} // namespace tarnwell
