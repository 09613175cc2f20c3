#include "data/engine/Engine.h"

#include "data/RunTimeError.h"
#include "data/recordset/RowStore.h"
#include "data/sqlite/OpenDatabase.h"

#include <limits>
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

/// The engine sorts as many kilobytes in one go as its cache may hold, and nobody can look in between: while
/// somebody watches, that is some hundredths of a second. Its own size is the better one for writing much.
constexpr int usualCache = 16000, watchedCache = 4000;

/// Counts again the tables that have grown much and whose joins the engine planned without knowing it; a few
/// hundred rows of each tell enough. A file that is read-only or in use stays as it is: the next close tries
/// again.
void renewStatistics(sqlite3* handle) noexcept {
    sqlite3_set_authorizer(handle, nullptr, nullptr);
    sqlite3_busy_timeout(handle, 0);
    (void)sqlite3_exec(handle, "PRAGMA analysis_limit=400; PRAGMA optimize", nullptr, nullptr, nullptr);
}

} // namespace

Engine::Engine(const QString& path, std::chrono::milliseconds busyTimeout)
    : m_handle(openOurDatabase(path, busyTimeout)), m_cache(m_handle.get()) {
    setCache(usualCache);
}

Engine::~Engine() {
    shutDown();
}

void Engine::close() {
    m_open = false;
    if (!m_askingWatch)
        shutDown();
}

void Engine::shutDown() {
    m_open = false;
    if (m_handle.get() == nullptr)
        return;
    for (RowStore* reader : m_readers)
        reader->abandon();
    m_readers.clear();
    m_cache.close();
    abandonTransaction();
    renewStatistics(m_handle.get());
    m_handle.close();
}

StatementLease Engine::lease(const QByteArray& sql) {
    requireOutsideWatch();
    return {m_cache, sql};
}

int Engine::execute(const Translation& translation) {
    completeReaders();
    requireTransactionWhole();
    StatementLease statement = lease(translation.shape->sql);
    statement->bindAll(translation.parameters);
    statement->run();
    if (translation.shape->kind == StatementKind::Select)
        return 0;
    return static_cast<int>(
        std::min<qint64>(sqlite3_changes64(m_handle.get()), std::numeric_limits<int>::max()));
}

/// The engine notices another seat's write when it begins to read.
quint32 Engine::dataVersion() {
    completeReaders();
    lease("SELECT 1 FROM sqlite_master LIMIT 1")->run();
    quint32 version = 0;
    sqlite3_file_control(m_handle.get(), "main", SQLITE_FCNTL_DATA_VERSION, &version);
    return version;
}

void Engine::begin() {
    if (m_inTransaction)
        raise(Failure::NotAllowed, QStringLiteral("A transaction is open already."));
    completeReaders();
    lease("BEGIN IMMEDIATE")->run();
    m_inTransaction = true;
}

void Engine::commit() {
    if (!m_inTransaction)
        raise(Failure::NotAllowed, QStringLiteral("No transaction is open."));
    try {
        requireTransactionWhole();
    } catch (const RunTimeError&) {
        m_inTransaction = false; // nothing is left to be rolled back
        throw;
    }
    lease("COMMIT")->run();
    m_inTransaction = false;
}

void Engine::rollback() {
    if (!m_inTransaction)
        raise(Failure::NotAllowed, QStringLiteral("No transaction is open."));
    completeReaders();
    m_inTransaction = false;
    if (sqlite3_get_autocommit(m_handle.get()) == 0)
        lease("ROLLBACK")->run();
}

void Engine::abandonTransaction() noexcept {
    m_inTransaction = false;
    if (m_handle.get() != nullptr && sqlite3_get_autocommit(m_handle.get()) == 0)
        sqlite3_exec(m_handle.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Engine::requireTransactionWhole() const {
    if (m_inTransaction && sqlite3_get_autocommit(m_handle.get()) != 0)
        raise(Failure::DatabaseFailure, QStringLiteral("The transaction was rolled back after a failure."));
}

void Engine::setWatch(std::function<bool()> goesOn) {
    m_watch = std::move(goesOn);
    if (!m_open) { // it was closed while the watch was asked
        shutDown();
        return;
    }
    setCache(m_watch ? watchedCache : usualCache);
    sqlite3_progress_handler(m_handle.get(), m_watch ? stepsBetweenLooks : 0, endsStatement, this);
}

/// The question may let events through, and with them whatever the program does on an error.
int Engine::endsStatement(void* engine) {
    Engine& self = *static_cast<Engine*>(engine);
    self.m_askingWatch = true;
    const bool goesOn = self.m_watch();
    self.m_askingWatch = false;
    return goesOn && self.m_open ? 0 : 1;
}

void Engine::requireOutsideWatch() const {
    if (m_askingWatch)
        raise(Failure::NotAllowed, QStringLiteral("Another statement is at work."));
}

/// Statements from outside may not set it, so their guard is put up behind it.
void Engine::setCache(int kilobytes) noexcept {
    sqlite3_set_authorizer(m_handle.get(), nullptr, nullptr);
    const QByteArray sql = "PRAGMA cache_size=-" + QByteArray::number(kilobytes);
    (void)sqlite3_exec(m_handle.get(), sql.constData(), nullptr, nullptr, nullptr);
    sqlite3_set_authorizer(m_handle.get(), authorize, nullptr);
}

void Engine::removeReader(const RowStore& reader) {
    std::erase(m_readers, &reader);
}

void Engine::completeReaders() {
    requireOutsideWatch();
    const std::vector<RowStore*> readers = m_readers;
    for (RowStore* reader : readers)
        reader->completeRead();
}

WriteScope::WriteScope(Engine& engine) : m_engine(engine), m_own(!engine.inTransaction()) {
    if (m_own)
        m_engine.begin();
    else {
        m_engine.requireTransactionWhole();
        m_engine.completeReaders();
    }
}

WriteScope::~WriteScope() {
    if (m_own)
        m_engine.abandonTransaction();
}

void WriteScope::commit() {
    if (m_own)
        m_engine.commit();
    m_own = false;
}

} // namespace tarnwell::data
