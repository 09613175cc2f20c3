#include "data/sqlite/StatementCache.h"

#include <algorithm>

namespace tarnwell::data {

namespace {

/// More than all screens together send; what is beyond is text typed once.
constexpr std::size_t maximumIdle = 160;

} // namespace

// A statement in use is not in the cache, so that a second recordset of the same text gets one of its own.

std::unique_ptr<PreparedStatement> StatementCache::take(const QByteArray& sql) {
    const auto found = m_idle.find(sql);
    if (found == m_idle.end())
        return std::make_unique<PreparedStatement>(PreparedStatement{sql, SqliteStatement(m_handle, sql), 0});
    auto prepared = std::move(found->second);
    m_idle.erase(found);
    return prepared;
}

void StatementCache::giveBack(std::unique_ptr<PreparedStatement> prepared) {
    if (m_handle == nullptr)
        return;
    // Bound texts are kept until the next binding; that is cheaper than clearing and harms nobody.
    prepared->statement.reset();
    prepared->lastUse = ++m_clock;
    if (m_idle.size() >= maximumIdle)
        dropOldest();
    QByteArray key = prepared->sql;
    m_idle.emplace(std::move(key), std::move(prepared));
}

void StatementCache::close() {
    m_handle = nullptr;
    m_idle.clear();
}

void StatementCache::dropOldest() {
    m_idle.erase(
        std::ranges::min_element(m_idle, {}, [](const auto& entry) { return entry.second->lastUse; }));
}

StatementLease& StatementLease::operator=(StatementLease&& other) noexcept {
    release();
    m_cache = other.m_cache;
    m_prepared = std::move(other.m_prepared);
    return *this;
}

void StatementLease::release() {
    if (m_prepared != nullptr)
        m_cache->giveBack(std::move(m_prepared));
}

} // namespace tarnwell::data
