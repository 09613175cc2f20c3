#pragma once

#include "controls/ListBox.h"

namespace tarnwell {

/// A list whose lines can be marked: a click or Space toggles the mark of one line and leaves the others,
/// Shift with a click or an arrow key marks all lines up to there, Ctrl+A marks all.
class JobList : public ListBox {
    Q_OBJECT

public:
    explicit JobList(QWidget* parent = nullptr);

    /// For each line whether it is marked.
    [[nodiscard]] std::vector<bool> marks() const;
    /// The keys of the marked lines, in the list's order.
    [[nodiscard]] std::vector<qint64> markedItemData() const;

protected:
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const override;
};

} // namespace tarnwell
