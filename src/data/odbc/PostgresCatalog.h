#pragma once

#include "data/odbc/CatalogScript.h"

namespace tarnwell::data {

/// PostgreSQL. The groups are named after the catalog, "jobs_owner" and "jobs_users", and belong to the whole
/// server, so that a catalog of that name which is made again finds its users again.
class PostgresCatalog : public CatalogScript {
public:
    /// The server cuts every name at 63 bytes, and two groups that are cut would be one.
    [[nodiscard]] qsizetype longestName() const override { return 57; }
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
