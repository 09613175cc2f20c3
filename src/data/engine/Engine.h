#pragma once

#include "data/engine/Cursor.h"
#include "data/engine/PendingReader.h"
#include "data/engine/WaitWatcher.h"
#include "data/sql/Dialect.h"

#include <QByteArray>

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace tarnwell::data {

/// A database below one connection: statements, transactions, and the readers that are not at their end. It
/// lives as long as a recordset refers to it, also after it was closed. What a statement raises is said at
/// `Failure`, below "provider".
class Engine {
public:
    Engine() = default;
    virtual ~Engine() = default;
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    /// False after `close`, also before a statement at work has returned.
    [[nodiscard]] virtual bool isOpen() const = 0;
    /// The version of the tables when it was opened: this program's or an earlier one.
    [[nodiscard]] virtual int schemaVersion() const = 0;
    /// Readers lose their rows; an open transaction is rolled back. A second close does nothing. From within
    /// a watch's question it ends the statement at work, and the database is let go of once that statement
    /// has returned.
    virtual void close() = 0;

    /// Raises SyntaxError and PermissionDenied for what is not one statement of rows.
    [[nodiscard]] virtual Translation translate(QStringView sql) = 0;

    // Statements in the engine's own words, as a translation or `RowStatements.h` has them: one statement
    // with a value for each parameter. Dates are dates, yes/no is -1 and 0; Empty is stored as Null. All of
    // them raise NotAllowed from within a watch's question.

    /// Checks the statement and reads nothing yet.
    [[nodiscard]] virtual std::unique_ptr<Cursor> open(const QByteArray& sql,
                                                       std::span<const Value> parameters) = 0;
    /// `open` for a select whose first `most` rows are enough; it may give more. Requires a select without a
    /// LIMIT of its own.
    [[nodiscard]] virtual std::unique_ptr<Cursor> openFirst(const QByteArray& sql,
                                                            std::span<const Value> parameters, int /*most*/) {
        return open(sql, parameters);
    }
    /// `open` for a select of stored rows that nobody else may change before the open transaction ends.
    /// Requires an open transaction.
    [[nodiscard]] virtual std::unique_ptr<Cursor> openLocked(const QByteArray& sql,
                                                             std::span<const Value> parameters) = 0;
    /// Runs the statement to its end; the number of rows that it touched.
    virtual int execute(const QByteArray& sql, std::span<const Value> parameters) = 0;
    /// Runs an INSERT of one row of the table; the key of the new row.
    [[nodiscard]] virtual qint64 insert(const schema::Table& table, const QByteArray& sql,
                                        std::span<const Value> parameters) = 0;
    /// Runs an INSERT of rows of the table that bring keys of their own.
    virtual void insertWithKeys(const schema::Table& /*table*/, const QByteArray& sql,
                                std::span<const Value> parameters) {
        (void)execute(sql, parameters);
    }
    /// The greatest key that the table has ever given out, also to a row that is deleted since as far as the
    /// engine remembers it; 0 for none.
    [[nodiscard]] virtual qint64 greatestKey(const schema::Table& table) = 0;
    /// New keys of the table lie behind `key` from now on, as they do after `insert`. Raises PermissionDenied
    /// where the user may only read and write rows.
    virtual void passKeys(const schema::Table& table, qint64 key) = 0;
    /// Runs a translated statement behind all pending readers; the number of rows it touched. Raises
    /// DatabaseFailure where the open transaction is lost.
    int execute(const Translation& translation);

    /// Another number once anybody has written to the database, this connection included.
    [[nodiscard]] virtual quint32 dataVersion() = 0;

    /// How many programs have the database open, this one among them; nothing where that can't be known.
    [[nodiscard]] virtual std::optional<int> workstations() { return std::nullopt; }

    /// Transactions do not nest: a second begin, and an end without one, raise NotAllowed. A begin waits for
    /// another user's write, up to the busy timeout, and then raises DatabaseLocked.
    virtual void begin() = 0;
    /// Begins a transaction for reading alone: all its reads see one state of the database, also while
    /// others write. It waits for nobody where the engine keeps old states.
    virtual void beginReading() = 0;
    virtual void commit() = 0;
    virtual void rollback() = 0;
    /// Rolls back what is open and reports nothing: for the way out of a failure.
    virtual void abandonTransaction() noexcept = 0;
    [[nodiscard]] virtual bool inTransaction() const = 0;
    /// A full or failing disk makes an engine roll back by itself. The transaction is then lost, but stays
    /// open for its owner to end it; the rest of it must not be written without its beginning. Raises
    /// DatabaseFailure in that state.
    virtual void requireTransactionWhole() const = 0;

    /// Asked again and again while a statement works; false ends it, and it raises Cancelled. Empty: nobody
    /// is asked. While it is asked, the engine refuses to be used.
    virtual void setWatch(std::function<bool()> goesOn) = 0;

    /// Asked while a write waits for another user; null: nobody is, and the busy timeout alone ends the wait.
    /// A wait that it gives up raises Cancelled. It must outlive the engine or be replaced.
    void setWaitWatcher(WaitWatcher* watcher) { m_waitWatcher = watcher; }

    /// A reader must be removed before it is destroyed.
    void addReader(PendingReader& reader) { m_readers.push_back(&reader); }
    void removeReader(const PendingReader& reader);
    /// Has every reader fetch its rest. Due before each write, and before a new read outside a transaction: a
    /// half-read statement may hold the whole connection to an old state of the database, from which it
    /// cannot write and in which other users' work is not seen.
    void completeReaders();

protected:
    /// Raises NotAllowed from within a watch's question.
    virtual void requireOutsideWatch() const = 0;
    /// Has every reader give up the rows that it has not fetched, and forgets all readers.
    void abandonReaders();
    [[nodiscard]] WaitWatcher* waitWatcher() const { return m_waitWatcher; }

private:
    WaitWatcher* m_waitWatcher = nullptr;
    std::vector<PendingReader*> m_readers;
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
