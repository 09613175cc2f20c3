#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace tarnwell {

namespace data {
class RowStore;
}

/// When rows are fetched (see `Recordset`); what others write afterwards shows in none of them.
enum class CursorType { ForwardOnly = 0, Keyset = 1, Dynamic = 2, Static = 3 };
/// ReadOnly refuses every write; the others write row by row and check for other users' changes.
enum class LockType { ReadOnly = 1, Pessimistic = 2, Optimistic = 3 };

/// Rows of a statement, walked by a current position, and written through when the lock type allows it.
///
/// Rows are fetched as they are walked; `RecordCount`, `MoveLast`, `Filter`, `Find`, any write on the
/// connection and the next statement on it fetch what is missing, so that later writes never change what was
/// opened, and no half-read recordset hides another user's work from the others. A recordset opened
/// `Dynamic` fetches nothing until a row is asked for: opening a table by its name to add one row costs one
/// row. Columns are found by name without regard to case; where two tables share a name, by "Job.Name".
///
/// A move, a filter and AddNew first write what is pending, as Update does; Close, Requery and Delete drop
/// it.
///
/// Field reads raise NoCurrentRecord (3021) at BOF or EOF, ItemNotFound (3265) for an unknown column,
/// RowDeleted when the current row was deleted; everything raises ObjectClosed (3704) while closed.
class Recordset {
public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    /// `source` is a statement or a table's name. A statement that returns no rows (UPDATE, DELETE) runs at
    /// once and leaves the recordset closed. Stands on the first row afterwards. Raises ObjectOpen if open.
    void Open(const QString& source, Connection& connection, CursorType cursor = CursorType::Static,
              LockType lock = LockType::ReadOnly);
    /// At most so many rows are read by the next Open and its Requery; 0, as in the beginning, for all.
    /// Raises WrongArguments below 0, ObjectOpen if open.
    void setMaxRecords(int rows);
    /// Lets go of the rows; what is pending is lost. Raises ObjectClosed when it is closed already.
    void Close();
    /// Closed also once the connection is.
    [[nodiscard]] ObjectState State() const;
    /// Runs the statement again; keeps the filter; stands on the first row.
    void Requery();

    [[nodiscard]] bool atBeginning() const; ///< BOF
    [[nodiscard]] bool atEnd() const;       ///< EOF
    void MoveFirst();                       ///< Without rows at BOF and EOF at once, as is `MoveLast`.
    void MoveLast();
    void MoveNext();     ///< At EOF raises NoCurrentRecord.
    void MovePrevious(); ///< At BOF raises NoCurrentRecord.
    void Move(int rows); ///< Relative to the current row; stops at BOF or EOF.

    /// Rows that the filter lets through.
    [[nodiscard]] int RecordCount() const;
    /// 1 for the first row; -1 at BOF, EOF or on a deleted row.
    [[nodiscard]] int AbsolutePosition() const;
    /// Beyond the last row is EOF; below 1 raises WrongArguments.
    void setAbsolutePosition(int position);
    /// Rows of a page; 10 unless set. Raises WrongArguments below 1.
    [[nodiscard]] int PageSize() const;
    void setPageSize(int rows);
    /// The last page may be short; 0 without rows.
    [[nodiscard]] int PageCount() const;
    /// From 1; -1 where `AbsolutePosition` is.
    [[nodiscard]] int AbsolutePage() const;
    /// To the first row of the page; raises WrongArguments when there is no such page.
    void setAbsolutePage(int page);

    /// "Column op value" joined by AND and OR; = <> < > <= >= LIKE ('*' or '%' at the ends); empty text
    /// removes the filter. Text compares without case. Stands on the first row that passes.
    void setFilter(const QString& criteria);
    [[nodiscard]] const QString& Filter() const;
    /// Moves to the next row (the current one included, after skipping `skip` rows) that meets one
    /// comparison; EOF when none does, BOF going backward. Raises NoCurrentRecord at BOF or EOF.
    void Find(const QString& criteria, int skip = 0, bool backward = false);
    /// A second position over the same rows: what one writes the other sees. It starts on the first row,
    /// without the filter.
    [[nodiscard]] Recordset Clone() const;

    [[nodiscard]] int FieldCount() const;
    /// A column's name: qualified only where two columns share it.
    [[nodiscard]] QString FieldName(int index) const;
    /// Position of a column, or -1.
    [[nodiscard]] int FieldIndex(const QString& name) const;
    /// Null comes back as Null. What was set and not yet written is read back; an unset column of a new row
    /// is Empty.
    [[nodiscard]] Value field(const QString& name) const;
    [[nodiscard]] Value field(int index) const;
    [[nodiscard]] Value operator[](const QString& name) const { return field(name); }

    /// Begins a new row with nothing set; it is current until `Update` or `CancelUpdate`.
    void AddNew();
    /// Sets a column of the current row, in memory. Raises WrongType for a value that the column's type
    /// refuses (text that is not a number or date), NotUpdatable on a read-only recordset or computed column.
    void set(const QString& name, const Value& value);
    void set(int index, const Value& value);
    /// Writes what was set. After an AddNew the new row is current and holds its generated key and defaults.
    /// Raises RowChanged or RowDeleted, writing nothing, when another user wrote first; Constraint.
    /// After a failure what was set is still pending: correct it and call again, or `CancelUpdate`.
    void Update();
    /// Forgets what was set, and a row begun by `AddNew`; nothing when nothing is pending.
    void CancelUpdate();
    [[nodiscard]] bool isEditing() const; ///< Something is set or added and not written.
    /// Deletes the current row; it stays current, and unreadable, until the next move. Of joined tables the
    /// one that carries the others' keys loses its row. Raises as `Update`; NotAllowed while a row is being
    /// added.
    void Delete();

    /// Access by row number (1 is the first that the filter lets through) without moving: for grids. Values
    /// are the written ones, not pending ones. A deleted row reads as Empty.
    [[nodiscard]] Value valueAt(int row, int column) const;
    /// True when at least `row` rows exist; fetches no further than that.
    [[nodiscard]] bool hasRow(int row) const;

    /// Its lock type allows writing and its rows stand for stored ones.
    [[nodiscard]] bool isUpdatable() const;

private:
    struct State_;
    [[nodiscard]] State_& open() const; ///< Raises ObjectClosed.

    std::unique_ptr<State_> m_state;
    int m_maxRecords = 0;
};

/// The first column of the first row, or nothing when there is no row.
[[nodiscard]] std::optional<Value> firstValue(Connection& connection, const QString& sql);

} // namespace tarnwell
