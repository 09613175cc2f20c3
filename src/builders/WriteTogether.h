#pragma once

#include "data/RunTimeError.h"
#include "data/recordset/Connection.h"

namespace tarnwell {

/// Rows that a routine writes one by one reach the disk together, and a failure leaves those that were
/// written before it: each counts for itself. What the routine raises comes back here.
template <typename Routine>
void writeTogether(Connection& connection, Routine&& routine) {
    Transaction transaction(connection);
    try {
        routine();
    } catch (const RunTimeError&) {
        transaction.commit();
        throw;
    }
    transaction.commit();
}

} // namespace tarnwell
