#include "data/odbc/OdbcConnection.h"

#include "data/engine/ConnectionString.h"
#include "data/odbc/AttributeValue.h"
#include "data/odbc/ConnectFailure.h"
#include "data/odbc/OdbcError.h"
#include "data/odbc/ServerDialect.h"

#include <locale.h>
#include <sql.h>
#include <sqlext.h>
#include <utility>

namespace tarnwell::data {

namespace {

/// One for the whole program: the driver manager's own tables are shared between environments.
SQLHENV environment() {
    static const SQLHENV handle = [] {
        SQLHENV made = SQL_NULL_HENV;
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &made);
        SQLSetEnvAttr(made, SQL_ATTR_ODBC_VERSION, asPointer(SQL_OV_ODBC3), 0);
        return made;
    }();
    return handle;
}

/// As the driver knows it; nothing is sent.
bool isDead(SQLHDBC connection) {
    SQLUINTEGER dead = SQL_CD_FALSE;
    SQLGetConnectAttr(connection, SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr);
    return dead == SQL_CD_TRUE;
}

/// While it lives, libraries speak English to this thread: why a connection failed is told by their words.
class EnglishMessages {
public:
    EnglishMessages() : m_english(newlocale(LC_MESSAGES_MASK, "C", duplocale(uselocale(nullptr)))) {
        if (m_english != nullptr)
            m_before = uselocale(m_english);
    }
    ~EnglishMessages() {
        if (m_english == nullptr)
            return;
        uselocale(m_before);
        freelocale(m_english);
    }
    EnglishMessages(const EnglishMessages&) = delete;
    EnglishMessages& operator=(const EnglishMessages&) = delete;

private:
    locale_t m_english;
    locale_t m_before = nullptr;
};

/// Not every driver says where nobody answered.
QString withPlace(const QString& words, const QString& driverString) {
    const QString place = connectionValue(driverString, QLatin1String("Server"));
    return place.isEmpty() || words.contains(place) ? words : place + QLatin1String(": ") + words;
}

} // namespace

OdbcConnection::OdbcConnection(const QString& driverString, const QString& server) : m_server(server) {
    constexpr SQLULEN longestWait = 10; // seconds
    SQLAllocHandle(SQL_HANDLE_DBC, environment(), &m_handle);
    SQLSetConnectAttr(m_handle, SQL_ATTR_LOGIN_TIMEOUT, asPointer(longestWait), SQL_IS_UINTEGER);
    std::u16string text = driverString.toStdU16String();
    const EnglishMessages english;
    const SQLRETURN code =
        SQLDriverConnectW(m_handle, nullptr, reinterpret_cast<SQLWCHAR*>(text.data()),
                          static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (SQL_SUCCEEDED(code))
        return;
    OdbcDiagnosis diagnosis = diagnosisOf(OdbcHandleKind::Connection, m_handle);
    SQLFreeHandle(SQL_HANDLE_DBC, m_handle);
    if (isUnreachable(diagnosis.state))
        diagnosis.words = withPlace(diagnosis.words, driverString);
    raiseConnectFailure(diagnosis, server);
}

OdbcConnection::OdbcConnection(const ServerDialect& dialect, const QString& connectionString)
    : OdbcConnection(dialect.driverString(connectionString), dialect.name()) {
    m_fetchesInBlocks = dialect.fetchesInBlocks();
}

OdbcConnection::~OdbcConnection() {
    (void)end(false);
    SQLDisconnect(m_handle);
    SQLFreeHandle(SQL_HANDLE_DBC, m_handle);
}

void OdbcConnection::runDirectly(const QByteArray& sql) {
    OdbcHandle statement = nullptr;
    SQLAllocHandle(SQL_HANDLE_STMT, m_handle, &statement);
    std::u16string text = QString::fromUtf8(sql).toStdU16String();
    const SQLRETURN code = SQLExecDirectW(statement, reinterpret_cast<SQLWCHAR*>(text.data()),
                                          static_cast<SQLINTEGER>(text.size()));
    try {
        if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA)
            raiseLast(statement, sql);
    } catch (const RunTimeError&) {
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
        throw;
    }
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
}

void OdbcConnection::raiseLast(OdbcHandle statement, const QByteArray& sql) {
    const OdbcDiagnosis diagnosis = statement != nullptr ? diagnosisOf(OdbcHandleKind::Statement, statement)
                                                         : diagnosisOf(OdbcHandleKind::Connection, m_handle);
    m_lost = m_lost || isConnectionLost(diagnosis.state) || isDead(m_handle);
    if (m_lost)
        raiseServerFailure(Failure::DatabaseFailure, m_server,
                           QStringLiteral("The connection to the database server was lost."),
                           diagnosis.words);
    raiseOdbcError(diagnosis, m_server, sql);
}

void OdbcConnection::setPortions(bool on) noexcept {
    if (m_inPortions == on || !m_fetchesInBlocks)
        return;
    m_inPortions = on;
    // Of the driver for PostgreSQL.
    constexpr SQLINTEGER useDeclareFetch = 65539, fetch = 65541;
    constexpr SQLULEN rowsOfPortion = 2000;
    SQLSetConnectAttr(m_handle, fetch, asPointer(rowsOfPortion), SQL_IS_INTEGER);
    SQLSetConnectAttr(m_handle, useDeclareFetch, asPointer(on ? 1 : 0), SQL_IS_INTEGER);
}

void OdbcConnection::begin(Sees sees) {
    setIsolation(sees);
    SQLSetConnectAttr(m_handle, SQL_ATTR_AUTOCOMMIT, asPointer(SQL_AUTOCOMMIT_OFF), SQL_IS_UINTEGER);
}

void OdbcConnection::commit() {
    if (SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, m_handle, SQL_COMMIT))) {
        (void)end(true);
        return;
    }
    try {
        raiseLast(nullptr, {});
    } catch (const RunTimeError&) {
        (void)rollback();
        throw;
    }
}

bool OdbcConnection::rollback() noexcept {
    return end(false);
}

/// Only between transactions; costs nothing where it is so already.
void OdbcConnection::setIsolation(Sees sees) noexcept {
    if (std::exchange(m_sees, sees) == sees)
        return;
    const SQLULEN level = sees == Sees::OneState ? SQL_TXN_SERIALIZABLE : SQL_TXN_READ_COMMITTED;
    SQLSetConnectAttr(m_handle, SQL_ATTR_TXN_ISOLATION, asPointer(level), SQL_IS_UINTEGER);
}

bool OdbcConnection::end(bool keep) noexcept {
    const bool ended = keep || SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, m_handle, SQL_ROLLBACK));
    SQLSetConnectAttr(m_handle, SQL_ATTR_AUTOCOMMIT, asPointer(SQL_AUTOCOMMIT_ON), SQL_IS_UINTEGER);
    return ended;
}

} // namespace tarnwell::data
