#pragma once

#include "data/recordset/Connection.h"

#include <QString>

#include <utility>
#include <vector>

namespace tarnwell {

/// The master task categories that are not deleted, by name: description and key, as a combo takes them.
/// `except` leaves one out; 0 for none.
[[nodiscard]] std::vector<std::pair<QString, qint64>> readTaskCategories(Connection& connection,
                                                                         qint64 except = 0);

} // namespace tarnwell
