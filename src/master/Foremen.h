#pragma once

#include "data/recordset/Connection.h"

#include <QString>

#include <vector>

namespace tarnwell {

/// "Last/First" of everybody of the type "Foreman", also of the inactive, by last name. Those without a last
/// or a first name are left out.
[[nodiscard]] std::vector<QString> readForemen(Connection& connection);

} // namespace tarnwell
