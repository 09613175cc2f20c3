#include "reports/generator/JobList.h"

#include <QInputEvent>

namespace tarnwell {

JobList::JobList(QWidget* parent) : ListBox(Pitch::Fixed, parent) {
    setSelectionMode(MultiSelection);
}

std::vector<bool> JobList::marks() const {
    std::vector<bool> marks(static_cast<std::size_t>(ListCount()));
    for (const QModelIndex& line : selectionModel()->selectedIndexes())
        marks[static_cast<std::size_t>(line.row())] = true;
    return marks;
}

std::vector<qint64> JobList::markedItemData() const {
    const std::vector<bool> marked = marks();
    std::vector<qint64> keys;
    for (int line = 0; line < ListCount(); ++line)
        if (marked[static_cast<std::size_t>(line)])
            keys.push_back(ItemData(line));
    return keys;
}

QItemSelectionModel::SelectionFlags JobList::selectionCommand(const QModelIndex& index,
                                                              const QEvent* event) const {
    const auto* input = dynamic_cast<const QInputEvent*>(event);
    if (input != nullptr && (input->modifiers() & Qt::ShiftModifier) != 0)
        return QItemSelectionModel::SelectCurrent;
    return ListBox::selectionCommand(index, event);
}

} // namespace tarnwell
