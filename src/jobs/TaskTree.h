#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"

#include <QtGlobal>

#include <functional>

namespace tarnwell {

/// Where a lot task stands in the tree of its lot. A plain task is 0, 0; a parent points at itself, 0; an
/// option points at its parent, 1. The tree has two levels.
struct TreePlace {
    qint64 parentKey = 0;
    qint64 child = 0;
};

/// Deletes a task that stands at `place` by `deleteRow` and repairs the tree: the options of a parent become
/// plain tasks, and so does a parent whose last option was deleted. It is one write: nobody sees options
/// without their parent. Raises what `deleteRow` raises, and NoCurrentRecord for an option whose parent no
/// longer exists, which then is deleted all the same.
void deleteFromTree(Connection& connection, const TreePlace& place, const std::function<void()>& deleteRow);

/// The lot that is copied, as its grid shows it.
struct LotToCopy {
    Value jobLotKey;
    Value jobKey;
    Value lotBlock;
    Value planName;
    Value address;
    Value contractorPlanKey;
};

/// Copies a lot into its job with the tasks of all categories and returns the new lot's key. Prices are those
/// of the source lot; dates and employees are not copied. By name, parent and child, an option is linked only
/// when no plain task and no other parent comes between its parent and it; else its copy is plain. What was
/// written before an error stays.
qint64 copyLot(Connection& connection, const LotToCopy& source);

} // namespace tarnwell
