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
constexpr int rowsMeasured = 64;
constexpr int besideText = 12; ///< Between a text and the edges of its cell.
} // namespace

GridWidths::GridWidths(QTableView& view) : QObject(&view), m_view(view) {
    connect(view.horizontalHeader(), &QHeaderView::sectionResized, this,
            guarded([this](int section, int before, int after) { sectionResized(section, before, after); }));
}

void GridWidths::reset(const std::vector<GridColumn>& columns) {
    QHeaderView& header = *m_view.horizontalHeader();
    m_widths.clear();
    m_holdsText.clear();
    m_hasButton.clear();
    m_needs.assign(columns.size(), 0);
    m_isResized.assign(columns.size(), false);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int section = static_cast<int>(i);
        m_widths.push_back(scaledToText(columns[i].width, m_view));
        m_holdsText.push_back(takesText(columns[i]) && columns[i].format == ColumnFormat::General);
        m_hasButton.push_back(hasButton(columns[i]));
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
    m_isResized.assign(columns.size(), false);
    share();
}

int GridWidths::widthOfTexts(int section) const {
    const QAbstractItemModel& rows = *m_view.model();
    const QFontMetrics letters = m_view.fontMetrics();
    int widest = 0;
    for (int row = 0; row < std::min(rows.rowCount(), rowsMeasured); ++row)
        widest = std::max(widest, letters.horizontalAdvance(rows.index(row, section).data().toString()));
    const bool hasButton = m_hasButton[static_cast<std::size_t>(section)];
    return widest + besideText + (hasButton ? m_view.verticalHeader()->defaultSectionSize() : 0);
}

void GridWidths::fitTexts() {
    m_needs.assign(m_widths.size(), 0);
    for (const int section : visibleSections())
        if (m_holdsText[static_cast<std::size_t>(section)])
            m_needs[static_cast<std::size_t>(section)] = widthOfTexts(section);
    share();
}

std::vector<int> GridWidths::widened(int left, const std::vector<int>& shown) const {
    std::vector<int> widths = m_widths;
    const auto at = [](auto& values, int section) -> decltype(auto) {
        return values[static_cast<std::size_t>(section)];
    };
    int spare = left;
    for (const int section : shown)
        if (at(m_widths, section) == 0)
            spare -=
                std::max(at(m_needs, section), leastCharacters * m_view.fontMetrics().averageCharWidth());
    for (const int section : shown) {
        const int lacking = at(m_needs, section) - at(m_widths, section);
        if (at(m_widths, section) == 0 || at(m_isResized, section) || lacking <= 0 || spare <= 0)
            continue;
        at(widths, section) += std::min(lacking, spare);
        spare -= lacking;
    }
    return widths;
}

void GridWidths::share() {
    if (m_sharing)
        return;
    const QScopedValueRollback<bool> guard(m_sharing, true);
    const std::vector<int> shown = visibleSections();
    std::vector<int> widths = m_widths;
    const auto width = [&widths](int section) { return widths[static_cast<std::size_t>(section)]; };
    const auto leftBy = [&] {
        int left = m_view.viewport()->width();
        for (const int section : shown)
            left -= width(section);
        return left;
    };
    auto sharers = std::ranges::count_if(shown, [&](int section) { return width(section) == 0; });
    if (sharers > 0)
        widths = widened(leftBy(), shown);
    int left = leftBy();
    const int spare = sharers == 0 ? std::max(left, 0) : 0;
    const int least = leastCharacters * m_view.fontMetrics().averageCharWidth();
    for (const int section : shown) {
        if (width(section) != 0) {
            setWidth(section, width(section) + (section == shown.back() ? spare : 0));
            continue;
        }
        const int part = left / static_cast<int>(sharers--);
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
    m_isResized[static_cast<std::size_t>(section)] = true;
    share();
}

} // namespace tarnwell
