#pragma once

#include "data/RunTimeError.h"
#include "data/recordset/Connection.h"

namespace tarnwell {

/// Runs a routine in one transaction and commits whatever it wrote, also when it fails half-way: each row
/// counts for itself. Raises what the routine raises; else what the commit raises, and nothing is stored
/// then. Requires: no transaction is open.
template <typename Routine>
void commitWritten(Connection& connection, Routine&& routine) {
    Transaction transaction(connection);
    try {
        routine();
    } catch (const RunTimeError&) {
        try {
            transaction.commit();
        } catch (const RunTimeError&) {
            // A full disk, for one, makes the engine roll back by itself: there is nothing left to commit,
            // and the routine's error says why.
        }
        throw;
    }
    transaction.commit();
}

} // namespace tarnwell
