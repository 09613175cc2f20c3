#pragma once

#include "data/transfer/DatabaseAddress.h"

#include <QString>

#include <memory>

namespace tarnwell {

/// A new database in the making, or one that waits to be filled.
class DatabaseTarget {
public:
    DatabaseTarget() = default;
    virtual ~DatabaseTarget() = default;
    DatabaseTarget(const DatabaseTarget&) = delete;
    DatabaseTarget& operator=(const DatabaseTarget&) = delete;

    /// What opens it meanwhile.
    [[nodiscard]] virtual QString connectionString() const = 0;
    /// The engine counts what was filled in, by which it plans joins. Every connection must be closed.
    virtual void updateStatistics() = 0;
    /// A new file gets its name, a new catalog stays. Every connection must be closed.
    virtual void finish() = 0;
};

enum class ExistingFile { Keep, Replace };

/// A new database: a file that gets its name when it is finished, or a catalog, which is made where it is
/// missing; what was made is removed again when it is not finished. Raises FileAccess where a file is to be
/// kept, and NotAllowed, in words for the user, for a catalog that is not empty.
[[nodiscard]] std::unique_ptr<DatabaseTarget> newTarget(const DatabaseAddress& address,
                                                        ExistingFile existing);

/// A database that is there already, full or empty, or else a new one. Raises NotAllowed, in words for
/// the user, for a catalog of somebody else's tables.
[[nodiscard]] std::unique_ptr<DatabaseTarget> targetToFill(const DatabaseAddress& address);

/// Raises an error that says nothing but the text.
[[noreturn]] void refuse(const QString& text);

} // namespace tarnwell
