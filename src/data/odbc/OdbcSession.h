#pragma once

#include "data/odbc/OdbcStatementCache.h"
#include "data/odbc/ServerDialect.h"

#include <chrono>
#include <memory>
#include <vector>

namespace tarnwell::data {

/// One user's work on a server: a connection, the statements prepared on it and the transaction open on it.
///
/// A connection that proves lost is replaced, and the statement that found it runs again, where nobody can
/// tell the difference: outside of a transaction for what only reads, or was only being prepared, and for the
/// first statement of a transaction, since nothing of it was committed. Everything else raises what the
/// driver said, once; the next statement connects again.
class OdbcSession {
public:
    /// Connects. `dialect` must outlive the session. Raises what `OdbcConnection` raises.
    OdbcSession(const ServerDialect& dialect, QString connectionString,
                std::chrono::milliseconds busyTimeout);

    /// For statements beside those of the engine, between these. Null once it is lost.
    [[nodiscard]] const std::shared_ptr<OdbcConnection>& connection() const { return m_connection; }
    /// Whether selects leased from here on are fetched in portions, and end with their use.
    void setPortions(bool on) { m_inPortions = on; }
    /// A statement of that text, for the caller alone. Raises what the server says about it.
    [[nodiscard]] OdbcLease lease(const QByteArray& sql);
    /// Runs it with the values bound last. Another statement may have taken the leased one's place after it.
    void run(OdbcLease& statement, const OdbcRunner& runner);
    /// Its next row; false at its end.
    [[nodiscard]] bool fetch(OdbcStatement& statement);

    // As `Engine` specifies them; a commit and a rollback require an open transaction.
    void begin(OdbcConnection::Sees sees);
    void commit();
    void abandonTransaction() noexcept;
    [[nodiscard]] bool inTransaction() const { return m_inTransaction; }
    void requireTransactionWhole() const;

    /// Rolls back and disconnects; the session is of no more use.
    void end() noexcept;

private:
    void requireConnection();
    [[nodiscard]] bool connectsAgain() noexcept;
    [[nodiscard]] OdbcLease prepared(const QByteArray& sql);
    void renew(OdbcLease& statement);
    template <class Call>
    auto onLiveConnection(bool repeatable, Call call) -> decltype(call());
    [[nodiscard]] bool hasWrittenNothing() const { return !m_inTransaction || !m_transactionIsUsed; }
    void noteFailure() noexcept;
    void noteLoss() noexcept;
    void noteEndedTransaction() noexcept;

    const ServerDialect& m_server;
    QString m_connectionString;
    std::vector<QByteArray> m_settings;
    std::shared_ptr<OdbcConnection> m_connection; ///< Null once it is lost.
    std::shared_ptr<OdbcStatementCache> m_cache = std::make_shared<OdbcStatementCache>();
    OdbcConnection::Sees m_sees = OdbcConnection::Sees::Latest; ///< Of the transaction begun last.
    bool m_inPortions = false;
    bool m_inTransaction = false;
    bool m_transactionIsUsed = false; ///< A statement of it has run.
    bool m_transactionEnded = false;  ///< By the server; it stays open for its owner.
};

} // namespace tarnwell::data
