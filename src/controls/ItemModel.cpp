#include "controls/ItemModel.h"

namespace tarnwell {

void ItemModel::setItems(std::vector<ListItem> items) {
    beginResetModel();
    m_items = std::move(items);
    endResetModel();
}

void ItemModel::insert(int at, ListItem item) {
    beginInsertRows({}, at, at);
    m_items.insert(m_items.begin() + at, std::move(item));
    endInsertRows();
}

int ItemModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

QVariant ItemModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const ListItem& item = m_items[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return item.text;
    case Qt::UserRole:
        return item.key;
    default:
        return {};
    }
}

} // namespace tarnwell
