#pragma once

#include "data/recordset/Connection.h"

#include <QString>

#include <functional>

namespace tarnwell {

/// How far a copy is. Each row counts twice: when it is written and when it is compared.
struct CopyProgress {
    QString table;
    qint64 done = 0;
    qint64 all = 0;
};

struct CopyResult {
    qint64 rows = 0; ///< That were copied.
    QString
        usedTable; ///< Of the target, which then is not empty and stays as it is; empty when it was copied.
};

/// Copies every row of one database to another one, which may be of another engine. Both are open and of
/// ours, the source perhaps of an earlier version; the target holds nothing, or nothing but the rows of a new
/// database, which give way.
///
/// The source is read in one state, also while others write. Rows keep their keys, and new keys of the target
/// lie behind all that the source ever gave out. Every row is read back and compared before the one
/// transaction of the target ends: on any failure, and after a kill, the target is as it was. Raises what the
/// engines raise, with the row's table and key in front where a row was refused, NotAllowed for a target of
/// an earlier version, and DatabaseFailure for a row that did not arrive as it is. Memory does not grow with
/// the number of rows.
[[nodiscard]] CopyResult copyDatabase(
    Connection& source, Connection& target,
    const std::function<void(const CopyProgress&)>& progress = [](const CopyProgress&) {});

} // namespace tarnwell
