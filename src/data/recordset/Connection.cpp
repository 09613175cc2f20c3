#include "data/recordset/Connection.h"

#include "data/recordset/EngineFactory.h"

#include <utility>

namespace tarnwell {

Connection::Connection() = default;

Connection::~Connection() {
    Close();
}

void Connection::setConnectionString(const QString& text) {
    if (State() == ObjectState::Open)
        raise(Failure::ObjectOpen);
    m_connectionString = text;
}

void Connection::Open() {
    if (State() == ObjectState::Open)
        raise(Failure::ObjectOpen);
    m_engine = data::openEngine(m_connectionString, m_busyTimeout);
    m_engine->setWaitWatcher(m_waitWatcher);
}

void Connection::setWaitWatcher(WaitWatcher* watcher) {
    m_waitWatcher = watcher;
    if (m_engine != nullptr)
        m_engine->setWaitWatcher(watcher);
}

void Connection::Close() {
    if (m_engine != nullptr)
        m_engine->close();
    m_engine.reset();
}

ObjectState Connection::State() const {
    return m_engine != nullptr ? ObjectState::Open : ObjectState::Closed;
}

int Connection::Execute(const QString& sql) {
    return engine().execute(engine().translate(sql));
}

quint32 Connection::dataVersion() {
    return engine().dataVersion();
}

void Connection::BeginTrans() {
    engine().begin();
}

void Connection::CommitTrans() {
    engine().commit();
}

void Connection::RollbackTrans() {
    engine().rollback();
}

data::Engine& Connection::engine() const {
    return *sharedEngine();
}

const std::shared_ptr<data::Engine>& Connection::sharedEngine() const {
    if (m_engine == nullptr)
        raise(Failure::ObjectClosed);
    return m_engine;
}

Transaction::Transaction(Connection& connection) : m_connection(connection) {
    m_connection.BeginTrans();
}

Transaction::~Transaction() {
    if (m_open && m_connection.State() == ObjectState::Open)
        m_connection.engine().abandonTransaction();
}

void Transaction::commit() {
    m_connection.CommitTrans();
    m_open = false;
}

/// What others have half read is theirs: it must not end with a statement of this watch.
StatementWatch::StatementWatch(Connection& connection, std::function<bool()> goesOn)
    : m_engine(connection.sharedEngine()) {
    m_engine->completeReaders();
    m_engine->setWatch(std::move(goesOn));
}

StatementWatch::~StatementWatch() {
    m_engine->setWatch({});
}

} // namespace tarnwell
