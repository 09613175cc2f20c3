#pragma once

#include "data/engine/Providers.h"
#include "data/odbc/ServerDialect.h"

namespace tarnwell::data {

using tarnwell::postgresProvider;

/// PostgreSQL, from 13 on, through its driver "PostgreSQL Unicode".
///
/// Texts are of type citext: they compare as the embedded engine's do, letter by letter in the order of their
/// bytes, small and capital ones alike, and LIKE works on them. A catalog of locale C folds the letters A to
/// Z alone, as the embedded engine does; one of another locale folds all letters.
class PostgresDialect : public ServerDialect {
public:
    void write(SqlTokens& tokens, const StatementTables& tables) const override;
    [[nodiscard]] QString name() const override;
    /// "Data Source" is a host or the folder of a socket, with ":port" where it is not 5432; empty for the
    /// socket of this computer. "Initial Catalog" is the catalog. Without "User ID" and "Password" the
    /// platform signs in. Over TCP the connection is encrypted, unless "SSLMode" is disable, allow
    /// or prefer; what is no mode counts as require.
    [[nodiscard]] QString driverString(const QString& connectionString) const override;
    [[nodiscard]] std::vector<QByteArray> settings(std::chrono::milliseconds busyTimeout) const override;
    [[nodiscard]] QByteArray returningKey(const QByteArray& insert,
                                          const schema::Table& table) const override;
    [[nodiscard]] QByteArray locked(const QByteArray& select) const override;
    [[nodiscard]] QByteArray firstRows(const QByteArray& select, int most) const override;
    [[nodiscard]] QByteArray dataVersion() const override;
    [[nodiscard]] QByteArray workstations() const override;
    [[nodiscard]] QByteArray columns() const override;
    [[nodiscard]] std::vector<QByteArray> createStatements() const override;
    [[nodiscard]] std::vector<QByteArray> upgradeStatements(int from) const override;
    [[nodiscard]] QByteArray passKeys(const schema::Table& table) const override;
    [[nodiscard]] QByteArray greatestKey(const schema::Table& table) const override;
    [[nodiscard]] QByteArray keysBehind(const schema::Table& table, qint64 key) const override;
};

} // namespace tarnwell::data
