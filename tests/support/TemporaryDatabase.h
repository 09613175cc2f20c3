#pragma once

#include "data/recordset/Connection.h"
#include "data/recordset/Recordset.h"

#include <QString>
#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace tarnwell::test {

/// The connection string that opens a database file.
[[nodiscard]] QString connectionStringFor(const QString& path);

/// The same for each engine, in its own words.
struct EnginesOwn {
    const char* sqlite;
    std::vector<const char*> postgres; ///< One after the other.
};

/// A new database of ours with its initial rows and one open connection: a file in a temporary folder, or a
/// catalog of the PostgreSQL server that the environment variable TARNWELL_TEST_SERVER names, a copy of its
/// catalog "tarnwell_template". It ends with this.
class TemporaryDatabase {
public:
    TemporaryDatabase();
    ~TemporaryDatabase();
    TemporaryDatabase(const TemporaryDatabase&) = delete;
    TemporaryDatabase& operator=(const TemporaryDatabase&) = delete;

    [[nodiscard]] Connection& connection() { return m_connection; }
    /// What opens it, whichever engine it is of.
    [[nodiscard]] const QString& connectionString() const { return m_connectionString; }
    /// Of the file; only for tests of files.
    [[nodiscard]] QString path() const;
    [[nodiscard]] QString folder() const { return m_folder.path(); }
    /// A second workstation: a further connection to the same database.
    [[nodiscard]] std::unique_ptr<Connection> secondWorkstation() const;

    /// Adds a row through a recordset and returns its key (the value of the table's first column).
    qint64 add(const QString& table, const std::vector<std::pair<QString, Value>>& values);
    /// First column of the first row; Empty when there is no row.
    [[nodiscard]] Value ask(const QString& sql);
    void run(const QString& sql) { m_connection.Execute(sql); }
    /// Runs what our own statements cannot do, beside the open connection and without regard to relations.
    void runBeside(const EnginesOwn& statements);

private:
    QTemporaryDir m_folder;
    QString m_connectionString;
    bool m_schemaIsChanged = false;
    Connection m_connection;
};

} // namespace tarnwell::test
