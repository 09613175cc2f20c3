#pragma once

#include <QObject>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <functional>

namespace tarnwell {

class Grid;

/// What the rows of a detail grid belong to; 0 for none.
struct DetailKeys {
    qint64 owner = 0;    ///< The record chosen beside the grid: a lot, a plan.
    qint64 category = 0; ///< The entry chosen in the list or combo beside the grid.

    friend bool operator==(const DetailKeys&, const DetailKeys&) = default;
};

/// Keeps the rows of a grid in step with what is chosen beside it, in a list, a combo or another grid. A
/// pending row belongs to the keys that are on show, so it is written before other rows take its place. A row
/// that is refused stays on show under its own keys until it is corrected or given up.
class DetailRows {
public:
    struct Source {
        std::function<DetailKeys()> chosen; ///< What is chosen now. What it raises comes back to the caller.
        /// Puts the rows of these keys into the grid. What it raises must leave the rows as they were, or
        /// none.
        std::function<void(const DetailKeys&)> show;
        /// Writes what is pending; false when it was refused and the message shown. Left out: the grid's row.
        std::function<bool()> write = {};
        /// How the screen follows, with its handling of errors. Left out: `follow`.
        std::function<void()> reload = {};
    };

    /// The grid must outlive the object.
    DetailRows(Grid& grid, Source source);

    /// Writes what is pending, then shows the rows of what is chosen, also when they are on show already, and
    /// stands on row `standOn` or the last; 0 leaves the place to `show`. False when a row was refused: it
    /// stays, and so do `keys`. Raises what `write`, `chosen` and `show` raise.
    bool follow(int standOn = 0);
    /// Reloads when something else was chosen while a row was refused, and nothing is pending any more. Runs
    /// by itself when a row is given up; call it where the user comes back to the grid or moves in it.
    void catchUp();
    /// The rows on show are those of what is chosen.
    [[nodiscard]] bool isCurrent() const;
    /// Of the rows on show, and so of a row that is typed among them.
    [[nodiscard]] const DetailKeys& keys() const { return m_keys; }
    /// After the grid was emptied in another way.
    void forgetOwner() { m_keys.owner = 0; }

    /// While the result lives, changes of row in this grid and in the one beside it are not the user's.
    [[nodiscard]] QScopedValueRollback<bool> hold() { return QScopedValueRollback<bool>(m_held, true); }
    /// Rows are being replaced, or `hold` is in force: a change of row means nothing.
    [[nodiscard]] bool isHeld() const { return m_held; }

private:
    Grid& m_grid;
    Source m_source;
    DetailKeys m_keys;
    bool m_held = false;
    QObject m_context; ///< Ends the connection to the grid with this object.
};

/// The key of the entry that is chosen in a list or combo; 0 when none is.
template <class List>
[[nodiscard]] qint64 chosenKey(List& list) {
    const int index = list.ListIndex();
    return index < 0 ? 0 : list.ItemData(index);
}

/// Chooses the entry of `key` again in a list or combo, without its event; nothing when there is none. For
/// screens that keep the choice with the row that was refused.
template <class List>
void restoreChoice(List& list, qint64 key) {
    const QSignalBlocker quiet(list);
    for (int i = 0; i < list.ListCount(); ++i)
        if (list.ItemData(i) == key) {
            list.setListIndex(i);
            return;
        }
}

} // namespace tarnwell
