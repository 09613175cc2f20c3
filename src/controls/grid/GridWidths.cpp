#include "controls/grid/GridWidths.h"

#include "look/Theme.h"
#include "runtime/EventGuard.h"
#include "runtime/Remembered.h"

#include <QAction>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QStringList>
#include <QTableView>

#include <algorithm>

namespace tarnwell {

namespace {
/// Below this a shared column would show nothing of use: the grid scrolls instead.
constexpr int leastCharacters = 16;
constexpr int rowsMeasured = 64;
constexpr int besideText = 12; ///< Between a text and the edges of its cell.
/// What a remembered width may be; anything else was damaged.
constexpr int narrowestDragged = 8, widestDragged = 4000;
/// Widths are kept as they would be with text of the usual size.
constexpr int scaleSteps = 1000;

/// "Name=220;MasterPrice=100".
std::map<QString, int> widthsFrom(const QString& text) {
    std::map<QString, int> widths;
    for (const QString& entry : text.split(u';', Qt::SkipEmptyParts)) {
        const qsizetype sign = entry.lastIndexOf(u'=');
        const int width = sign < 1 ? 0 : entry.mid(sign + 1).toInt();
        if (width >= narrowestDragged && width <= widestDragged)
            widths[entry.left(sign)] = width;
    }
    return widths;
}

} // namespace

GridWidths::GridWidths(QTableView& view)
    : QObject(&view), m_view(view),
      m_standardAction(new QAction(QStringLiteral("Standard column widths"), view.horizontalHeader())) {
    QHeaderView& header = *view.horizontalHeader();
    m_standardAction->setObjectName(QStringLiteral("mnuStandardWidths"));
    m_standardAction->setEnabled(false);
    connect(m_standardAction, &QAction::triggered, this, guarded([this] { restoreStandard(); }));
    connect(&header, &QHeaderView::sectionResized, this,
            guarded([this](int section, int before, int after) { sectionResized(section, before, after); }));
}

void GridWidths::reset(const std::vector<GridColumn>& columns) {
    QHeaderView& header = *m_view.horizontalHeader();
    m_keys.clear();
    m_standard.clear();
    m_holdsText.clear();
    m_hasButton.clear();
    m_needs.assign(columns.size(), 0);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int section = static_cast<int>(i);
        m_keys.push_back(columns[i].key.isEmpty() ? QStringLiteral("#%1").arg(section) : columns[i].key);
        m_standard.push_back(scaledToText(columns[i].width, m_view));
        m_holdsText.push_back(takesText(columns[i]) && columns[i].format == ColumnFormat::General);
        m_hasButton.push_back(hasButton(columns[i]));
        header.moveSection(header.visualIndex(section), section);
        const QScopedValueRollback<bool> ours(m_sharing, true);
        m_view.setColumnHidden(section, !columns[i].visible);
    }
    overlay();
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
        m_standard[static_cast<std::size_t>(section)] = scaledToText(stored.width, m_view);
        header.moveSection(header.visualIndex(section), place++);
    }
    overlay();
}

void GridWidths::rememberAs(const QString& name) {
    m_name = name;
    m_dragged = widthsFrom(remembered(QStringLiteral("Columns ") + name));
    m_view.horizontalHeader()->addAction(m_standardAction);
    m_view.horizontalHeader()->setContextMenuPolicy(Qt::ActionsContextMenu);
    overlay();
}

void GridWidths::overlay() {
    m_widths = m_standard;
    m_isResized.assign(m_keys.size(), false);
    for (std::size_t i = 0; i < m_keys.size(); ++i)
        if (const auto dragged = m_dragged.find(m_keys[i]); dragged != m_dragged.end()) {
            m_widths[i] = scaledToText(dragged->second, m_view);
            m_isResized[i] = true;
        }
    m_standardAction->setEnabled(!m_dragged.empty());
    share();
}

void GridWidths::restoreStandard() {
    m_dragged.clear();
    keep();
    overlay();
}

void GridWidths::keep() const {
    QStringList entries;
    for (const auto& [key, width] : m_dragged)
        entries << QStringLiteral("%1=%2").arg(key).arg(width);
    remember(QStringLiteral("Columns ") + m_name, entries.join(u';'));
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
    const auto index = static_cast<std::size_t>(section);
    m_widths[index] = newSize;
    m_isResized[index] = true;
    if (!m_name.isEmpty()) {
        m_dragged[m_keys[index]] = qRound(newSize * 1.0 * scaleSteps / scaledToText(scaleSteps, m_view));
        m_standardAction->setEnabled(true);
        keep();
    }
    share();
}

} // namespace tarnwell
