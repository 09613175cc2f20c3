#include "data/odbc/OdbcEngine.h"

#include "data/RunTimeError.h"
#include "data/engine/ConnectionString.h"
#include "data/odbc/CatalogRows.h"
#include "data/odbc/OdbcError.h"
#include "data/odbc/OdbcSession.h"
#include "data/odbc/RowBlock.h"

#include <future>
#include <utility>

namespace tarnwell::data {

namespace {

constexpr std::chrono::milliseconds betweenQuestions{1};

class OdbcEngine;

class OdbcCursor : public Cursor {
public:
    OdbcCursor(OdbcEngine& engine, OdbcLease statement)
        : m_engine(engine), m_statement(std::move(statement)) {}

    [[nodiscard]] bool next() override;
    void read(std::span<Cell> cells, std::span<const std::optional<schema::ColumnType>> types,
              TextArena& texts) const override {
        RowBlock& rows = m_statement->rows();
        for (std::size_t i = 0; i < cells.size(); ++i)
            cells[i] = rows.cell(static_cast<int>(i), types[i], texts);
    }

private:
    OdbcEngine& m_engine;
    OdbcLease m_statement;
    bool m_started = false;
};

class OdbcEngine final : public Engine {
public:
    OdbcEngine(const ServerDialect& dialect, const QString& connectionString,
               std::chrono::milliseconds busyTimeout)
        : m_server(dialect), m_session(dialect, connectionString, busyTimeout), m_dialect(&dialect) {
        requireOurs(connectionValue(connectionString, QLatin1String("Initial Catalog")));
    }
    ~OdbcEngine() override { shutDown(); }
    OdbcEngine(const OdbcEngine&) = delete;
    OdbcEngine& operator=(const OdbcEngine&) = delete;

    [[nodiscard]] bool isOpen() const override { return m_open; }
    [[nodiscard]] int schemaVersion() const override { return m_schemaVersion; }
    void close() override;

    [[nodiscard]] Translation translate(QStringView sql) override { return m_dialect.translate(sql); }
    [[nodiscard]] std::unique_ptr<Cursor> open(const QByteArray& sql,
                                               std::span<const Value> parameters) override;
    [[nodiscard]] std::unique_ptr<Cursor> openLocked(const QByteArray& sql,
                                                     std::span<const Value> parameters) override {
        return open(m_server.locked(sql), parameters);
    }
    [[nodiscard]] std::unique_ptr<Cursor> openFirst(const QByteArray& sql, std::span<const Value> parameters,
                                                    int most) override {
        return open(m_server.firstRows(sql, most), parameters);
    }
    using Engine::execute;
    int execute(const QByteArray& sql, std::span<const Value> parameters) override;
    [[nodiscard]] qint64 insert(const schema::Table& table, const QByteArray& sql,
                                std::span<const Value> parameters) override;

    void insertWithKeys(const schema::Table& table, const QByteArray& sql,
                        std::span<const Value> parameters) override {
        (void)execute(m_server.withKeys(sql, table), parameters);
    }
    [[nodiscard]] qint64 greatestKey(const schema::Table& table) override;
    void passKeys(const schema::Table& table, qint64 key) override;

    [[nodiscard]] quint32 dataVersion() override;
    [[nodiscard]] std::optional<int> workstations() override;

    void begin() override { beginSeeing(OdbcConnection::Sees::Latest); }
    void beginReading() override { beginSeeing(OdbcConnection::Sees::OneState); }
    void commit() override;
    void rollback() override;
    void abandonTransaction() noexcept override { m_session.abandonTransaction(); }
    [[nodiscard]] bool inTransaction() const override { return m_session.inTransaction(); }
    void requireTransactionWhole() const override { m_session.requireTransactionWhole(); }

    void setWatch(std::function<bool()> goesOn) override;

    /// Between the rows of a statement, which may be many. Raises Cancelled when the watch ends it.
    void askWatch();
    /// As `OdbcSession` has it, watched while a watch is set.
    void run(OdbcLease& statement);
    [[nodiscard]] bool fetch(OdbcStatement& statement) { return m_session.fetch(statement); }

protected:
    void requireOutsideWatch() const override;

private:
    void requireOurs(const QString& catalog);
    void beginSeeing(OdbcConnection::Sees sees);
    [[nodiscard]] OdbcLease lease(const QByteArray& sql);
    [[nodiscard]] bool letsGoOn(const std::function<bool()>& question);
    int runBeside(const std::function<int()>& call, const std::function<void()>& cancel,
                  std::chrono::milliseconds between, const std::function<bool()>& question);
    void shutDown();

    const ServerDialect& m_server;
    OdbcSession m_session;
    Dialect m_dialect;
    std::function<bool()> m_watch;
    int m_schemaVersion = schema::firstVersion;
    bool m_open = true;
    bool m_askingWatch = false; ///< A statement is at work below, so nothing may be done with the connection.
};

bool OdbcCursor::next() {
    if (!m_started) {
        m_engine.run(m_statement);
        m_started = true;
    } else if (m_statement->rows().isSpent()) {
        m_engine.askWatch();
    }
    return m_engine.fetch(*m_statement);
}

void OdbcEngine::requireOurs(const QString& catalog) {
    const auto present = rowsOf(m_session.connection(), m_server.columns());
    m_schemaVersion = knownStampOf(m_session.connection(), present, catalog).version;
    for (const schema::Table& table : schema::tables())
        for (const schema::Column& column : table.columns)
            if (!hasRow(present, {table.name, column.name}))
                raiseServerFailure(Failure::DatabaseForeign, m_server.name(),
                                   QStringLiteral("The catalog is not a Tarnwell database."),
                                   QStringLiteral("%1.%2 is missing").arg(table.name, column.name));
}

void OdbcEngine::close() {
    m_open = false;
    if (!m_askingWatch)
        shutDown();
}

void OdbcEngine::shutDown() {
    m_open = false;
    abandonReaders();
    m_session.end();
}

OdbcLease OdbcEngine::lease(const QByteArray& sql) {
    requireOutsideWatch();
    return m_session.lease(sql);
}

void OdbcEngine::run(OdbcLease& statement) {
    requireOutsideWatch();
    const bool mayWait = waitWatcher() != nullptr && (inTransaction() || !onlyReads(statement->sql()));
    m_session.run(statement, [&](const auto& call, const auto& cancel) {
        if (m_watch)
            return runBeside(call, cancel, betweenQuestions, m_watch);
        if (!mayWait)
            return call();
        Wait wait(waitWatcher());
        return runBeside(call, cancel, Wait::betweenQuestions, [&wait] { return wait.goesOn(); });
    });
}

bool OdbcEngine::letsGoOn(const std::function<bool()>& question) {
    m_askingWatch = true;
    const bool goesOn = question();
    m_askingWatch = false;
    return goesOn && m_open;
}

void OdbcEngine::askWatch() {
    if (m_watch && !letsGoOn(m_watch))
        raise(Failure::Cancelled);
}

/// The statement works on a thread of its own while this one asks. The question may let events through, and
/// with them whatever the program does on an error.
int OdbcEngine::runBeside(const std::function<int()>& call, const std::function<void()>& cancel,
                          std::chrono::milliseconds between, const std::function<bool()>& question) {
    std::future<int> work = std::async(std::launch::async, call);
    bool goesOn = true;
    while (work.wait_for(between) != std::future_status::ready) {
        goesOn = goesOn && letsGoOn(question);
        if (!goesOn) // again and again: the first may come before the server has the statement
            cancel();
    }
    const int code = work.get();
    // A reading that came to its end all the same is given up. A write is then done, and is reported so.
    if (!goesOn && m_watch)
        raise(Failure::Cancelled);
    return code;
}

std::unique_ptr<Cursor> OdbcEngine::open(const QByteArray& sql, std::span<const Value> parameters) {
    OdbcLease statement = lease(sql);
    statement->bind(parameters);
    return std::make_unique<OdbcCursor>(*this, std::move(statement));
}

int OdbcEngine::execute(const QByteArray& sql, std::span<const Value> parameters) {
    OdbcLease statement = lease(sql);
    statement->bind(parameters);
    run(statement);
    return statement->touchedRows();
}

qint64 OdbcEngine::insert(const schema::Table& table, const QByteArray& sql,
                          std::span<const Value> parameters) {
    OdbcLease statement = lease(m_server.returningKey(sql, table));
    statement->bind(parameters);
    run(statement);
    TextArena texts;
    if (!statement->rows().next())
        raise(Failure::RowDeleted);
    return statement->rows().cell(0, schema::ColumnType::Key, texts).number;
}

qint64 OdbcEngine::greatestKey(const schema::Table& table) {
    OdbcLease statement = lease(m_server.greatestKey(table));
    run(statement);
    TextArena texts;
    return statement->rows().next() ? statement->rows().cell(0, schema::ColumnType::Key, texts).number : 0;
}

void OdbcEngine::passKeys(const schema::Table& table, qint64 key) {
    if (key > 0)
        (void)execute(m_server.keysBehind(table, key), {});
}

quint32 OdbcEngine::dataVersion() {
    completeReaders();
    OdbcLease statement = lease(m_server.dataVersion());
    run(statement);
    TextArena texts;
    if (!statement->rows().next())
        return 0;
    return static_cast<quint32>(qHash(valueOf(statement->rows().cell(0, {}, texts)).toText(), 0));
}

std::optional<int> OdbcEngine::workstations() {
    const QByteArray count = m_server.workstations();
    if (count.isEmpty())
        return std::nullopt;
    completeReaders();
    OdbcLease statement = lease(count);
    run(statement);
    TextArena texts;
    if (!statement->rows().next())
        return std::nullopt;
    return static_cast<int>(statement->rows().cell(0, schema::ColumnType::Long, texts).number);
}

void OdbcEngine::beginSeeing(OdbcConnection::Sees sees) {
    if (inTransaction())
        raise(Failure::NotAllowed, QStringLiteral("A transaction is open already."));
    completeReaders();
    m_session.begin(sees);
}

void OdbcEngine::commit() {
    if (!inTransaction())
        raise(Failure::NotAllowed, QStringLiteral("No transaction is open."));
    requireOutsideWatch();
    m_session.commit();
}

void OdbcEngine::rollback() {
    if (!inTransaction())
        raise(Failure::NotAllowed, QStringLiteral("No transaction is open."));
    completeReaders();
    abandonTransaction();
}

void OdbcEngine::setWatch(std::function<bool()> goesOn) {
    m_watch = std::move(goesOn);
    m_session.setPortions(m_watch != nullptr);
    if (!m_open) // it was closed while the watch was asked
        shutDown();
}

void OdbcEngine::requireOutsideWatch() const {
    if (m_askingWatch)
        raise(Failure::NotAllowed, QStringLiteral("Another statement is at work."));
}

} // namespace

std::shared_ptr<Engine> openOdbcEngine(const ServerDialect& dialect, const QString& connectionString,
                                       std::chrono::milliseconds busyTimeout) {
    return std::make_shared<OdbcEngine>(dialect, connectionString, busyTimeout);
}

} // namespace tarnwell::data
