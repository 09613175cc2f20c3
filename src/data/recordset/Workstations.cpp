#include "data/recordset/Workstations.h"

#include "data/engine/Engine.h"

namespace tarnwell {

std::optional<int> workstations(Connection& connection) {
    return connection.engine().workstations();
}

} // namespace tarnwell
