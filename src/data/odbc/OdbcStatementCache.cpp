#include "data/odbc/OdbcStatementCache.h"

#include <algorithm>

namespace tarnwell::data {

namespace {

/// More than all screens together send; what is beyond is text typed once.
constexpr std::size_t maximumIdle = 160;

} // namespace

// A statement in use is not in the cache, so that a second recordset of the same text gets one of its own.

std::unique_ptr<OdbcStatement> OdbcStatementCache::take(const std::shared_ptr<OdbcConnection>& connection,
                                                        const QByteArray& sql) {
    const auto found = m_idle.find(sql);
    if (found == m_idle.end())
        return std::make_unique<OdbcStatement>(connection, sql);
    auto statement = std::move(found->second.statement);
    m_idle.erase(found);
    // One that comes back from a connection that was lost meanwhile is of no more use.
    return statement->connection() == connection ? std::move(statement)
                                                 : std::make_unique<OdbcStatement>(connection, sql);
}

void OdbcStatementCache::giveBack(std::unique_ptr<OdbcStatement> statement) noexcept {
    if (statement->wasCancelled())
        return;
    statement->reset();
    if (m_idle.size() >= maximumIdle)
        m_idle.erase(
            std::ranges::min_element(m_idle, {}, [](const auto& entry) { return entry.second.lastUse; }));
    QByteArray key = statement->sql();
    m_idle.emplace(std::move(key), Idle{std::move(statement), ++m_clock});
}

OdbcLease::~OdbcLease() {
    if (m_statement != nullptr && m_cache != nullptr)
        m_cache->giveBack(std::move(m_statement));
}

} // namespace tarnwell::data
