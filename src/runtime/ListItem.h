#pragma once

#include <QString>

#include <utility>

namespace tarnwell {

/// An entry of a combo or list: its text and the key of the record behind it, 0 for none.
struct ListItem {
    ListItem() = default;
    ListItem(QString text_, qint64 key_) : text(std::move(text_)), key(key_) {}

    friend bool operator==(const ListItem&, const ListItem&) = default;

    QString text;
    qint64 key = 0;
};

} // namespace tarnwell
