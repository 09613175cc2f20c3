#pragma once

#include "data/engine/Providers.h"
#include "data/odbc/ServerDialect.h"

namespace tarnwell::data {

using tarnwell::sqlServerProvider;

/// SQL Server, from 2016 on, through FreeTDS, or on Windows through its maker's driver.
///
/// Every column of texts names its collation, so that the server's own does not matter: letters are small and
/// capital ones alike and nothing else is. Their order is that of a dictionary and not of their bytes, and
/// blanks at the end do not count in comparisons.
class SqlServerDialect : public ServerDialect {
public:
    /// Raises SyntaxError and PermissionDenied for more than one statement, which this server divides by
    /// nothing but words, and for what it calls its own.
    void write(SqlTokens& tokens, const StatementTables& tables) const override;
    [[nodiscard]] QString name() const override;
    /// "Data Source" is a host, "host,port" or "host\instance". "Initial Catalog" is the catalog. "User ID"
    /// and "Password" sign in; without them the platform does (Kerberos), which "Integrated Security=SSPI"
    /// asks for. The connection is encrypted unless "Encrypt" says no.
    [[nodiscard]] QString driverString(const QString& connectionString) const override;
    [[nodiscard]] bool fetchesInBlocks() const override { return false; }
    [[nodiscard]] std::vector<QByteArray> settings(std::chrono::milliseconds busyTimeout) const override;
    [[nodiscard]] QByteArray openTransactions() const override;
    [[nodiscard]] QByteArray returningKey(const QByteArray& insert,
                                          const schema::Table& table) const override;
    [[nodiscard]] QByteArray locked(const QByteArray& select) const override;
    [[nodiscard]] QByteArray firstRows(const QByteArray& select, int most) const override;
    [[nodiscard]] QByteArray dataVersion() const override;
    [[nodiscard]] QByteArray columns() const override;
    [[nodiscard]] std::vector<QByteArray> catalogSettings() const override;
    [[nodiscard]] std::vector<QByteArray> createStatements() const override;
    [[nodiscard]] std::vector<QByteArray> upgradeStatements(int from) const override;
    [[nodiscard]] QByteArray withKeys(const QByteArray& insert, const schema::Table& table) const override;
    [[nodiscard]] QByteArray passKeys(const schema::Table& table) const override;
    [[nodiscard]] QByteArray greatestKey(const schema::Table& table) const override;
    [[nodiscard]] QByteArray keysBehind(const schema::Table& table, qint64 key) const override;
};

} // namespace tarnwell::data
