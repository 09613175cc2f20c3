#pragma once

#include "data/recordset/Connection.h"
#include "runtime/ListItem.h"

#include <QString>

#include <vector>

namespace tarnwell {

/// A builder's open jobs for price updates, a line and a key each, the newest job number first. In front
/// stands a header of key 0; nothing behind it for a builder of 0.
[[nodiscard]] std::vector<ListItem> readOpenJobs(Connection& connection, qint64 builderKey);

} // namespace tarnwell
