#pragma once

#include "data/recordset/Connection.h"

#include <QString>

#include <vector>

namespace tarnwell {

/// One step from an empty database to the first payment.
struct FirstStep {
    QString caption;
    QString hint;   ///< What to do there, in one line.
    QString screen; ///< The key of the screen that it is done on.
    bool isDone = false;
};

/// The five steps in their order, as far as the rows show that they are done; none once there is a payment.
/// Each looks for one row.
[[nodiscard]] std::vector<FirstStep> readFirstSteps(Connection& connection);

} // namespace tarnwell
