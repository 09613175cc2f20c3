#pragma once

#include "runtime/ListItem.h"

#include <QAbstractListModel>

#include <vector>

namespace tarnwell {

/// The entries of a drop-down list, kept flat: twenty thousand of them are filled and dropped at once.
/// The number stands in Qt::UserRole.
class ItemModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// Replaces all; views forget what was current.
    void setItems(std::vector<ListItem> items);
    /// `at` from 0 to the count.
    void insert(int at, ListItem item);
    [[nodiscard]] const std::vector<ListItem>& items() const { return m_items; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<ListItem> m_items;
};

} // namespace tarnwell
