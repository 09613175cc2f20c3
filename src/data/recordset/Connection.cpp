#include "data/recordset/Connection.h"

#include "data/engine/Engine.h"

#include <QStringList>

#include <utility>

namespace tarnwell {

namespace {

/// The name under which the settings know the database file; there is no other engine yet.
const QString servedProvider = QStringLiteral("Microsoft.Jet.OLEDB.4.0");

} // namespace

QString connectionValue(const QString& connectionString, QLatin1String key) {
    QString value; // of two the last one counts
    for (const QString& part : connectionString.split(QLatin1Char(';'))) {
        const qsizetype equals = part.indexOf(QLatin1Char('='));
        if (equals >= 0 && part.first(equals).trimmed().compare(key, Qt::CaseInsensitive) == 0)
            value = part.sliced(equals + 1).trimmed();
    }
    const bool isQuoted =
        value.size() > 1 && value.front() == QLatin1Char('"') && value.back() == value.front();
    return isQuoted ? value.sliced(1, value.size() - 2) : value;
}

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
    const QString provider = connectionValue(m_connectionString, QLatin1String("Provider"));
    if (provider.compare(servedProvider, Qt::CaseInsensitive) != 0)
        raise(Failure::ProviderNotFound, provider);
    m_engine = std::make_shared<data::Engine>(
        connectionValue(m_connectionString, QLatin1String("Data Source")), m_busyTimeout);
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
