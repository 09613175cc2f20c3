#pragma once

#include "data/sqlite/SqliteDatabase.h"

#include <QByteArray>

#include <algorithm>
#include <memory>
#include <unordered_map>

namespace tarnwell::data {

/// A prepared statement, so that the thousandth query of a loop only binds.
struct PreparedStatement {
    QByteArray sql; ///< The key by which it is found again.
    SqliteStatement statement;
    quint64 lastUse = 0; ///< By the cache's own clock.
};

/// Prepared statements that nobody uses at the moment. Must not outlive its handle.
class StatementCache {
public:
    explicit StatementCache(sqlite3* handle) : m_handle(handle) {}

    /// An idle statement of that text, else a new one. It belongs to the caller alone until given back.
    [[nodiscard]] std::unique_ptr<PreparedStatement> take(const QByteArray& sql);
    /// Resets it. When there are too many, the one that was used longest ago is finalized.
    void giveBack(std::unique_ptr<PreparedStatement> prepared);
    /// Finalizes all that is idle; what comes back later is finalized as well.
    void close();

private:
    /// Statements with all columns of a table are long, and most are looked up by the very text of their
    /// shape: its end tells them apart well enough, and equal texts are mostly one.
    struct Hash {
        std::size_t operator()(const QByteArray& sql) const noexcept {
            return qHash(QByteArrayView(sql).last(std::min<qsizetype>(sql.size(), 48)), sql.size());
        }
    };
    struct Equal {
        bool operator()(const QByteArray& a, const QByteArray& b) const noexcept {
            return a.constData() == b.constData() || a == b;
        }
    };
    void dropOldest();

    sqlite3* m_handle;
    quint64 m_clock = 0;
    std::unordered_multimap<QByteArray, std::unique_ptr<PreparedStatement>, Hash, Equal> m_idle;
};

/// The use of one prepared statement; gives it back at its end.
class StatementLease {
public:
    StatementLease() = default;
    StatementLease(StatementCache& cache, const QByteArray& sql)
        : m_cache(&cache), m_prepared(cache.take(sql)) {}
    ~StatementLease() { release(); }
    StatementLease(StatementLease&& other) noexcept = default;
    StatementLease& operator=(StatementLease&& other) noexcept;
    StatementLease(const StatementLease&) = delete;
    StatementLease& operator=(const StatementLease&) = delete;

    /// Gives it back now; nothing when it holds none.
    void release();
    [[nodiscard]] explicit operator bool() const { return m_prepared != nullptr; }
    [[nodiscard]] SqliteStatement* operator->() const { return &m_prepared->statement; }

private:
    StatementCache* m_cache = nullptr;
    std::unique_ptr<PreparedStatement> m_prepared;
};

} // namespace tarnwell::data
