#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"

namespace tarnwell {

/// Where a changed master task is carried to: the positions in the screen's list. Any other position reaches
/// nothing.
namespace CascadeTarget {
inline constexpr int None = 0, BuildersAndJobs = 1, Builders = 2, Jobs = 3;
}

/// What the user chose to carry, and where to.
struct CascadeChoice {
    int target = CascadeTarget::None;
    bool name = false;
    bool price = false;
    bool exclude = false;
};

/// A row of the catalogue as it was committed.
struct CommittedTask {
    Value masterTaskKey;
    Value name;
    Value price;
    Value excludeDependency;
};

/// Carries the chosen fields of a committed task into the builders' plans, then into the tasks of open jobs
/// that nobody has been paid for, then into the builders' option groups (never the name: they show the
/// catalogue's). Done as a whole or not at all. Raises what the connection raises: SyntaxError for an empty
/// price that is to be carried, and for a name with a single quote.
void applyCascade(Connection& connection, const CommittedTask& task, const CascadeChoice& choice);

} // namespace tarnwell
