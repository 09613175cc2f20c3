#pragma once

#include "data/recordset/RecordFilter.h"
#include "data/recordset/RowStore.h"

#include <memory>
#include <vector>

namespace tarnwell::data {

/// One position over the rows of a store, and the filter through which it sees them. Without a filter, and
/// while no row was added or deleted, rows are taken as they come, so that walking fetches no further than
/// it goes. A changed row keeps its place until the filter is set again; a new one stands last.
class RecordView {
public:
    explicit RecordView(std::shared_ptr<RowStore> store) : m_store(std::move(store)) {}

    [[nodiscard]] RowStore& store() const { return *m_store; }
    [[nodiscard]] const std::shared_ptr<RowStore>& sharedStore() const { return m_store; }
    /// Stands before the first look: on the first row, once somebody asks.
    void setStore(std::shared_ptr<RowStore> store);
    /// Stands on the first row that passes, once somebody asks.
    void setFilter(RecordFilter filter);
    [[nodiscard]] const RecordFilter& filter() const { return m_filter; }

    /// Visible rows count from 0. Each of these fetches as far as it must, and raises what fetching raises.
    [[nodiscard]] bool hasVisible(int index);
    [[nodiscard]] int visibleCount();
    /// noRow beyond the last.
    [[nodiscard]] RowId visibleAt(int index);

    /// The current row, deleted or not; noRow at either end. Raises what fetching raises, like the three
    /// below.
    [[nodiscard]] RowId current();
    /// Its place among the visible rows; that of the row behind it when it is not visible. -1 at the
    /// beginning, the number of rows at the end.
    [[nodiscard]] int currentIndex();
    [[nodiscard]] bool atBeginning();
    [[nodiscard]] bool atEnd();

    void moveFirst() { m_place = Place::First; }
    /// Fetches all; to the end when nothing is visible.
    void moveLast();
    /// Along the visible rows, backward for a negative number, no further than to an end.
    void moveBy(int rows);
    /// To a visible row by its place, to an end when there is no such row.
    void moveTo(int index);
    void moveToEnd() { m_place = Place::End; }
    void moveToBeginning() { m_place = Place::Beginning; }
    /// To a row just added; it is visible whatever the filter says.
    void showAdded(RowId row);

private:
    enum class Place { First, Row, Beginning, End };

    void resolveFirst();
    [[nodiscard]] bool isListed() const;
    void updateList();

    std::shared_ptr<RowStore> m_store;
    RecordFilter m_filter;
    Place m_place = Place::First;
    RowId m_row = noRow;

    std::vector<RowId> m_list; ///< The visible rows in ascending order, while `isListed`.
    bool m_listMade = false;
    int m_listedAdded = 0;
    int m_listedDeleted = 0;
};

} // namespace tarnwell::data
