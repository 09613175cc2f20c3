#include "data/sqlite/SqliteEngine.h"

#include "data/RunTimeError.h"
#include "data/sqlite/OpenDatabase.h"
#include "data/sqlite/SqliteCell.h"
#include "data/sqlite/StatementCache.h"

#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QThread>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <sqlite3.h>
#include <utility>

namespace tarnwell::data {

namespace {

/// Statements that come through a connection read and write rows and do nothing else.
int authorize(void*, int action, const char*, const char*, const char*, const char*) {
    switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_FUNCTION:
    case SQLITE_RECURSIVE:
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_DELETE:
    case SQLITE_TRANSACTION:
        return SQLITE_OK;
    default:
        return SQLITE_DENY;
    }
}

/// Far less than a millisecond of the engine's work.
constexpr int stepsBetweenLooks = 2000;

/// SQLite sorts as many kilobytes in one go as its cache may hold, and nobody can look in between: while
/// somebody watches, that is some hundredths of a second. Its own size is the better one for writing much.
constexpr int usualCache = 16000, watchedCache = 4000;

/// Counts again the tables that have grown much and whose joins were planned without knowing it; a few
/// hundred rows of each tell enough. A file that is read-only or in use stays as it is: the next close tries
/// again.
void renewStatistics(sqlite3* handle) noexcept {
    sqlite3_set_authorizer(handle, nullptr, nullptr);
    sqlite3_busy_timeout(handle, 0);
    (void)sqlite3_exec(handle, "PRAGMA analysis_limit=400; PRAGMA optimize", nullptr, nullptr, nullptr);
}

class SqliteCursor : public Cursor {
public:
    SqliteCursor(StatementLease statement, std::span<const Value> parameters)
        : m_statement(std::move(statement)) {
        m_statement->bindAll(parameters);
    }

    [[nodiscard]] bool next() override { return m_statement->step(); }
    void read(std::span<Cell> cells, std::span<const std::optional<schema::ColumnType>> types,
              TextArena& texts) const override {
        sqlite3_stmt* statement = m_statement->get();
        for (std::size_t i = 0; i < cells.size(); ++i)
            cells[i] = cellFromColumn(statement, static_cast<int>(i), types[i], texts);
    }

private:
    StatementLease m_statement;
};

class SqliteEngine final : public Engine {
public:
    SqliteEngine(const QString& path, std::chrono::milliseconds busyTimeout)
        : m_busyTimeout(busyTimeout), m_handle(openOurDatabase(path, busyTimeout)),
          m_schemaVersion(stampOf(m_handle, path).version), m_cache(m_handle.get()) {
        setCache(usualCache);
        sqlite3_busy_handler(m_handle.get(), waitsOn, this);
    }
    ~SqliteEngine() override { shutDown(); }
    SqliteEngine(const SqliteEngine&) = delete;
    SqliteEngine& operator=(const SqliteEngine&) = delete;

    [[nodiscard]] bool isOpen() const override { return m_open; }
    [[nodiscard]] int schemaVersion() const override { return m_schemaVersion; }
    void close() override;

    [[nodiscard]] Translation translate(QStringView sql) override { return m_dialect.translate(sql); }
    [[nodiscard]] std::unique_ptr<Cursor> open(const QByteArray& sql,
                                               std::span<const Value> parameters) override {
        return std::make_unique<SqliteCursor>(lease(sql), parameters);
    }
    /// An immediate transaction has locked the file already.
    [[nodiscard]] std::unique_ptr<Cursor> openLocked(const QByteArray& sql,
                                                     std::span<const Value> parameters) override {
        return open(sql, parameters);
    }
    using Engine::execute;
    int execute(const QByteArray& sql, std::span<const Value> parameters) override;
    [[nodiscard]] qint64 insert(const schema::Table& table, const QByteArray& sql,
                                std::span<const Value> parameters) override;

    [[nodiscard]] qint64 greatestKey(const schema::Table& table) override;
    void passKeys(const schema::Table& table, qint64 key) override;

    [[nodiscard]] quint32 dataVersion() override;

    void begin() override { beginWith("BEGIN IMMEDIATE"); }
    void beginReading() override { beginWith("BEGIN"); }
    void commit() override;
    void rollback() override;
    void abandonTransaction() noexcept override;
    [[nodiscard]] bool inTransaction() const override { return m_inTransaction; }
    void requireTransactionWhole() const override;

    void setWatch(std::function<bool()> goesOn) override;

protected:
    void requireOutsideWatch() const override;

private:
    [[nodiscard]] StatementLease lease(const QByteArray& sql);
    void run(const QByteArray& sql, std::span<const Value> parameters = {});
    void beginWith(const QByteArray& sql);
    static int endsStatement(void* engine);
    static int waitsOn(void* engine, int calls);
    void shutDown();
    void setCache(int kilobytes) noexcept;

    std::chrono::milliseconds m_busyTimeout;
    SqliteDatabase m_handle;
    int m_schemaVersion;
    StatementCache m_cache;
    Dialect m_dialect;
    std::function<bool()> m_watch;
    bool m_open = true;
    bool m_askingWatch = false; ///< A statement is at work below, so nothing may be done with the handle.
    bool m_inTransaction = false;
    std::optional<Wait> m_wait; ///< Of a write for another user.
    bool m_mayAsk = false;      ///< A write is at work; a read is over in no time.
    bool m_gaveUp = false;      ///< The watcher ended the wait.
};

void SqliteEngine::close() {
    m_open = false;
    if (!m_askingWatch)
        shutDown();
}

void SqliteEngine::shutDown() {
    m_open = false;
    if (m_handle.get() == nullptr)
        return;
    abandonReaders();
    m_cache.close();
    abandonTransaction();
    renewStatistics(m_handle.get());
    m_handle.close();
}

StatementLease SqliteEngine::lease(const QByteArray& sql) {
    requireOutsideWatch();
    return {m_cache, sql};
}

void SqliteEngine::run(const QByteArray& sql, std::span<const Value> parameters) {
    StatementLease statement = lease(sql);
    statement->bindAll(parameters);
    const QScopedValueRollback<bool> asking(m_mayAsk, true);
    const auto waitEnds = qScopeGuard([this] { m_wait.reset(); });
    m_gaveUp = false;
    try {
        statement->run();
    } catch (const RunTimeError& error) {
        if (m_gaveUp && error.is(Failure::DatabaseLocked))
            raise(Failure::Cancelled);
        throw;
    }
}

/// As the library waits by itself, but for the questions: short at first, since most writes are over soon.
int SqliteEngine::waitsOn(void* engine, int calls) {
    constexpr auto longestSleep = static_cast<int>(Wait::betweenQuestions.count());
    SqliteEngine& self = *static_cast<SqliteEngine*>(engine);
    if (calls == 0)
        self.m_wait.reset();
    if (!self.m_wait)
        self.m_wait.emplace(self.m_mayAsk ? self.waitWatcher() : nullptr);
    Wait& wait = *self.m_wait;
    if (wait.waited() >= self.m_busyTimeout)
        return 0;
    QThread::msleep(static_cast<unsigned long>(std::min(calls + 1, longestSleep)));
    self.m_askingWatch = true;
    const bool goesOn = wait.goesOn();
    self.m_askingWatch = false;
    self.m_gaveUp = !goesOn || !self.m_open;
    return self.m_gaveUp ? 0 : 1;
}

int SqliteEngine::execute(const QByteArray& sql, std::span<const Value> parameters) {
    // A statement that touches no row leaves the count of the one before.
    const qint64 before = sqlite3_total_changes64(m_handle.get());
    run(sql, parameters);
    if (sqlite3_total_changes64(m_handle.get()) == before)
        return 0;
    return static_cast<int>(
        std::min<qint64>(sqlite3_changes64(m_handle.get()), std::numeric_limits<int>::max()));
}

qint64 SqliteEngine::insert(const schema::Table& /*table*/, const QByteArray& sql,
                            std::span<const Value> parameters) {
    run(sql, parameters);
    return sqlite3_last_insert_rowid(m_handle.get());
}

qint64 SqliteEngine::greatestKey(const schema::Table& table) {
    const std::array<Value, 1> name{table.name};
    StatementLease statement =
        lease("SELECT max(coalesce((SELECT seq FROM sqlite_sequence WHERE name=?1), 0), "
              "coalesce((SELECT max(" +
              quoted(table.keyColumn) + ") FROM " + quoted(table.name) + "), 0))");
    statement->bindAll(name);
    return statement->step() ? statement->integerAt(0) : 0;
}

void SqliteEngine::passKeys(const schema::Table& table, qint64 key) {
    const std::array<Value, 2> values{table.name, key};
    run("INSERT INTO sqlite_sequence (name, seq) SELECT ?1, 0 WHERE NOT EXISTS "
        "(SELECT 1 FROM sqlite_sequence WHERE name=?1)",
        std::span(values).first(1));
    run("UPDATE sqlite_sequence SET seq=max(seq, ?2) WHERE name=?1", values);
}

/// SQLite notices another user's write when it begins to read.
quint32 SqliteEngine::dataVersion() {
    completeReaders();
    run("SELECT 1 FROM sqlite_master LIMIT 1");
    quint32 version = 0;
    sqlite3_file_control(m_handle.get(), "main", SQLITE_FCNTL_DATA_VERSION, &version);
    return version;
}

void SqliteEngine::beginWith(const QByteArray& sql) {
    if (m_inTransaction)
        raise(Failure::NotAllowed, QStringLiteral("A transaction is open already."));
    completeReaders();
    run(sql);
    m_inTransaction = true;
}

void SqliteEngine::commit() {
    if (!m_inTransaction)
        raise(Failure::NotAllowed, QStringLiteral("No transaction is open."));
    try {
        requireTransactionWhole();
    } catch (const RunTimeError&) {
        m_inTransaction = false; // nothing is left to be rolled back
        throw;
    }
    run("COMMIT");
    m_inTransaction = false;
}

void SqliteEngine::rollback() {
    if (!m_inTransaction)
        raise(Failure::NotAllowed, QStringLiteral("No transaction is open."));
    completeReaders();
    m_inTransaction = false;
    if (sqlite3_get_autocommit(m_handle.get()) == 0)
        run("ROLLBACK");
}

void SqliteEngine::abandonTransaction() noexcept {
    m_inTransaction = false;
    if (m_handle.get() != nullptr && sqlite3_get_autocommit(m_handle.get()) == 0)
        sqlite3_exec(m_handle.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void SqliteEngine::requireTransactionWhole() const {
    if (m_inTransaction && sqlite3_get_autocommit(m_handle.get()) != 0)
        raise(Failure::DatabaseFailure, QStringLiteral("The transaction was rolled back after a failure."));
}

void SqliteEngine::setWatch(std::function<bool()> goesOn) {
    m_watch = std::move(goesOn);
    if (!m_open) { // it was closed while the watch was asked
        shutDown();
        return;
    }
    setCache(m_watch ? watchedCache : usualCache);
    sqlite3_progress_handler(m_handle.get(), m_watch ? stepsBetweenLooks : 0, endsStatement, this);
}

/// The question may let events through, and with them whatever the program does on an error.
int SqliteEngine::endsStatement(void* engine) {
    SqliteEngine& self = *static_cast<SqliteEngine*>(engine);
    self.m_askingWatch = true;
    const bool goesOn = self.m_watch();
    self.m_askingWatch = false;
    return goesOn && self.m_open ? 0 : 1;
}

void SqliteEngine::requireOutsideWatch() const {
    if (m_askingWatch)
        raise(Failure::NotAllowed, QStringLiteral("Another statement is at work."));
}

/// Statements from outside may not set it, so their guard is put up behind it.
void SqliteEngine::setCache(int kilobytes) noexcept {
    sqlite3_set_authorizer(m_handle.get(), nullptr, nullptr);
    const QByteArray sql = "PRAGMA cache_size=-" + QByteArray::number(kilobytes);
    (void)sqlite3_exec(m_handle.get(), sql.constData(), nullptr, nullptr, nullptr);
    sqlite3_set_authorizer(m_handle.get(), authorize, nullptr);
}

} // namespace

std::shared_ptr<Engine> openSqliteEngine(const QString& path, std::chrono::milliseconds busyTimeout) {
    return std::make_shared<SqliteEngine>(path, busyTimeout);
}

} // namespace tarnwell::data
