#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"
#include "runtime/ListItem.h"

#include <QString>

#include <span>
#include <vector>

namespace tarnwell {

/// Where picked tasks go: a plan, a lot, the options of a lot's task, a builder's option group.
namespace PickingMode {
inline constexpr int Plan = 1, Lot = 2, TaskOptions = 3, OptionGroup = 4;
}

/// The lot task whose options are picked.
struct PickingTask {
    Value jobLotTaskKey;
    Value contractorPlanTaskKey;
    Value parentKey;
    Value masterTaskKey;
    Value codeKey;
    Value name;
    Value excludeDependency;
};

/// What stands behind the picking dialog while it is open.
struct PickingTarget {
    Value ownerKey;        ///< The plan, the lot (also of a task's options) or the builder.
    Value groupKey = {};   ///< The group, for an option group.
    PickingTask task = {}; ///< The task, for its options.
};

/// What the picking dialog reads of the screen that opened it, when it loads and again when tasks are added.
class PickingCaller {
public:
    virtual ~PickingCaller() = default;
    [[nodiscard]] virtual PickingTarget pickingTarget() const = 0;
    /// Options only: the task takes its own key for its parent's and is written. Others are never asked.
    virtual void makeTaskParent() {}
};

/// The heading over a category's lines.
[[nodiscard]] ListItem pickingHeading(const Value& description);

struct PickingList {
    std::vector<ListItem> lines;
    bool nonLinked = false; ///< Options only: the task's plan has none, so the general ones are listed.
};

/// What can still be added: the catalogue's tasks by category and name, without those that the target has,
/// or the task's options. One statement, however long the catalogue is.
[[nodiscard]] PickingList readPickingList(Connection& connection, int mode, const PickingTarget& target);

/// Whether Select All reaches a line: headings and names that end in a capital Y are passed over.
[[nodiscard]] bool isReachedBySelectAll(const QString& line);

/// Copies the picked lines into the target, in their order; headings and tasks that no longer exist
/// are passed over. Rows written before an error stay.
void addPicked(Connection& connection, int mode, const PickingTarget& target, bool nonLinked,
               std::span<const ListItem> picked);

} // namespace tarnwell
