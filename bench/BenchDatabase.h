#pragma once

#include "data/recordset/Connection.h"

#include <QString>
#include <QTemporaryDir>

namespace tarnwell::bench {

/// A lot with many tasks, made once for all benchmarks of a program.
class BenchDatabase {
public:
    static constexpr int taskCount = 100'000;

    [[nodiscard]] static BenchDatabase& shared();

    [[nodiscard]] Connection& connection() { return m_connection; }
    [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("Tarnwell.mdb")); }
    /// The key of the lot that owns all tasks.
    [[nodiscard]] qint64 lotKey() const { return m_lotKey; }

private:
    BenchDatabase();
    qint64 add(const QString& table, const QString& parentColumn, qint64 parent);
    void addTasks();

    QTemporaryDir m_folder;
    Connection m_connection;
    qint64 m_lotKey = 0;
};

} // namespace tarnwell::bench
