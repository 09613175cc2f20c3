#pragma once

#include <QString>

#include <memory>

namespace tarnwell {

class Connection;
class Grid;
class Recordset;

/// Shows a statement's rows, which can be written, in place of those before, in the layout of a file of
/// `gLayoutPath`. What is pending among those before is written first: raises what that raises, and what the
/// statement raises, and then shows them still.
void showRows(Connection& connection, Grid& grid, std::unique_ptr<Recordset>& rows, const QString& sql,
              const QString& layout);

/// Reads the grid's rows anew after one of them has gone, and stands where it stood.
void readWithoutRow(Grid& grid, Recordset& rows);

} // namespace tarnwell
