#pragma once

#include <QAccessibleWidget>

#include <map>
#include <utility>

namespace tarnwell {

class Grid;

/// A grid as assistive tools meet it: the visible columns alone, in the order on the screen, with their
/// headers; rows with their marks in words; cells with texts, ticks and states. A row is selected when it is
/// the current one. Children are the column headers first, then each row's header and its cells.
///
/// What stands for a cell is known by its place and dropped when rows or columns change.
class GridAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit GridAccessible(Grid& grid);

    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;
    [[nodiscard]] void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override;
    [[nodiscard]] int columnCount() const override;
    [[nodiscard]] int rowCount() const override;
    [[nodiscard]] QString columnDescription(int column) const override;
    [[nodiscard]] QString rowDescription(int row) const override;
    [[nodiscard]] int selectedCellCount() const override;
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override;
    [[nodiscard]] int selectedColumnCount() const override { return 0; }
    [[nodiscard]] int selectedRowCount() const override;
    [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
    [[nodiscard]] QList<int> selectedRows() const override;
    [[nodiscard]] bool isColumnSelected(int /*column*/) const override { return false; }
    [[nodiscard]] bool isRowSelected(int row) const override;
    /// Goes to the row as a user does: a row that can't be left stays.
    bool selectRow(int row) override;
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

    [[nodiscard]] QAccessibleInterface* columnHeader(int column) const;
    [[nodiscard]] QAccessibleInterface* rowHeader(int row) const;
    /// Model column of a column that assistive tools count, from 0.
    [[nodiscard]] int sectionOf(int column) const;
    /// The other way round; -1 for a hidden one.
    [[nodiscard]] int columnOf(int section) const;

protected:
    ~GridAccessible() override;

private:
    /// Row -1 for the headers of columns, column -1 for those of rows.
    using Place = std::pair<int, int>;
    [[nodiscard]] QAccessibleInterface* at(Place place) const;
    void forgetCells();

    Grid& m_grid;
    mutable std::map<Place, QAccessible::Id> m_cells; ///< The toolkit asks for them through const calls.
};

/// Grids are met so from here on; a second call changes nothing.
void installAccessibleGrids();

/// Tells assistive tools where the current cell is now. Costs nothing while none is active.
void tellCurrentCell(Grid& grid);

} // namespace tarnwell
