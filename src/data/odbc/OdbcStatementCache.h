#pragma once

#include "data/odbc/OdbcStatement.h"

#include <QByteArray>

#include <memory>
#include <unordered_map>

namespace tarnwell::data {

/// Prepared statements of one connection that nobody uses at the moment.
class OdbcStatementCache {
public:
    /// An idle statement of that text, else a new one of the connection. It belongs to the caller alone until
    /// given back.
    [[nodiscard]] std::unique_ptr<OdbcStatement> take(const std::shared_ptr<OdbcConnection>& connection,
                                                      const QByteArray& sql);
    /// The statement least lately used goes when there are too many.
    void giveBack(std::unique_ptr<OdbcStatement> statement) noexcept;
    /// Frees all that is idle: their connection goes.
    void clear() { m_idle.clear(); }

private:
    struct Idle {
        std::unique_ptr<OdbcStatement> statement;
        quint64 lastUse;
    };
    quint64 m_clock = 0;
    std::unordered_multimap<QByteArray, Idle> m_idle;
};

/// The use of one prepared statement; gives it back at its end. Without a cache the statement ends with it.
class OdbcLease {
public:
    OdbcLease(std::shared_ptr<OdbcStatementCache> cache, std::unique_ptr<OdbcStatement> statement)
        : m_cache(std::move(cache)), m_statement(std::move(statement)) {}
    ~OdbcLease();
    OdbcLease(OdbcLease&&) noexcept = default;
    OdbcLease& operator=(OdbcLease&&) = delete;
    OdbcLease(const OdbcLease&) = delete;
    OdbcLease& operator=(const OdbcLease&) = delete;

    void swap(OdbcLease& other) noexcept {
        m_cache.swap(other.m_cache);
        m_statement.swap(other.m_statement);
    }

    [[nodiscard]] OdbcStatement* operator->() const { return m_statement.get(); }
    [[nodiscard]] OdbcStatement& operator*() const { return *m_statement; }

private:
    std::shared_ptr<OdbcStatementCache> m_cache; ///< A recordset may outlive the engine's connection.
    std::unique_ptr<OdbcStatement> m_statement;
};

} // namespace tarnwell::data
