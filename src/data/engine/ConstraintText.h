#pragma once

#include <QString>

namespace tarnwell::data {

/// What a write was refused for by a rule of the database, whichever engine keeps it.
enum class BrokenRule {
    NoSuchParent, ///< The row refers to one that does not exist.
    IsReferredTo, ///< Other rows refer to the row that was to be deleted or changed.
    NoValue,      ///< A column must have a value.
    ExistsAlready ///< Another row has the value.
};

/// What a user reads of it. `column`: the column, as its engine names it; the rules about rows need none.
[[nodiscard]] QString constraintText(BrokenRule rule, const QString& column = {});

} // namespace tarnwell::data
