#include "builders/PickedLines.h"

#include "controls/ListBox.h"

namespace tarnwell {

void offerLines(ListBox& list, const std::vector<ListItem>& lines) {
    list.setItems(lines);
    QFont heading = list.font();
    heading.setBold(true);
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i].key == 0)
            list.item(static_cast<int>(i))->setFont(heading);
    if (!lines.empty())
        list.setCurrentRow(0, QItemSelectionModel::NoUpdate);
}

void selectAllLines(ListBox& list, bool select) {
    // One selection for all lines: the list repaints once.
    QItemSelection reached;
    for (int i = 0; i < list.ListCount(); ++i)
        if (isReachedBySelectAll(list.item(i)->text()))
            reached.append(QItemSelectionRange(list.model()->index(i, 0)));
    list.selectionModel()->select(reached,
                                  select ? QItemSelectionModel::Select : QItemSelectionModel::Deselect);
}

std::vector<ListItem> pickedLines(const ListBox& list) {
    std::vector<ListItem> picked;
    for (int i = 0; i < list.ListCount(); ++i)
        if (list.item(i)->isSelected())
            picked.emplace_back(list.item(i)->text(), list.ItemData(i));
    return picked;
}

} // namespace tarnwell
