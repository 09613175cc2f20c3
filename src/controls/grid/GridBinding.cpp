#include "controls/grid/GridBinding.h"

#include "controls/grid/Grid.h"
#include "data/recordset/Recordset.h"
#include "runtime/modGlobalVariables.h"

#include <algorithm>

namespace tarnwell {

void showRows(Connection& connection, Grid& grid, std::shared_ptr<Recordset>& rows, const QString& sql,
              const QString& layout) {
    grid.Update();
    try {
        auto opened = std::make_shared<Recordset>();
        opened->Open(sql, connection, CursorType::Static, LockType::Optimistic);
        grid.bind(opened, sql);
        rows = std::move(opened);
    } catch (const RunTimeError&) {
        grid.bind(nullptr);
        rows.reset();
        throw;
    }
    grid.LoadLayout(gLayoutPath + layout);
}

bool showChangedRows(Connection& connection, Grid& grid, std::shared_ptr<Recordset>& rows, const QString& sql,
                     const QString& key) {
    auto opened = std::make_shared<Recordset>();
    opened->Open(sql, connection, CursorType::Static, LockType::Optimistic);
    if (grid.shows(*opened))
        return true;
    if (!grid.showAgain(opened, key))
        return false;
    rows = std::move(opened);
    return true;
}

void readWithoutRow(Grid& grid, Recordset& rows) {
    const int row = grid.Row();
    rows.Requery();
    grid.Rebind();
    grid.setRow(std::min(row, grid.RowCount()));
}

} // namespace tarnwell
