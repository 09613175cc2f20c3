#include "reports/generator/JobMarks.h"

#include <QInputEvent>

namespace tarnwell {

JobMarks::JobMarks(QWidget* parent) : ListBox(Pitch::Fixed, parent) {
    setSelectionMode(MultiSelection);
}

std::vector<bool> JobMarks::marks() const {
    std::vector<bool> marks(static_cast<std::size_t>(ListCount()));
    for (const QModelIndex& line : selectionModel()->selectedIndexes())
        marks[static_cast<std::size_t>(line.row())] = true;
    return marks;
}

std::vector<qint64> JobMarks::markedItemData() const {
    const std::vector<bool> marked = marks();
    std::vector<qint64> keys;
    for (int line = 0; line < ListCount(); ++line)
        if (marked[static_cast<std::size_t>(line)])
            keys.push_back(ItemData(line));
    return keys;
}

QItemSelectionModel::SelectionFlags JobMarks::selectionCommand(const QModelIndex& index,
                                                               const QEvent* event) const {
    const auto* input = dynamic_cast<const QInputEvent*>(event);
    if (input != nullptr && (input->modifiers() & Qt::ShiftModifier) != 0)
        return QItemSelectionModel::SelectCurrent;
    return ListBox::selectionCommand(index, event);
}

} // namespace tarnwell
