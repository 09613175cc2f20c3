#include "controls/grid/DetailRows.h"

#include "controls/grid/Grid.h"
#include "runtime/EventGuard.h"

#include <algorithm>
#include <utility>

namespace tarnwell {

DetailRows::DetailRows(Grid& grid, Source source) : m_grid(grid), m_source(std::move(source)) {
    QObject::connect(&grid, &Grid::givenUp, &m_context, guarded([this] { catchUp(); }));
}

bool DetailRows::follow(int standOn) {
    const auto held = hold();
    if (!(m_source.write ? m_source.write() : m_grid.UpdateOrTell()))
        return false;
    const DetailKeys keys = m_source.chosen();
    m_source.show(keys);
    m_keys = keys;
    if (standOn > 0)
        m_grid.setRow(std::min(standOn, m_grid.RowCount()));
    return true;
}

void DetailRows::catchUp() {
    if (isCurrent() || m_grid.isPending())
        return;
    if (m_source.reload)
        m_source.reload();
    else
        follow();
}

bool DetailRows::isCurrent() const {
    return m_source.chosen() == m_keys;
}

} // namespace tarnwell
