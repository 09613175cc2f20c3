#pragma once

#include "data/odbc/CatalogScript.h"

namespace tarnwell::data {

/// SQL Server. Its own groups serve: users are db_datareader and db_datawriter of the catalog, and whoever
/// changes tables is db_ddladmin or the catalog's owner.
class SqlServerCatalog : public CatalogScript {
public:
    [[nodiscard]] qsizetype longestName() const override { return 128; }
    [[nodiscard]] QString firstCatalog() const override;
    [[nodiscard]] QByteArray findCatalog(const QString& catalog) const override;
    [[nodiscard]] std::vector<QByteArray> createRoles(const QString& catalog) const override;
    [[nodiscard]] QByteArray createCatalog(const QString& catalog) const override;
    [[nodiscard]] QByteArray dropCatalog(const QString& catalog) const override;
    [[nodiscard]] std::vector<QByteArray> beforeTables(const QString& catalog) const override;
    [[nodiscard]] std::vector<QByteArray> afterTables(const QString& catalog) const override;
    [[nodiscard]] std::vector<QByteArray> lockSchema(std::chrono::milliseconds longestWait) const override;
    [[nodiscard]] QByteArray findSchemaRights() const override;
    [[nodiscard]] std::vector<QByteArray> becomeOwner() const override;
    [[nodiscard]] std::vector<QByteArray> admit(const QString& catalog, const QString& user) const override;
    [[nodiscard]] QByteArray relations() const override;
    [[nodiscard]] QByteArray indexes() const override;
    [[nodiscard]] QByteArray findLateKeys(const schema::Table& table) const override;
    [[nodiscard]] QByteArray updateStatistics() const override;
};

} // namespace tarnwell::data
