#include "data/odbc/OdbcEngine.h"

#include "data/RunTimeError.h"
#include "data/odbc/OdbcError.h"
#include "data/odbc/OdbcStatementCache.h"
#include "data/odbc/RowBlock.h"

#include <future>
#include <utility>

namespace tarnwell::data {

namespace {

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
        : m_server(dialect), m_connectionString(connectionString), m_settings(dialect.settings(busyTimeout)),
          m_dialect(&dialect) {
        openConnection();
        requireOurs();
    }
    ~OdbcEngine() override { shutDown(); }
    OdbcEngine(const OdbcEngine&) = delete;
    OdbcEngine& operator=(const OdbcEngine&) = delete;

    [[nodiscard]] bool isOpen() const override { return m_open; }
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

    void begin() override { beginSeeing(OdbcConnection::Sees::Latest); }
    void beginReading() override { beginSeeing(OdbcConnection::Sees::OneState); }
    void commit() override;
    void rollback() override;
    void abandonTransaction() noexcept override;
    [[nodiscard]] bool inTransaction() const override { return m_inTransaction; }
    void requireTransactionWhole() const override;

    void setWatch(std::function<bool()> goesOn) override;

    /// Between the rows of a statement, which may be many. Raises Cancelled when the watch ends it.
    void askWatch();
    /// Runs a statement of this engine; notes when the connection or the transaction is lost over it.
    void run(OdbcStatement& statement);
    /// Its next row; false at its end. Notes the same.
    [[nodiscard]] bool fetch(OdbcStatement& statement);

protected:
    void requireOutsideWatch() const override;

private:
    void openConnection();
    void requireOurs();
    void beginSeeing(OdbcConnection::Sees sees);
    [[nodiscard]] OdbcLease lease(const QByteArray& sql);
    [[nodiscard]] bool letsWatchGoOn();
    int runWatched(const std::function<int()>& call, const std::function<void()>& cancel);
    void noteLoss() noexcept;
    void noteEndedTransaction() noexcept;
    void shutDown();

    const ServerDialect& m_server;
    QString m_connectionString;
    std::vector<QByteArray> m_settings;
    std::shared_ptr<OdbcConnection> m_connection; ///< Null once it is lost; the next statement connects anew.
    std::shared_ptr<OdbcStatementCache> m_cache = std::make_shared<OdbcStatementCache>();
    Dialect m_dialect;
    std::function<bool()> m_watch;
    bool m_open = true;
    bool m_askingWatch = false; ///< A statement is at work below, so nothing may be done with the connection.
    bool m_inTransaction = false;
    bool m_transactionEnded = false; ///< By the server; it stays open for its owner.
};

bool OdbcCursor::next() {
    if (!m_started) {
        m_engine.run(*m_statement);
        m_started = true;
    } else if (m_statement->rows().isSpent()) {
        m_engine.askWatch();
    }
    return m_engine.fetch(*m_statement);
}

void OdbcEngine::openConnection() {
    m_connection = std::make_shared<OdbcConnection>(m_server, m_connectionString);
    for (const QByteArray& setting : m_settings)
        m_connection->runDirectly(setting);
}

void OdbcEngine::requireOurs() {
    std::vector<std::pair<QString, QString>> present;
    OdbcLease statement = lease(m_server.columns());
    run(*statement);
    RowBlock& rows = statement->rows();
    TextArena texts;
    while (rows.next())
        present.emplace_back(valueOf(rows.cell(0, {}, texts)).toText(),
                             valueOf(rows.cell(1, {}, texts)).toText());
    for (const schema::Table& table : schema::tables())
        for (const schema::Column& column : table.columns)
            if (std::ranges::find(present, std::pair(table.name, column.name)) == present.end())
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
    abandonTransaction();
    m_cache->clear();
    m_connection.reset();
}

OdbcLease OdbcEngine::lease(const QByteArray& sql) {
    requireOutsideWatch();
    requireTransactionWhole();
    if (m_connection == nullptr)
        openConnection();
    try {
        if (m_watch) {
            m_connection->setPortions(true);
            return {nullptr, std::make_unique<OdbcStatement>(m_connection, sql)};
        }
        m_connection->setPortions(false);
        return {m_cache, m_cache->take(m_connection, sql)};
    } catch (const RunTimeError&) {
        noteLoss();
        throw;
    }
}

void OdbcEngine::run(OdbcStatement& statement) {
    requireOutsideWatch();
    try {
        statement.run([this](const auto& call, const auto& cancel) {
            return m_watch ? runWatched(call, cancel) : call();
        });
    } catch (const RunTimeError&) {
        statement.reset();
        noteLoss();
        noteEndedTransaction();
        throw;
    }
}

bool OdbcEngine::fetch(OdbcStatement& statement) {
    try {
        return statement.rows().next();
    } catch (const RunTimeError&) {
        statement.reset();
        noteLoss();
        noteEndedTransaction();
        throw;
    }
}

bool OdbcEngine::letsWatchGoOn() {
    m_askingWatch = true;
    const bool goesOn = m_watch();
    m_askingWatch = false;
    return goesOn && m_open;
}

void OdbcEngine::askWatch() {
    if (m_watch && !letsWatchGoOn())
        raise(Failure::Cancelled);
}

/// The statement works on a thread of its own while this one asks. The question may let events through, and
/// with them whatever the program does on an error.
int OdbcEngine::runWatched(const std::function<int()>& call, const std::function<void()>& cancel) {
    constexpr std::chrono::milliseconds betweenQuestions{1};
    std::future<int> work = std::async(std::launch::async, call);
    bool goesOn = true;
    while (work.wait_for(betweenQuestions) != std::future_status::ready) {
        goesOn = goesOn && letsWatchGoOn();
        if (!goesOn) // again and again: the first may come before the server has the statement
            cancel();
    }
    const int code = work.get();
    if (!goesOn) // it may have come to its end all the same
        raise(Failure::Cancelled);
    return code;
}

/// It is reported once, by the statement that found it; the next one connects anew.
void OdbcEngine::noteLoss() noexcept {
    if (m_connection == nullptr || !m_connection->isLost())
        return;
    m_cache->clear();
    m_connection.reset();
}

/// What would be written from here on would be no part of it. Where nobody can say, it is taken for ended.
void OdbcEngine::noteEndedTransaction() noexcept {
    const QByteArray question = m_server.openTransactions();
    if (!m_inTransaction || m_connection == nullptr || question.isEmpty())
        return;
    m_transactionEnded = true;
    try {
        OdbcStatement statement(m_connection, question);
        statement.run([](const auto& call, const auto&) { return call(); });
        TextArena texts;
        m_transactionEnded =
            !statement.rows().next() || statement.rows().cell(0, schema::ColumnType::Long, texts).number == 0;
    } catch (const RunTimeError&) {
        noteLoss();
    }
}

std::unique_ptr<Cursor> OdbcEngine::open(const QByteArray& sql, std::span<const Value> parameters) {
    OdbcLease statement = lease(sql);
    statement->bind(parameters);
    return std::make_unique<OdbcCursor>(*this, std::move(statement));
}

int OdbcEngine::execute(const QByteArray& sql, std::span<const Value> parameters) {
    OdbcLease statement = lease(sql);
    statement->bind(parameters);
    run(*statement);
    return statement->touchedRows();
}

qint64 OdbcEngine::insert(const schema::Table& table, const QByteArray& sql,
                          std::span<const Value> parameters) {
    OdbcLease statement = lease(m_server.returningKey(sql, table));
    statement->bind(parameters);
    run(*statement);
    TextArena texts;
    if (!statement->rows().next())
        raise(Failure::RowDeleted);
    return statement->rows().cell(0, schema::ColumnType::Key, texts).number;
}

qint64 OdbcEngine::greatestKey(const schema::Table& table) {
    OdbcLease statement = lease(m_server.greatestKey(table));
    run(*statement);
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
    run(*statement);
    TextArena texts;
    if (!statement->rows().next())
        return 0;
    return static_cast<quint32>(qHash(valueOf(statement->rows().cell(0, {}, texts)).toText(), 0));
}

void OdbcEngine::beginSeeing(OdbcConnection::Sees sees) {
    if (m_inTransaction)
        raise(Failure::NotAllowed, QStringLiteral("A transaction is open already."));
    completeReaders();
    if (m_connection == nullptr)
        openConnection();
    m_connection->begin(sees);
    m_inTransaction = true;
    m_transactionEnded = false;
}

void OdbcEngine::commit() {
    if (!m_inTransaction)
        raise(Failure::NotAllowed, QStringLiteral("No transaction is open."));
    requireOutsideWatch();
    try {
        requireTransactionWhole();
        m_inTransaction = false; // whatever comes of it, it is over
        m_connection->commit();
    } catch (const RunTimeError&) {
        m_inTransaction = false;
        noteLoss();
        if (m_transactionEnded && m_connection != nullptr)
            (void)m_connection->rollback();
        throw;
    }
}

void OdbcEngine::rollback() {
    if (!m_inTransaction)
        raise(Failure::NotAllowed, QStringLiteral("No transaction is open."));
    completeReaders();
    abandonTransaction();
}

void OdbcEngine::abandonTransaction() noexcept {
    if (std::exchange(m_inTransaction, false) && m_connection != nullptr)
        (void)m_connection->rollback();
}

void OdbcEngine::requireTransactionWhole() const {
    if (m_inTransaction && m_connection == nullptr)
        raise(Failure::DatabaseFailure, QStringLiteral("The transaction was lost with its connection."));
    if (m_inTransaction && m_transactionEnded)
        raise(Failure::DatabaseFailure,
              QStringLiteral("The transaction was ended by the server after an error."));
}

void OdbcEngine::setWatch(std::function<bool()> goesOn) {
    m_watch = std::move(goesOn);
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
