#pragma once

#include "sample/SampleRandom.h"
#include "sample/SampleScale.h"
#include "sample/SampleTables.h"

#include <vector>

namespace tarnwell::sample {

/// A row of the catalogue as the later steps need it. Prices are whole cents, so that no rounding of doubles
/// decides what is stored.
struct MasterTask {
    qint64 key = 0;
    qint64 codeKey = 0;
    int trade = 0; ///< Position in the building order.
    QString name;
    int cents = 0;
    const char* custom = "N";
    bool excluded = false;
};

struct Catalogue {
    std::vector<qint64> tradeKeys; ///< `CodeKey` of each trade in the building order.
    std::vector<MasterTask> tasks; ///< Those that plans choose from, in the building order.
    MasterTask finalTask;
    qint64 serviceKey = 0; ///< The category of 2,000 tasks; 0 except where landmarks stand.
    std::vector<MasterTask> serviceTasks;
};

[[nodiscard]] inline double money(int cents) {
    return cents / 100.0;
}

/// Categories, master tasks and dependencies.
[[nodiscard]] Catalogue writeCatalogue(SampleTables& tables, const Scale& scale);

} // namespace tarnwell::sample
