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

/// A new database of ours in a temporary folder, with its initial rows and one open connection.
class TemporaryDatabase {
public:
    TemporaryDatabase();

    [[nodiscard]] Connection& connection() { return m_connection; }
    [[nodiscard]] QString path() const;
    [[nodiscard]] QString folder() const { return m_folder.path(); }
    /// A second workstation: a further connection to the same file.
    [[nodiscard]] std::unique_ptr<Connection> secondWorkstation() const;

    /// Adds a row through a recordset and returns its key (the value of the table's first column).
    qint64 add(const QString& table, const std::vector<std::pair<QString, Value>>& values);
    /// First column of the first row; Empty when there is no row.
    [[nodiscard]] Value ask(const QString& sql);
    void run(const QString& sql) { m_connection.Execute(sql); }

private:
    QTemporaryDir m_folder;
    Connection m_connection;
};

} // namespace tarnwell::test
