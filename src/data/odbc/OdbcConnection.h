#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

namespace tarnwell::data {

class ServerDialect;

/// A connection and a statement of the driver manager. `void*` keeps its headers out of ours.
using OdbcHandle = void*;

/// What the driver reported last on a handle.
struct OdbcDiagnosis {
    QString state;  ///< SQLSTATE, five characters; empty when nothing is reported.
    QString words;  ///< The server's own words, without the names of driver and server in front.
    int native = 0; ///< The server's own number; 0 where it has none.
};

/// A connection to a server through the driver manager; closes with its last owner. It may be used by one
/// thread at a time, but for `OdbcStatement::cancel`.
class OdbcConnection {
public:
    /// Connects by a connection string of the driver manager. Raises DatabaseFailure and, where
    /// the driver is missing, ProviderNotFound, with the words of `server`.
    OdbcConnection(const QString& driverString, const QString& server);
    /// Connects to the catalog of a connection string of ours.
    OdbcConnection(const ServerDialect& dialect, const QString& connectionString);
    ~OdbcConnection();
    OdbcConnection(const OdbcConnection&) = delete;
    OdbcConnection& operator=(const OdbcConnection&) = delete;

    [[nodiscard]] OdbcHandle get() const { return m_handle; }
    [[nodiscard]] const QString& server() const { return m_server; }
    /// Runs a statement of the server's own that gives no rows and changes the state of the connection: what
    /// is prepared keeps such changes to itself on some servers. Raises what the server says.
    void runDirectly(const QByteArray& sql);
    /// Whether the driver fetches rows in blocks and describes a statement before it runs.
    [[nodiscard]] bool fetchesInBlocks() const { return m_fetchesInBlocks; }
    /// Raises what the driver reported last on the connection or on one of its statements. `sql`: that
    /// statement's text, or empty.
    [[noreturn]] void raiseLast(OdbcHandle statement, const QByteArray& sql);
    /// Whether something was raised that ends the connection: it is of no more use.
    [[nodiscard]] bool isLost() const { return m_lost; }

    /// Whether selects that begin from here on are fetched some thousand rows at a time, where the driver can
    /// do that, rather than as a whole. Such a select holds a transaction open until it ends or is closed,
    /// and the server plans it without its values.
    void setPortions(bool on) noexcept;

    /// Which state of the database the statements of a transaction see: each the latest one, or all the same.
    enum class Sees { Latest, OneState };
    /// Between `begin` and an end every statement is part of one transaction.
    void begin(Sees sees = Sees::Latest);
    /// Raises what the server says; the transaction has then ended with nothing written.
    void commit();
    /// False when the server could not be reached: it rolls back by itself then.
    bool rollback() noexcept;

private:
    bool end(bool keep) noexcept;
    void setIsolation(Sees sees) noexcept;

    QString m_server;
    OdbcHandle m_handle = nullptr;
    bool m_lost = false;
    Sees m_sees = Sees::Latest;
    bool m_fetchesInBlocks = true;
    bool m_inPortions = false;
};

} // namespace tarnwell::data
