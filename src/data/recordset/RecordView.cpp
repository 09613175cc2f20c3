#include "data/recordset/RecordView.h"

#include <algorithm>

namespace tarnwell::data {

void RecordView::setStore(std::shared_ptr<RowStore> store) {
    m_store = std::move(store);
    m_listMade = false;
    m_place = Place::First;
}

void RecordView::setFilter(RecordFilter filter) {
    m_filter = std::move(filter);
    m_listMade = false;
    m_place = Place::First;
}

bool RecordView::hasVisible(int index) {
    if (!isListed())
        return m_store->has(index);
    updateList();
    return index < std::ssize(m_list);
}

int RecordView::visibleCount() {
    if (!isListed())
        return m_store->fetchedCount();
    updateList();
    return static_cast<int>(m_list.size());
}

/// Unlisted, a row is its own number: the first look at a row costs no list.
RowId RecordView::visibleAt(int index) {
    if (index < 0 || !hasVisible(index))
        return noRow;
    return isListed() ? m_list[static_cast<std::size_t>(index)] : index;
}

RowId RecordView::current() {
    resolveFirst();
    return m_place == Place::Row ? m_row : noRow;
}

int RecordView::currentIndex() {
    resolveFirst();
    if (m_place == Place::Beginning)
        return -1;
    if (m_place == Place::End)
        return visibleCount();
    if (!isListed())
        return m_row;
    updateList();
    return static_cast<int>(std::ranges::lower_bound(m_list, m_row) - m_list.begin());
}

bool RecordView::atBeginning() {
    resolveFirst();
    return m_place == Place::Beginning || (m_place == Place::End && !hasVisible(0));
}

bool RecordView::atEnd() {
    resolveFirst();
    return m_place == Place::End || (m_place == Place::Beginning && !hasVisible(0));
}

void RecordView::moveLast() {
    const int count = visibleCount();
    if (count == 0)
        moveToEnd();
    else
        moveTo(count - 1);
}

void RecordView::moveBy(int rows) {
    const int index = currentIndex();
    // A row that is no longer visible has the next one in its place.
    const bool isGone = m_place == Place::Row && visibleAt(index) != m_row;
    moveTo(index + rows - (isGone && rows > 0 ? 1 : 0));
}

void RecordView::moveTo(int index) {
    if (index < 0) {
        moveToBeginning();
        return;
    }
    m_row = visibleAt(index);
    m_place = m_row == noRow ? Place::End : Place::Row;
}

void RecordView::showAdded(RowId row) {
    m_row = row;
    m_place = Place::Row;
    if (!m_listMade)
        return;
    updateList();
    if (m_list.empty() || m_list.back() < row)
        m_list.push_back(row);
}

void RecordView::resolveFirst() {
    if (m_place == Place::First)
        moveTo(0);
}

/// Otherwise a row's number is its name, and no list is needed.
bool RecordView::isListed() const {
    return !m_filter.isEmpty() || m_store->addedCount() > 0 || m_store->deletedCount() > 0;
}

/// Rows change their number only by what was added or deleted since, here or through a clone.
void RecordView::updateList() {
    const auto isVisible = [this](RowId row) {
        return !m_store->isDeleted(row) && m_filter.passes(*m_store, row);
    };
    if (!m_listMade) {
        m_list.clear();
        const int fetched = m_store->fetchedCount();
        for (RowId row = 0; row < fetched; ++row)
            if (isVisible(row))
                m_list.push_back(row);
        m_listedAdded = 0;
        m_listMade = true;
    } else if (m_listedDeleted != m_store->deletedCount()) {
        std::erase_if(m_list, [this](RowId row) { return m_store->isDeleted(row); });
    }
    m_listedDeleted = m_store->deletedCount();
    for (; m_listedAdded < m_store->addedCount(); ++m_listedAdded)
        if (isVisible(firstAddedRow + m_listedAdded))
            m_list.push_back(firstAddedRow + m_listedAdded);
}

} // namespace tarnwell::data
