#pragma once

#include "controls/ListBox.h"

namespace tarnwell {

/// A list to mark lines in: a click or Space turns one line's mark round and leaves the others, Shift with a
/// click or an arrow marks all lines up to there, Ctrl+A marks all.
class JobList : public ListBox {
    Q_OBJECT

public:
    explicit JobList(QWidget* parent = nullptr);

    /// True for each marked line, by its index.
    [[nodiscard]] std::vector<bool> marks() const;
    [[nodiscard]] std::vector<qint64> markedItemData() const;

protected:
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const override;
};

} // namespace tarnwell
