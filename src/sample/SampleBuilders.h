#pragma once

#include "sample/SampleCatalogue.h"

namespace tarnwell::sample {

/// A stored plan task with the plan's own price.
struct PlanTask {
    qint64 key = 0;
    const MasterTask* master = nullptr;
    int cents = 0;
};

struct Plan {
    qint64 key = 0;
    QString name;
    std::vector<PlanTask> tasks; ///< In the building order.
};

/// One task of an option group, with the group's price for it.
struct GroupRow {
    const MasterTask* master = nullptr;
    int cents = 0;
};

struct OptionGroup {
    QString name;
    std::vector<GroupRow> rows;
};

struct Builder {
    qint64 key = 0;
    std::vector<Plan> plans;
    std::vector<OptionGroup> groups;
};

/// Builders with their plans, plan tasks and option groups. `catalogue` must outlive the result.
[[nodiscard]] std::vector<Builder> writeBuilders(SampleTables& tables, SampleRandom& random,
                                                 const Scale& scale, const Catalogue& catalogue);

} // namespace tarnwell::sample
