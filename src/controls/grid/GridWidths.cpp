#include "controls/grid/GridWidths.h"

#include "look/Theme.h"
#include "runtime/EventGuard.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTableView>

#include <algorithm>

namespace tarnwell {

namespace {
/// Below this a shared column would show nothing of use: the grid scrolls instead.
constexpr int leastCharacters = 16;
} // namespace

GridWidths::GridWidths(QTableView& view) : QObject(&view), m_view(view) {
    connect(view.horizontalHeader(), &QHeaderView::sectionResized, this,
            guarded([this](int section, int before, int after) { sectionResized(section, before, after); }));
}

void GridWidths::reset(const std::vector<GridColumn>& columns) {
    QHeaderView& header = *m_view.horizontalHeader();
    m_widths.clear();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int section = static_cast<int>(i);
        m_widths.push_back(scaledToText(columns[i].width, m_view));
        header.moveSection(header.visualIndex(section), section);
        m_view.setColumnHidden(section, !columns[i].visible);
    }
    share();
}

void GridWidths::apply(const std::vector<LayoutColumn>& layout, const std::vector<GridColumn>& columns) {
    QHeaderView& header = *m_view.horizontalHeader();
    int place = 0;
    for (const LayoutColumn& stored : layout) {
        const auto found = std::find_if(columns.begin(), columns.end(), [&](const GridColumn& each) {
            return each.key.compare(stored.key, Qt::CaseInsensitive) == 0;
        });
        if (found == columns.end())
            continue;
        const auto section = static_cast<int>(found - columns.begin());
        m_widths[static_cast<std::size_t>(section)] = scaledToText(stored.width, m_view);
        header.moveSection(header.visualIndex(section), place++);
    }
    share();
}

void GridWidths::share() {
    if (m_sharing)
        return;
    const QScopedValueRollback<bool> guard(m_sharing, true);
    const std::vector<int> shown = visibleSections();
    const auto width = [this](int section) { return m_widths[static_cast<std::size_t>(section)]; };
    int left = m_view.viewport()->width();
    int sharers = 0;
    for (const int section : shown) {
        left -= width(section);
        sharers += width(section) == 0 ? 1 : 0;
    }
    const int spare = sharers == 0 ? std::max(left, 0) : 0;
    const int least = leastCharacters * m_view.fontMetrics().averageCharWidth();
    for (const int section : shown) {
        if (width(section) != 0) {
            setWidth(section, width(section) + (section == shown.back() ? spare : 0));
            continue;
        }
        const int part = left / std::max(sharers--, 1);
        left -= part;
        setWidth(section, std::max(part, least));
    }
}

void GridWidths::setWidth(int section, int width) {
    if (m_view.columnWidth(section) != width)
        m_view.setColumnWidth(section, width);
}

std::vector<int> GridWidths::visibleSections() const {
    const QHeaderView& header = *m_view.horizontalHeader();
    std::vector<int> sections;
    for (int place = 0; place < header.count(); ++place) {
        const int section = header.logicalIndex(place);
        if (!m_view.isColumnHidden(section))
            sections.push_back(section);
    }
    return sections;
}

void GridWidths::sectionResized(int section, int /*oldSize*/, int newSize) {
    if (m_sharing || newSize == 0 || section >= static_cast<int>(m_widths.size()))
        return;
    m_widths[static_cast<std::size_t>(section)] = newSize;
    share();
}

} // namespace tarnwell
