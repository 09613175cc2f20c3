#pragma once

#include "data/recordset/Connection.h"

namespace tarnwell {

/// Holder of the one shared connection.
class DataEnvironment {
public:
    /// The connection, opened with `gConnectionString` at the first reference. Raises what `Open` raises.
    [[nodiscard]] static Connection& cnnConnection();
    /// Who is asked while a write of the connection waits for another user (see `Connection`), also of those
    /// opened later.
    static void setWaitWatcher(WaitWatcher* watcher);
    /// False before the first reference and after `close`.
    [[nodiscard]] static bool isOpen();
    /// Whether the connection was ever opened: the program had a database to work on.
    [[nodiscard]] static bool wasOpened();
    /// Closes the connection; the next reference opens it again. An error is written to standard error.
    /// Called when the program ends.
    static void close() noexcept;
};

/// The one shared connection, as the screens name it.
[[nodiscard]] inline Connection& connection() {
    return DataEnvironment::cnnConnection();
}

} // namespace tarnwell
