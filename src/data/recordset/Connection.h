#pragma once

#include "data/RunTimeError.h"
#include "data/engine/ConnectionString.h"
#include "data/engine/WaitWatcher.h"

#include <QString>

#include <chrono>
#include <functional>
#include <memory>

namespace tarnwell {

namespace data {
class Engine;
}

/// How long a write waits for another user of the same database, unless set otherwise.
inline constexpr std::chrono::milliseconds usualBusyTimeout{5000};

/// States of a connection or a recordset.
enum class ObjectState { Closed = 0, Open = 1 }; ///< With the numbers that the run time gives them.

/// One connection to one database. Statements are written in the system's own dialect (see `Dialect.h`) and
/// run one at a time: a second statement behind the first, a schema change, attach or pragma is refused.
class Connection {
public:
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// "Provider=...;Data Source=...;...". Raises ObjectOpen while open.
    void setConnectionString(const QString& text);
    [[nodiscard]] const QString& connectionString() const { return m_connectionString; }

    /// In place of `usualBusyTimeout`; takes effect at the next `Open`.
    void setBusyTimeout(std::chrono::milliseconds wait) { m_busyTimeout = wait; }

    /// Who is asked while a write waits for another user; null: nobody. It must outlive the connection or be
    /// replaced. A wait that it gives up raises Cancelled.
    void setWaitWatcher(WaitWatcher* watcher);

    /// Opens the database behind the connection string. Raises ProviderNotFound, DatabaseNotFound (a missing
    /// file is never created), DatabaseForeign (not a database, damaged, or without our tables),
    /// DatabaseLocked.
    void Open();
    /// Closes, even with recordsets open on it; those then raise ObjectClosed. An open transaction is rolled
    /// back. Nothing when it is closed already.
    void Close();
    /// Open from a successful `Open` to `Close`.
    [[nodiscard]] ObjectState State() const;

    /// Runs a statement that returns no rows. Returns the number of rows touched. Waits for another user's
    /// write up to the busy timeout, then raises DatabaseLocked. Raises ObjectClosed while closed.
    int Execute(const QString& sql);

    /// Another number once anybody has written to the database, this connection included: what was read
    /// before still holds as long as it is the same.
    [[nodiscard]] quint32 dataVersion();

    /// Immediate transactions: the wait for another writer happens here. They do not nest: a second begin,
    /// and an end without one, raise NotAllowed.
    void BeginTrans();
    void CommitTrans();
    void RollbackTrans();

    /// The engine below; only `data/` uses it. Raises ObjectClosed while closed.
    [[nodiscard]] data::Engine& engine() const;
    /// The same, for recordsets, which keep it alive after a close.
    [[nodiscard]] const std::shared_ptr<data::Engine>& sharedEngine() const;

private:
    QString m_connectionString;
    std::chrono::milliseconds m_busyTimeout = usualBusyTimeout;
    WaitWatcher* m_waitWatcher = nullptr;
    std::shared_ptr<data::Engine> m_engine;
};

/// Begins a transaction; rolls it back unless `commit` was called.
class Transaction {
public:
    /// The connection must outlive it. Raises what `BeginTrans` raises.
    explicit Transaction(Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    /// Raises DatabaseFailure when the disk refuses; the destructor then rolls back.
    void commit();

private:
    Connection& m_connection;
    bool m_open = true;
};

/// Makes the statements that the connection begins while this lives interruptible: `goesOn` is asked about
/// every millisecond of their work, and once it says false they raise Cancelled. It must not throw. While it
/// is asked, every use of the connection raises NotAllowed; a Close ends the statement and works behind it.
class StatementWatch {
public:
    StatementWatch(Connection& connection, std::function<bool()> goesOn);
    ~StatementWatch();
    StatementWatch(const StatementWatch&) = delete;
    StatementWatch& operator=(const StatementWatch&) = delete;

private:
    std::shared_ptr<data::Engine> m_engine;
};

} // namespace tarnwell
