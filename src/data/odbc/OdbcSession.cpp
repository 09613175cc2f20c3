#include "data/odbc/OdbcSession.h"

#include "data/RunTimeError.h"
#include "data/odbc/RowBlock.h"

#include <utility>

namespace tarnwell::data {

namespace {

/// A server that was restarted, or that ended an idle connection, is found out at once. Who has waited for a
/// network that is down is not kept waiting for it a second time.
constexpr std::chrono::seconds longestSilentLoss{2};

} // namespace

OdbcSession::OdbcSession(const ServerDialect& dialect, QString connectionString,
                         std::chrono::milliseconds busyTimeout)
    : m_server(dialect), m_connectionString(std::move(connectionString)),
      m_settings(dialect.settings(busyTimeout)) {
    requireConnection();
}

/// Does nothing on a live connection.
void OdbcSession::requireConnection() {
    requireTransactionWhole();
    if (m_connection != nullptr)
        return;
    auto connection = std::make_shared<OdbcConnection>(m_server, m_connectionString);
    for (const QByteArray& setting : m_settings)
        connection->runDirectly(setting);
    if (m_inTransaction)
        connection->begin(m_sees);
    m_connection = std::move(connection);
}

bool OdbcSession::connectsAgain() noexcept {
    try {
        requireConnection();
        return true;
    } catch (const RunTimeError&) { // that the connection was lost is reported in its place
        return false;
    }
}

/// `repeatable`: the call may be made twice, as far as what it sends is concerned.
template <class Call>
auto OdbcSession::onLiveConnection(bool repeatable, Call call) -> decltype(call()) {
    requireConnection();
    for (bool mayRepeat = repeatable && hasWrittenNothing();; mayRepeat = false) {
        const auto begin = std::chrono::steady_clock::now();
        try {
            return call();
        } catch (const RunTimeError&) {
            noteFailure();
            const bool foundAtOnce = std::chrono::steady_clock::now() - begin < longestSilentLoss;
            if (!mayRepeat || m_connection != nullptr || !foundAtOnce || !connectsAgain())
                throw;
        }
    }
}

/// A write outside of a transaction is prepared each time: a loss that shows only when it runs may come
/// behind its end on the server.
OdbcLease OdbcSession::prepared(const QByteArray& sql) {
    m_connection->setPortions(m_inPortions);
    if (m_inPortions || (!m_inTransaction && !onlyReads(sql)))
        return {nullptr, std::make_unique<OdbcStatement>(m_connection, sql)};
    return {m_cache, m_cache->take(m_connection, sql)};
}

OdbcLease OdbcSession::lease(const QByteArray& sql) {
    return onLiveConnection(true, [&] { return prepared(sql); });
}

void OdbcSession::renew(OdbcLease& statement) {
    OdbcLease fresh = prepared(statement->sql());
    fresh->bindAs(*statement);
    statement.swap(fresh);
}

void OdbcSession::run(OdbcLease& statement, const OdbcRunner& runner) {
    onLiveConnection(m_inTransaction || onlyReads(statement->sql()), [&] {
        if (statement->connection() != m_connection)
            renew(statement);
        try {
            statement->run(runner);
        } catch (const RunTimeError&) {
            statement->reset();
            throw;
        }
    });
    m_transactionIsUsed = true;
}

bool OdbcSession::fetch(OdbcStatement& statement) {
    try {
        return statement.rows().next();
    } catch (const RunTimeError&) {
        statement.reset();
        noteFailure();
        throw;
    }
}

void OdbcSession::noteFailure() noexcept {
    noteLoss();
    noteEndedTransaction();
}

void OdbcSession::noteLoss() noexcept {
    if (m_connection == nullptr || !m_connection->isLost())
        return;
    m_cache->clear();
    m_connection.reset();
}

/// What would be written from here on would be no part of it. Where nobody can say, it is taken for ended.
void OdbcSession::noteEndedTransaction() noexcept {
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

void OdbcSession::begin(OdbcConnection::Sees sees) {
    requireConnection();
    m_connection->begin(sees);
    m_sees = sees;
    m_inTransaction = true;
    m_transactionIsUsed = false;
    m_transactionEnded = false;
}

void OdbcSession::commit() {
    try {
        requireTransactionWhole();
        m_inTransaction = false;     // it is over, committed or not
        if (m_connection != nullptr) // else nothing of it was ever sent
            m_connection->commit();
    } catch (const RunTimeError&) {
        m_inTransaction = false;
        noteLoss();
        if (m_transactionEnded && m_connection != nullptr)
            (void)m_connection->rollback();
        throw;
    }
}

void OdbcSession::abandonTransaction() noexcept {
    if (std::exchange(m_inTransaction, false) && m_connection != nullptr)
        (void)m_connection->rollback();
}

void OdbcSession::requireTransactionWhole() const {
    if (!m_inTransaction)
        return;
    if (m_connection == nullptr && m_transactionIsUsed)
        raise(Failure::DatabaseFailure, QStringLiteral("The transaction was lost with its connection."));
    if (m_transactionEnded)
        raise(Failure::DatabaseFailure,
              QStringLiteral("The transaction was ended by the server after an error."));
}

void OdbcSession::end() noexcept {
    abandonTransaction();
    m_cache->clear();
    m_connection.reset();
}

} // namespace tarnwell::data
