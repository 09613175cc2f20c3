#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"

#include <span>

namespace tarnwell {

/// A cell of a plan's task that took a new value.
struct PlanTaskEdit {
    int column;        ///< Its number in the grid of a plan's tasks.
    Value planTaskKey; ///< Empty, Null or 0: not stored yet.
    Value price;       ///< The row's price; Null for none.
};

/// The column whose edit carries the price into jobs. It is that of the row's button, so no edit of the
/// price itself does.
inline constexpr int propagatedColumn = 5;

/// Gives the price to every lot task that came from this plan task in the jobs, from the first to the last,
/// paid or not; nothing else of them changes. A job of 0 or completed meanwhile is passed over. Each row is
/// written by itself: what was written before an error stays. Returns how many were.
int propagatePrice(Connection& connection, const PlanTaskEdit& edit, std::span<const qint64> jobKeys);

} // namespace tarnwell
