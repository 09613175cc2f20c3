#pragma once

#include "controls/grid/GridCell.h"
#include "controls/grid/GridColumn.h"
#include "controls/grid/PendingRow.h"

#include <QAbstractTableModel>

#include <memory>
#include <vector>

namespace tarnwell {

class Recordset;

/// A recordset's rows as a table: read when they are shown, with the pending row laid over them and the
/// new-row line in front of or behind them. Row numbers count from 1 as in the recordset, the new-row line
/// being one more than the last; model rows count from 0.
class GridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit GridModel(QObject* parent = nullptr);
    ~GridModel() override;

    void setColumns(std::vector<GridColumn> columns);
    [[nodiscard]] const std::vector<GridColumn>& columns() const { return m_columns; }
    /// Column n, from 1.
    [[nodiscard]] const GridColumn& column(int number) const {
        return m_columns[static_cast<std::size_t>(number - 1)];
    }
    [[nodiscard]] bool hasColumn(int number) const { return number >= 1 && number <= columnCount(); }
    /// The column of a key, without regard to case; 0 when there is none.
    [[nodiscard]] int columnOf(const QString& key) const;
    void setValueList(int column, std::vector<ListEntry> entries);
    [[nodiscard]] const ValueListIndex& valueList(int column) const;

    void setTree(int column, TreeRule rule);
    /// Plain also in every other column than the tree's, and where there is no row.
    [[nodiscard]] TreeLevel treeLevel(int modelRow, int column) const;

    void setAllowAdd(bool allow, NewRowPosition position);
    /// Counts from the next `bind` on.
    void setHasOwner(bool has) { m_hasOwner = has; }
    void setAllowEdit(bool allow) { m_allowEdit = allow; }
    /// The cell may be changed by the user.
    [[nodiscard]] bool isEditable(int modelRow, int column) const;
    /// Any cell may.
    [[nodiscard]] bool takesEdits() const;

    /// Reads the rows of the recordset anew; null for none. Drops the pending row. Raises what reading them
    /// to the end raises, and has changed nothing then.
    void bind(std::shared_ptr<Recordset> recordset);
    [[nodiscard]] const std::shared_ptr<Recordset>& boundTo() const { return m_recordset; }
    /// The bound recordset while it is open, else null.
    [[nodiscard]] Recordset* recordset() const;

    /// Rows of the recordset, without the new-row line; 0 while it is closed.
    [[nodiscard]] int recordCount() const;
    /// Model row of the new-row line, or -1.
    [[nodiscard]] int newRowLine() const;
    /// Number of a model row; -1 when there is none.
    [[nodiscard]] int numberOf(int modelRow) const;
    /// Model row of a number; -1 when there is none.
    [[nodiscard]] int modelRowOf(int number) const;

    /// The cell's value, pending ones included; Empty for what is not there.
    [[nodiscard]] Value cellValue(int modelRow, int column) const;
    /// The written value; Empty for what is not there.
    [[nodiscard]] Value writtenValue(int number, int column) const;
    [[nodiscard]] QString editText(int modelRow, int column) const;
    /// Place of the cell's value in the column's value list, from 0; -1 when it is not there.
    [[nodiscard]] int entryOf(int modelRow, int column) const;

    [[nodiscard]] const PendingRow& pending() const { return m_pending; }
    /// Model row of the pending row, or -1.
    [[nodiscard]] int pendingLine() const;
    void beginPending(int modelRow);
    void setPending(int column, const Value& value);
    void dropPending();
    /// Raises what the recordset raises; the row stays pending until `settlePending`.
    void writePending();
    /// Takes a written row over into the rows. Returns its model row; -1 when the rows have to be read anew.
    [[nodiscard]] int settlePending();
    /// Deletes a row from the recordset, which stands on the next one then. Raises what the recordset raises,
    /// and has changed nothing then. `removeRow` must follow.
    void deleteStored(int number);
    /// Takes a deleted row off the view.
    void removeRow(int number);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    /// Rows of a recordset that the model would show. Reads them to the end.
    [[nodiscard]] static int countRows(const Recordset* rows);
    /// Inside a reset; `count` comes from before it, since counting may raise.
    void takeRows(int count);
    void refreshRow(int modelRow);
    /// Also in an empty grid the line counts only where it stands first.
    [[nodiscard]] int rowsBefore() const { return m_line && m_position == NewRowPosition::First ? 1 : 0; }

    std::vector<GridColumn> m_columns;
    mutable std::vector<std::unique_ptr<ValueListIndex>> m_lists; ///< Made when first needed.
    std::vector<int> m_fields;                                    ///< Field of each column, or -1.
    std::shared_ptr<Recordset> m_recordset;
    int m_count = 0;     ///< Rows as the views know them.
    bool m_line = false; ///< The new-row line stands.
    PendingRow m_pending;
    TreeRule m_tree;
    int m_treeColumn = 0;
    bool m_hasOwner = true; ///< The rows belong to something that a new one can belong to.
    bool m_allowAdd = false;
    bool m_allowEdit = true;
    NewRowPosition m_position = NewRowPosition::Last;
};

} // namespace tarnwell
