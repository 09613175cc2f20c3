#include "data/odbc/OdbcCatalog.h"

#include "data/RunTimeError.h"
#include "data/engine/ConnectionString.h"
#include "data/odbc/CatalogRows.h"
#include "data/odbc/OdbcError.h"
#include "data/odbc/ServerDatabase.h"
#include "data/schema/MissingColumns.h"

#include <algorithm>

namespace tarnwell::data {

namespace {

using ConnectionPointer = std::shared_ptr<OdbcConnection>;

void runAll(const ConnectionPointer& connection, const std::vector<QByteArray>& statements) {
    for (const QByteArray& sql : statements)
        runOne(connection, sql);
}

QStringList lackingColumns(const std::vector<QStringList>& present) {
    return schema::missingColumns([&](const schema::Table& table, const schema::Column& column) {
        return hasRow(present, {table.name, column.name});
    });
}

QStringList lackingRelations(const std::vector<QStringList>& present) {
    QStringList missing;
    for (const schema::Table& table : schema::tables())
        for (const schema::Relation& relation : table.relations) {
            const bool cascades = relation.onDelete == schema::OnDelete::Cascade;
            if (!hasRow(present, {table.name, relation.column, relation.parentTable,
                                  cascades ? QStringLiteral("cascade") : QStringLiteral("refuse")}))
                missing << QStringLiteral("%1.%2 has no relation to %3 that %4")
                               .arg(table.name, relation.column, relation.parentTable,
                                    cascades ? QStringLiteral("deletes with it")
                                             : QStringLiteral("protects it"));
        }
    return missing;
}

QStringList lackingIndexes(const std::vector<QStringList>& present) {
    QStringList missing;
    for (const schema::Table& table : schema::tables())
        for (const schema::Index& index : table.indexes) {
            const QString columns = QStringList(index.columns.begin(), index.columns.end()).join(u',');
            if (!hasRow(present, {table.name, columns}))
                missing << QStringLiteral("%1 has no index of %2").arg(table.name, columns);
        }
    return missing;
}

class OdbcCatalog final : public ServerCatalog {
public:
    OdbcCatalog(const ServerDialect& dialect, const CatalogScript& script, const QString& connectionString)
        : m_dialect(dialect), m_script(script), m_connectionString(connectionString),
          m_name(connectionValue(connectionString, QLatin1String("Initial Catalog"))) {}

    [[nodiscard]] State state() override;
    void create() override;
    [[nodiscard]] int upgrade(const schema::UpgradeCalls& calls) override;
    void drop() override { runAll(firstConnection(), {m_script.dropCatalog(m_name)}); }
    void admit(const QString& user) override { runAll(ownConnection(), m_script.admit(m_name, user)); }
    [[nodiscard]] QStringList problems() override;
    void updateStatistics() override { runAll(ownConnection(), {m_script.updateStatistics()}); }

private:
    [[nodiscard]] ConnectionPointer ownConnection() const { return connectionOf(m_connectionString); }
    [[nodiscard]] ConnectionPointer firstConnection() const {
        return connectionOf(m_connectionString + QStringLiteral(";Initial Catalog=") +
                            m_script.firstCatalog());
    }
    [[nodiscard]] ConnectionPointer connectionOf(const QString& connectionString) const {
        return std::make_shared<OdbcConnection>(m_dialect, connectionString);
    }
    [[nodiscard]] bool isMissing() const;

    const ServerDialect& m_dialect;
    const CatalogScript& m_script;
    QString m_connectionString;
    QString m_name;
};

/// Somebody may have been let into this catalog and not into the server's first one.
bool OdbcCatalog::isMissing() const {
    try {
        return rowsOf(firstConnection(), m_script.findCatalog(m_name)).empty();
    } catch (const RunTimeError&) {
        (void)ownConnection();
        return false;
    }
}

ServerCatalog::State OdbcCatalog::state() {
    if (isMissing())
        return State::Missing;
    const auto present = rowsOf(ownConnection(), m_dialect.columns());
    if (present.empty())
        return State::Empty;
    (void)knownStampOf(ownConnection(), present, m_name);
    return lackingColumns(present).isEmpty() ? State::Ours : State::Foreign;
}

void OdbcCatalog::create() {
    if (m_name.toUtf8().size() > m_script.longestName())
        raiseServerFailure(Failure::DataOverflow, m_dialect.name(),
                           QStringLiteral("The name of the catalog is too long."), m_name);
    const bool missing = isMissing();
    {
        const ConnectionPointer first = firstConnection();
        runAll(first, m_script.createRoles(m_name));
        if (missing)
            runAll(first, {m_script.createCatalog(m_name)});
    }
    const ConnectionPointer connection = ownConnection();
    for (const QByteArray& setting : m_dialect.catalogSettings())
        connection->runDirectly(setting);
    connection->begin();
    runAll(connection, m_script.beforeTables(m_name));
    createTables(m_dialect, connection);
    runAll(connection, m_script.afterTables(m_name));
    connection->commit();
}

/// The version is read again behind the lock: somebody else may have been quicker.
int OdbcCatalog::upgrade(const schema::UpgradeCalls& calls) {
    const ConnectionPointer connection = ownConnection();
    for (const QByteArray& setting : m_dialect.settings(schema::longestUpgradeWait))
        connection->runDirectly(setting);
    connection->begin();
    runAll(connection, m_script.lockSchema(schema::longestUpgradeWait));
    const int from = knownStampOf(connection, rowsOf(connection, m_dialect.columns()), m_name).version;
    if (from == schema::currentVersion)
        return from;
    if (rowsOf(connection, m_script.findSchemaRights()).empty())
        schema::refuseUpgrade(m_dialect.name(), m_name);
    calls.save();
    runAll(connection, m_script.becomeOwner());
    const std::vector<QByteArray> statements = m_dialect.upgradeStatements(from);
    const int all = static_cast<int>(statements.size()) + 1;
    for (int done = 0; done < all; ++done) {
        if (done + 1 < all)
            runOne(connection, statements[static_cast<std::size_t>(done)]);
        else
            stampCatalog(connection);
        calls.afterChange(done + 1, all);
    }
    connection->commit();
    return from;
}

QStringList OdbcCatalog::problems() {
    const ConnectionPointer connection = ownConnection();
    const auto present = rowsOf(connection, m_dialect.columns());
    (void)knownStampOf(connection, present, m_name);
    QStringList problems = lackingColumns(present);
    if (!problems.isEmpty())
        return problems;
    problems << lackingRelations(rowsOf(connection, m_script.relations()))
             << lackingIndexes(rowsOf(connection, m_script.indexes()));
    for (const schema::Table& table : schema::tables())
        if (!rowsOf(connection, m_script.findLateKeys(table)).empty())
            problems << QStringLiteral("%1 would give out keys that it has already").arg(table.name);
    return problems;
}

} // namespace

std::unique_ptr<ServerCatalog> odbcCatalog(const ServerDialect& dialect, const CatalogScript& script,
                                           const QString& connectionString) {
    return std::make_unique<OdbcCatalog>(dialect, script, connectionString);
}

} // namespace tarnwell::data
