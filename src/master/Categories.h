#pragma once

#include "data/recordset/Connection.h"
#include "runtime/ListItem.h"

#include <QString>

#include <vector>

namespace tarnwell {

/// The master task categories that are not deleted, by name: description and key, as a combo takes them.
/// `except` leaves one out; 0 for none.
[[nodiscard]] std::vector<ListItem> readTaskCategories(Connection& connection, qint64 except = 0);

} // namespace tarnwell
