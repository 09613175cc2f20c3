#pragma once

#include "data/sql/Dialect.h"
#include "data/sqlite/SqliteHandle.h"
#include "data/sqlite/StatementCache.h"

#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace tarnwell::data {

class RowStore;

/// SQLite below one connection: statements in the system's dialect, transactions, and the recordsets that
/// are still reading. It lives as long as a recordset refers to it, also after it was closed.
class Engine {
public:
    /// Raises what `openOurDatabase` raises.
    Engine(const QString& path, std::chrono::milliseconds busyTimeout);
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    [[nodiscard]] bool isOpen() const { return m_open; }
    /// Recordsets that are still reading lose their rows; an open transaction is rolled back. A second close
    /// does nothing. From within a watch's question it ends the statement at work, and the file is let go of
    /// once that statement has returned.
    void close();

    /// Raises SyntaxError and PermissionDenied for what is not one statement of rows.
    [[nodiscard]] Translation translate(QStringView sql) { return m_dialect.translate(sql); }
    /// A statement in the engine's own words, prepared before or now. Raises NotAllowed from within a watch's
    /// question, as does everything that comes here.
    [[nodiscard]] StatementLease lease(const QByteArray& sql);
    /// Runs a translated statement to its end; the number of rows it touched. Raises DatabaseFailure where
    /// the open transaction is lost: the rest of it must not be written without its beginning.
    int execute(const Translation& translation);

    /// As the connection's.
    [[nodiscard]] quint32 dataVersion();

    /// As the connection's transactions. A begin waits for another seat's write, up to the busy timeout.
    void begin();
    void commit();
    void rollback();
    /// Rolls back what is open and reports nothing: for the way out of a failure.
    void abandonTransaction() noexcept;
    [[nodiscard]] bool inTransaction() const { return m_inTransaction; }
    /// A full or failing disk makes the engine roll back by itself. The transaction is then lost, but stays
    /// open for its owner to end it. Raises DatabaseFailure in that state.
    void requireTransactionWhole() const;

    /// Asked again and again while a statement works; false ends it, and it raises Cancelled. Empty:
    /// nobody is asked. While it is asked, the engine refuses to be used.
    void setWatch(std::function<bool()> goesOn);

    /// Recordsets whose statement has not come to its end.
    void addReader(RowStore& reader) { m_readers.push_back(&reader); }
    void removeReader(const RowStore& reader);
    /// Has every reader fetch its rest. Due before each write, and before a new read outside a transaction: a
    /// half-read statement holds the whole connection to an old state of the file, from which the engine
    /// refuses to write and in which another seat's work is not seen.
    void completeReaders();

private:
    static int endsStatement(void* engine);
    void requireOutsideWatch() const;
    void shutDown();
    void setCache(int kilobytes) noexcept;

    SqliteHandle m_handle;
    StatementCache m_cache;
    Dialect m_dialect;
    std::vector<RowStore*> m_readers;
    std::function<bool()> m_watch;
    bool m_open = true;
    bool m_askingWatch = false; ///< A statement is at work below, so nothing may be done with the handle.
    bool m_inTransaction = false;
};

/// Makes several statements one write: begins an immediate transaction unless one is open, and rolls its own
/// back unless it was committed.
class WriteScope {
public:
    explicit WriteScope(Engine& engine);
    ~WriteScope();
    WriteScope(const WriteScope&) = delete;
    WriteScope& operator=(const WriteScope&) = delete;
    /// Does nothing inside a transaction of the caller's.
    void commit();

private:
    Engine& m_engine;
    bool m_own;
};

} // namespace tarnwell::data
