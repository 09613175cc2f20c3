#pragma once

#include "data/schema/Schema.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <vector>

namespace tarnwell::data {

/// What setting up and looking after a catalog takes beside its tables, in one server's own SQL. Names may
/// hold any character. Without state.
class CatalogScript {
public:
    CatalogScript() = default;
    virtual ~CatalogScript() = default;
    CatalogScript(const CatalogScript&) = delete;
    CatalogScript& operator=(const CatalogScript&) = delete;

    /// Bytes of the longest name that a catalog may have, with its groups named after it.
    [[nodiscard]] virtual qsizetype longestName() const = 0;
    /// The catalog that every server has; the next four work there.
    [[nodiscard]] virtual QString firstCatalog() const = 0;
    /// A select that has a row where the server has the catalog.
    [[nodiscard]] virtual QByteArray findCatalog(const QString& catalog) const = 0;
    /// Groups of users that belong to the whole server, made where they are missing.
    [[nodiscard]] virtual std::vector<QByteArray> createRoles(const QString& catalog) const = 0;
    [[nodiscard]] virtual QByteArray createCatalog(const QString& catalog) const = 0;
    [[nodiscard]] virtual QByteArray dropCatalog(const QString& catalog) const = 0;

    /// Runs in the catalog ahead of the statements that make its tables, which then belong to the owner.
    [[nodiscard]] virtual std::vector<QByteArray> beforeTables(const QString& catalog) const = 0;
    /// Runs behind them: what users may do.
    [[nodiscard]] virtual std::vector<QByteArray> afterTables(const QString& catalog) const = 0;

    // What changes the tables of an earlier version does first, in its transaction.

    /// Waits for another one who does the same, then keeps others from it until the transaction or its
    /// connection ends.
    [[nodiscard]] virtual std::vector<QByteArray> lockSchema(std::chrono::milliseconds longestWait) const = 0;
    /// A select that has a row where who is signed in may change the tables.
    [[nodiscard]] virtual QByteArray findSchemaRights() const = 0;
    /// What is made from here on belongs to the tables' owner, until the transaction ends.
    [[nodiscard]] virtual std::vector<QByteArray> becomeOwner() const = 0;

    /// Makes somebody who can sign in one of the catalog's users.
    [[nodiscard]] virtual std::vector<QByteArray> admit(const QString& catalog,
                                                        const QString& user) const = 0;

    /// A select of all relations: table, column, the table referred to, and "cascade" or "refuse".
    [[nodiscard]] virtual QByteArray relations() const = 0;
    /// A select of all indexes: table, and its columns in order with a comma between them.
    [[nodiscard]] virtual QByteArray indexes() const = 0;
    /// A select that has a row where new keys of the table would not lie behind all that it has.
    [[nodiscard]] virtual QByteArray findLateKeys(const schema::Table& table) const = 0;
    [[nodiscard]] virtual QByteArray updateStatistics() const = 0;
};

} // namespace tarnwell::data
