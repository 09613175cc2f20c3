#pragma once

#include <QAccessible>
#include <QModelIndex>
#include <QPointer>

namespace tarnwell {

class Grid;
class GridModel;
class GridAccessible;
struct GridColumn;

/// What names a column for assistive tools: its caption, or what its tool tip or status text says of it.
[[nodiscard]] QString columnName(const GridColumn& column);

/// A cell or header of a grid, known by its place: row -1 for a column's header, column -1 for a row's.
/// Columns count as on the screen. A place that the grid no longer has is not valid and says nothing.
class GridCellAccessible : public QAccessibleInterface,
                           public QAccessibleTableCellInterface,
                           public QAccessibleActionInterface {
public:
    GridCellAccessible(Grid& grid, int row, int column);

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    /// Name and value are the cell's text, "Yes" or "No" for a tick; a header's name is its caption or mark.
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] bool isSelected() const override;
    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override;
    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override;
    [[nodiscard]] int columnIndex() const override { return m_column; }
    [[nodiscard]] int rowIndex() const override { return m_row; }
    [[nodiscard]] int columnExtent() const override { return 1; }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* table() const override { return parent(); }

    /// Press turns a tick, presses a button, and opens a text for editing, after going to the cell as a user
    /// does. A header has no action.
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& action) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& action) const override;

    /// Tells assistive tools that the cell says something else.
    void tellValue();

private:
    [[nodiscard]] bool isCell() const { return m_row >= 0 && m_column >= 0; }
    [[nodiscard]] GridAccessible* owner() const;
    [[nodiscard]] const GridModel& model() const;
    [[nodiscard]] int section() const;
    [[nodiscard]] const GridColumn& column() const;
    [[nodiscard]] QModelIndex index() const;
    [[nodiscard]] QString description() const;
    /// The key that does an action; unknown for going there only.
    [[nodiscard]] Qt::Key keyOf(const QString& action) const;

    QPointer<Grid> m_grid;
    int m_row;
    int m_column;
};

} // namespace tarnwell
