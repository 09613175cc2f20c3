#pragma once

#include <QString>

namespace tarnwell::test {

/// The server of the tests, as "DataServer" names one; empty where they run on the embedded engine.
[[nodiscard]] QString testServer();
/// What opens a catalog of that server.
[[nodiscard]] QString serverConnectionString(const QString& catalog);

/// Makes a copy of the catalog "tarnwell_template", which is made where it is missing; what opens the copy.
[[nodiscard]] QString createTestCatalog();
/// Also while somebody still has it open.
void dropTestCatalog(const QString& connectionString);

/// A catalog as `createTestCatalog` makes it: one that this program has given back, its rows and keys as in
/// the beginning, else a new one. Copying takes much longer than a small test.
[[nodiscard]] QString borrowTestCatalog();
/// Its schema must be as it was; only rows were changed.
void giveTestCatalogBack(const QString& connectionString);

/// Runs one statement of the server's own SQL on one of its catalogs.
void runOnServer(const QString& catalog, const QByteArray& sql);

/// Ends the server's side of every connection to the catalog.
void endConnections(const QString& connectionString);

/// While it lives the catalog is away: connections to it have ended, and new ones are refused.
class CatalogAway {
public:
    explicit CatalogAway(const QString& connectionString);
    ~CatalogAway();
    CatalogAway(const CatalogAway&) = delete;
    CatalogAway& operator=(const CatalogAway&) = delete;

private:
    QByteArray m_catalog;
};

} // namespace tarnwell::test
